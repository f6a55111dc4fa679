#include "ports/linux/atspi/AtSpiAccessibility.h"

#include "ports/linux/atspi/AccessibilityBus.h"
#include "ports/linux/atspi/ProgramElement.h"
#include "ports/linux/gtk/TrustDialog.h"

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
