#pragma once

#include "companion/backend/http/Pages.h"
#include "companion/backend/log/BackendLog.h"
#include "companion/backend/system/Options.h"

namespace stagehopper::companion {

/// Serves until the parent ends or a signal ends the program. Returns the exit status. Main thread
/// only: everything runs on it, so nothing needs a lock.
[[nodiscard]] int serve(const Options& options, const Pages& pages, BackendLog& log);

}  // namespace stagehopper::companion
