#pragma once

#include <string_view>

#include "platform/Application.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/SimulatedDispatch.h"

namespace stagehopper::simulated {

/// The application object. Main thread only.
class SimulatedApplication final : public platform::Application {
public:
    SimulatedApplication(Journal& journal, SimulatedDispatch& dispatch)
        : journal_(journal), dispatch_(dispatch) {}

    void setDelegate(std::weak_ptr<platform::ApplicationDelegate> delegate) override;
    void setActivationPolicy(platform::ActivationPolicy policy) override;
    void setMainMenu(const platform::MainMenu& menu) override;
    void activate() override;
    void terminate() override;
    /// Launches, then lets time pass and runs all due work until the application is terminated.
    /// Throws if no work is left, because the loop would never end.
    int run() override;

    /// The first half of `run`. Tests then move time themselves.
    void finishLaunching();
    /// Asks the delegate whether to quit, as the system does.
    void lastWindowWasClosed();
    /// The user chooses the item with this title; unknown titles throw.
    void userPressesMenuItem(std::string_view title);

    /// How long the main loop continues between the delegate's shut-down and the end, as while a
    /// system waits for a child process or finishes an animation. Work that was not canceled runs
    /// during this time.
    std::chrono::nanoseconds turnsAtTheEndFor{0};

    [[nodiscard]] bool terminated() const { return terminated_; }
    [[nodiscard]] const platform::MainMenu& menu() const { return menu_; }

private:
    Journal& journal_;
    SimulatedDispatch& dispatch_;
    std::weak_ptr<platform::ApplicationDelegate> delegate_;
    platform::MainMenu menu_;
    bool terminated_ = false;
};

}  // namespace stagehopper::simulated
