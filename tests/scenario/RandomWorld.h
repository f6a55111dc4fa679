#pragma once

#include <algorithm>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "tests/scenario/Stage.h"

namespace stagehopper {

/// A stage with random events, all determined by the seed.
class RandomWorld {
public:
    explicit RandomWorld(unsigned seed);

    Stage stage;

    /// Causes one random event and runs all due work. Returns the name of the event.
    std::string act();

    [[nodiscard]] const std::vector<platform::Pid>& running() const { return running_; }

    [[nodiscard]] auto openOverlays() const {
        return std::ranges::count_if(stage.desktop.userInterface.panels(),
                                     [](const auto& panel) { return panel->open; });
    }
    [[nodiscard]] std::size_t openSockets() const { return stage.desktop.network.openSockets(); }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    template <class Choice>
    Choice oneOf(std::initializer_list<Choice> choices) {
        return *(choices.begin() + below(choices.size()));
    }

    std::string startProgram();
    std::string quitProgram();
    std::string changeFront();
    std::string changeTrust();
    std::string letTimePass();
    std::string disturbLogFile();
    std::string garbageFromThePage();
    std::string commandFromThePage();
    std::string disturbBackend();
    std::string disturbServers();
    std::string disturbSocket();
    std::string changeScreens();
    std::string stepFromSomewhere();

    std::mt19937 random_;
    std::vector<platform::Pid> running_;
    platform::Pid nextPid_ = 100;
};

}  // namespace stagehopper
