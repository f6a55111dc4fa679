#include "ports/simulated/SimulatedApplication.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace stagehopper::simulated {

void SimulatedApplication::setDelegate(std::weak_ptr<platform::ApplicationDelegate> delegate) {
    delegate_ = std::move(delegate);
}

void SimulatedApplication::setActivationPolicy(platform::ActivationPolicy /*policy*/) {
    journal_.add("activation policy regular");
}

void SimulatedApplication::setMainMenu(const platform::MainMenu& menu) {
    menu_ = menu;
    journal_.add("main menu set");
}

void SimulatedApplication::activate() {
    journal_.add("application activated");
}

void SimulatedApplication::terminate() {
    if (terminated_) return;
    terminated_ = true;
    if (const auto delegate = delegate_.lock()) delegate->applicationWillTerminate();
    if (turnsAtTheEndFor.count() > 0) dispatch_.turnNested(turnsAtTheEndFor);
    dispatch_.close();
    journal_.add("application terminated");
}

int SimulatedApplication::run() {
    finishLaunching();
    while (!terminated_) {
        if (!dispatch_.runNext()) throw std::logic_error("nothing is left that could quit");
    }
    return 0;
}

void SimulatedApplication::finishLaunching() {
    if (const auto delegate = delegate_.lock()) delegate->applicationDidFinishLaunching();
}

void SimulatedApplication::lastWindowWasClosed() {
    const auto delegate = delegate_.lock();
    if (delegate && delegate->applicationShouldTerminateAfterLastWindowClosed()) terminate();
}

void SimulatedApplication::userPressesMenuItem(std::string_view title) {
    for (const auto& menu : menu_) {
        for (const auto& entry : menu.entries) {
            if (!entry || entry->title != title) continue;
            if (entry->action == platform::MenuAction::terminate) terminate();
            return;
        }
    }
    throw std::logic_error("no menu item " + std::string(title));
}

}  // namespace stagehopper::simulated
