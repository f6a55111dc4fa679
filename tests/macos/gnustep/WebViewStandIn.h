#pragma once

namespace stagehopper::cocoa::gnustep {

/// Puts a plain view in the place of WebKit's, which GNUstep has not. It shows nothing. Of pages
/// and scripts it understands the lines "post HANDLER TEXT" and "postNumber HANDLER", which do what
/// a script does that posts to that message handler. Says so on the standard output. Once, before
/// WebKit's classes are asked for. Main thread.
void supplyWebView();

}  // namespace stagehopper::cocoa::gnustep
