#pragma once

#include "companion/backend/BackendLog.h"
#include "companion/backend/Options.h"
#include "companion/backend/Pages.h"

namespace stagehopper::companion {

/// Serves until the parent is gone or the program is told to end; the exit status.
/// Thread: main; everything runs on it, so nothing needs a lock.
int serve(const Options& options, const Pages& pages, BackendLog& log);

}  // namespace stagehopper::companion
