#include "ports/macos/accessibility/MacAccessibility.h"

#include "ports/macos/accessibility/MacUIElement.h"
#include "ports/macos/cocoa/foundation/NSDictionary.h"
#include "ports/macos/cocoa/foundation/NSNumber.h"
#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::macos_port {

namespace {

/// Seconds that one question to another program may take; a press has its own limit. A slide step
/// asks dozens of questions on the main thread: with the system's own limit of about six seconds, a
/// program that hangs would freeze our windows for minutes. A healthy program answers in
/// milliseconds, and within this limit even while it draws a heavy slide.
constexpr float messagingTimeout = 1.0F;

}  // namespace

MacAccessibility::MacAccessibility() {
    const auto systemWide =
        cocoa::CFOwned<cocoa::AXUIElementRef>::adopt(cocoa::AXUIElementCreateSystemWide());
    if (systemWide) cocoa::AXUIElementSetMessagingTimeout(systemWide.get(), messagingTimeout);
}

bool MacAccessibility::isProcessTrusted() {
    return cocoa::AXIsProcessTrusted() != 0;
}

void MacAccessibility::requestTrust() {
    const auto options =
        cocoa::NSDictionary::dictionaryWithObjects<cocoa::NSString, cocoa::NSNumber>(
            {{cocoa::NSString(cocoa::foundationObject(cocoa::kAXTrustedCheckOptionPrompt)),
              cocoa::NSNumber::numberWithBool(true)}});
    cocoa::AXIsProcessTrustedWithOptions(cocoa::bridged<cocoa::CFDictionaryRef>(options));
}

platform::UIElementRef MacAccessibility::applicationElement(platform::Pid process) {
    return std::make_shared<MacUIElement>(
        cocoa::CFOwned<cocoa::AXUIElementRef>::adopt(cocoa::AXUIElementCreateApplication(process)));
}

}  // namespace stagehopper::macos_port
