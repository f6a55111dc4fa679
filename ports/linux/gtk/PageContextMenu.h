#pragma once

#include <webkit2/webkit2.h>

namespace stagehopper::linux_port {

/// The page's context menu offers what an editor needs and nothing of a browser; where nothing is
/// left there is no menu.
void keepOnlyEditingCommands(WebKitWebView* view);

}  // namespace stagehopper::linux_port
