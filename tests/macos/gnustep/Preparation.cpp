#include "tests/macos/gnustep/Preparation.h"

#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/gnustep/CommonModes.h"
#include "tests/macos/gnustep/MenuBarTitles.h"
#include "tests/macos/gnustep/MissingMessages.h"
#include "tests/macos/gnustep/UrlSession.h"
#include "tests/macos/gnustep/WebViewStandIn.h"

namespace stagehopper::cocoa::gnustep {

void prepare() {
    const AutoreleasePool pool;
    supplyWebView();
    supplyMissingMessages();
    supplyUrlSession();
    supplyCommonModes();
    showMenuTitlesInMenuBar();
}

}  // namespace stagehopper::cocoa::gnustep
