#pragma once

namespace stagehopper::cocoa::gnustep {

/// Replaces WebKit's view, which GNUstep lacks, by a plain view that shows nothing. In pages and
/// scripts it understands the lines "post HANDLER TEXT" and "postNumber HANDLER", which post to
/// that message handler as a script does. Prints this on standard output. Once, before the first
/// use of WebKit's classes. Main thread.
void supplyWebView();

}  // namespace stagehopper::cocoa::gnustep
