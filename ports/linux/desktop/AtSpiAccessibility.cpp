#include "ports/linux/desktop/AtSpiAccessibility.h"

#include "ports/linux/desktop/AccessibilityBus.h"
#include "ports/linux/desktop/ProgramElement.h"
#include "ports/linux/desktop/TrustDialog.h"

namespace stagehopper::linux_port {

AtSpiAccessibility::AtSpiAccessibility(X11Desktop& desktop)
    : desktop_(desktop),
      bus_(std::make_shared<AccessibilityBus>()),
      dialog_(std::make_unique<TrustDialog>()) {}

AtSpiAccessibility::~AtSpiAccessibility() = default;

bool AtSpiAccessibility::isProcessTrusted() {
    return bus_->isEnabled();
}

void AtSpiAccessibility::requestTrust() {
    dialog_->show([bus = bus_] { bus->enable(); });
}

platform::UIElementRef AtSpiAccessibility::applicationElement(platform::Pid process) {
    return std::make_shared<const ProgramElement>(bus_, desktop_, process);
}

}  // namespace stagehopper::linux_port
