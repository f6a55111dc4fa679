#include "ports/macos/MacUIElement.h"

#include <utility>

#include "ports/macos/AttributeConversion.h"
#include "ports/macos/cocoa/foundation/NSProcessInfo.h"

namespace stagehopper::macos_port {

namespace {

/// Seconds that a press may take: what the system gives every call by itself. A program answers
/// when the whole step is done, and a slide with a heavy build takes its time.
constexpr float pressTimeout = 6.0F;

}  // namespace

MacUIElement::MacUIElement(cocoa::CFOwned<cocoa::AXUIElementRef> element)
    : element_(std::move(element)) {}

std::optional<platform::AttributeValue> MacUIElement::attributeValue(
    platform::AccessibilityAttribute attribute) const {
    if (!element_) return std::nullopt;
    const auto name = cocoa::bridged<cocoa::CFStringRef>(cocoa::string(nameOf(attribute)));
    cocoa::CFTypeRef copied = nullptr;
    const auto error = cocoa::AXUIElementCopyAttributeValue(element_.get(), name, &copied);
    const auto value = cocoa::CFOwned<cocoa::CFTypeRef>::adopt(copied);
    if (error != cocoa::kAXErrorSuccess) return std::nullopt;
    return attributeValueOf(value.get());
}

platform::AccessibilityError MacUIElement::press() const {
    if (!element_) return platform::AccessibilityError::invalidElement;
    const auto action = cocoa::bridged<cocoa::CFStringRef>(cocoa::string("AXPress"));
    const auto system = cocoa::NSProcessInfo::processInfo();
    cocoa::AXUIElementSetMessagingTimeout(element_.get(), pressTimeout);
    const double began = system.systemUptime();
    const auto error = cocoa::AXUIElementPerformAction(element_.get(), action);
    const double seconds = system.systemUptime() - began;
    cocoa::AXUIElementSetMessagingTimeout(element_.get(), 0);
    // The same error comes at once when the press cannot be delivered. After the whole time it was,
    // and only its answer is missing: a key on top of it would be a second step.
    constexpr double tolerance = 0.5;
    if (error == cocoa::kAXErrorCannotComplete && seconds > pressTimeout - tolerance) {
        return platform::AccessibilityError::success;
    }
    return platform::AccessibilityError(error);
}

}  // namespace stagehopper::macos_port
