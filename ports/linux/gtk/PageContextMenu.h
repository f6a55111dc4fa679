#pragma once

#include <webkit2/webkit2.h>

namespace stagehopper::linux_port {

/// The page's context menu offers editing commands and no browser commands. Without commands no
/// menu appears.
void keepOnlyEditingCommands(WebKitWebView* view);

}  // namespace stagehopper::linux_port
