// Random desktops, random users, random pages: what must hold whatever happens.
//
// A seed replays exactly. To look at a failing one, run the test that bears its number.

#include <gmock/gmock.h>

#include <map>
#include <random>
#include <regex>

#include "tests/scenario/Programs.h"
#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;

/// A stage on which things happen at random; everything follows from the seed.
class RandomWorld {
public:
    explicit RandomWorld(unsigned seed) : random_(seed) {
        auto& programs = stage.desktop.processes.programs;
        programs["/sbin/ifconfig"] = {.output = "flags=8943<UP,BROADCAST>",
                                      .exitsAfter = platform::Duration{0.1}};
        programs["/usr/bin/osascript"] = {.exitsAfter = platform::Duration{3},
                                          .exitStatus = static_cast<std::int32_t>(below(2))};
        stage.installServingBackend(3000);
        stage.launch();
    }

    Stage stage;

    /// Something happens, and everything due is run. Answers what it was.
    std::string act() {
        switch (below(18)) {
            case 0:
                return startProgram();
            case 1:
                return quitProgram();
            case 2:
                return changeFront();
            case 3:
                return changeTrust();
            case 4:
                return letTimePass();
            case 5:
                return disturbLogFile();
            case 6:
                return garbageFromThePage();
            case 7:
                return commandFromThePage();
            case 8:
                return disturbBackend();
            case 9:
                return disturbServers();
            case 10:
                return disturbSocket();
            case 11:
                return changeScreens();
            default:
                return stepFromSomewhere();
        }
    }

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

    std::string startProgram() {
        if (running_.size() >= 6) return "no room for another program";
        const auto pid = nextPid_++;
        const auto* bundleId = oneOf({"com.microsoft.Powerpoint", "com.kingsoft.wpsoffice.mac",
                                      "com.apple.iWork.Keynote", "com.apple.Preview",
                                      "com.google.Chrome", "com.apple.TextEdit"});
        auto program = simulated::program(bundleId).pid(pid);
        if (below(4) != 0) program = std::move(program).window(oneOf({"deck.pptx", "a.PDF ", " "}));
        if (below(4) == 0) program = std::move(program).untitledWindow();
        if (below(8) == 0) program = std::move(program).unreadable();
        if (below(8) == 0) program = std::move(program).refusesKeys("its window is gone");
        if (below(2) == 0) {
            auto next = simulated::item(oneOf({"Next Slide", "显示下一页", "Zoom"}));
            if (below(3) == 0) next = std::move(next).disabled();
            if (below(5) == 0) {
                next = std::move(next).pressResult(platform::AccessibilityError::cannotComplete);
            }
            program = std::move(program).menu(oneOf({"Slide Show", "Play", "File"}),
                                              {simulated::oddEntry(), std::move(next)});
        }
        stage.desktop.addProgram(std::move(program));
        running_.push_back(pid);
        return "program started";
    }

    std::string quitProgram() {
        if (running_.empty()) return "nothing to quit";
        const auto which = running_.begin() + static_cast<std::ptrdiff_t>(below(running_.size()));
        stage.desktop.quitProgram(*which);
        running_.erase(which);
        return "program quit";
    }

    std::string changeFront() {
        if (running_.empty() || below(5) == 0) {
            stage.desktop.bringNothingToFront();
        } else {
            stage.desktop.bringToFront(running_[below(running_.size())]);
        }
        return "another front program";
    }

    std::string changeTrust() {
        stage.desktop.accessibility.trusted = below(4) != 0;
        return "trust changed";
    }

    std::string letTimePass() {
        stage.desktop.advance(std::chrono::milliseconds(below(3000)));
        if (below(10) == 0) stage.desktop.sleepFor(8h);
        if (below(10) == 0) stage.desktop.clock.userSetsClock(oneOf({-1h, 1h}));
        return "time passed";
    }

    std::string disturbLogFile() {
        if (below(2) == 0) stage.desktop.files.remove(Stage::logPath);
        stage.desktop.files.setCanCreate(below(3) != 0);
        return "log file disturbed";
    }

    std::string garbageFromThePage() {
        std::string text = oneOf({"", "CMD:", "PPT:", "DBG:", "WSCONN:", "CMD:enableSlideControl"});
        for (auto length = below(20); length > 0; --length) {
            text +=
                static_cast<char>(below(3) == 0 ? '|' : static_cast<int>(random_() % 256) - 128);
        }
        if (below(8) == 0) stage.desktop.panelPage().postsNonText("bridge");
        stage.pagePosts(text);
        return "garbage from the page";
    }

    std::string commandFromThePage() {
        stage.pagePosts(oneOf({"CMD:showOverlay", "CMD:hideOverlay", "CMD:destroyOverlay",
                               "CMD:startBundledBackend", "CMD:stopBundledBackend",
                               "CMD:requestAwdlBeforeMeeting", "WSCONN:http://127.0.0.1:3000|AB12",
                               "WSCONN:http://127.0.0.1:3007|CD34", "WSCONN:no url|AB12"}));
        return "command from the page";
    }

    std::string disturbBackend() {
        auto& program = stage.desktop.processes.programs[Stage::backendPath];
        program.launchError = below(4) == 0 ? "Exec format error" : "";
        program.endsWithin = platform::Duration{oneOf({0.0, 0.5, 4.0})};
        const auto starts = stage.desktop.processes.started(Stage::backendPath);
        if (!starts.empty() && below(2) == 0) {
            stage.desktop.processes.exits(*starts.back(), oneOf({0, 1, 9}));
        }
        stage.desktop.runReady();
        return "backend disturbed";
    }

    std::string disturbServers() {
        const int port = oneOf({3000, 3007, 3050});
        if (below(3) == 0) {
            stage.desktop.network.stopServing(port);
        } else {
            std::string meetings;
            for (const auto* room : {"AB12", "CD34"}) {
                if (below(2) == 0) continue;
                meetings += std::string(meetings.empty() ? "" : ",") + R"({"roomCode":")" + room +
                            R"(","roomName":"","createdAt":)" + std::to_string(below(3)) +
                            R"(,"participants":[{"userId":"phone-1","displayName":"","role":")" +
                            oneOf({"guest", "host"}) + "\"}]}";
            }
            auto& server = stage.serveMeetings(port, meetings);
            server.takesSockets = below(4) != 0;
            server.answersPings = below(4) != 0;
            server.answersAfter = platform::Duration{oneOf({0.0, 0.1, 0.5})};
        }
        stage.desktop.runReady();
        return "servers disturbed";
    }

    std::string disturbSocket() {
        auto& connections = stage.desktop.network.serve(3007).connections;
        if (connections.empty()) return "no socket to disturb";
        auto& socket = *connections[below(connections.size())];
        switch (below(4)) {
            case 0:
                stage.desktop.network.breaks(socket, "lost");
                break;
            case 1:
                stage.desktop.network.sends(socket, R"({"type":"welcome"})");
                break;
            case 2:
                stage.desktop.network.sendsBytes(socket, "\xFF");
                break;
            default:
                for (auto& handler : std::exchange(socket.pongHandlers, {})) {
                    handler(platform::UrlError{"timed out"});
                }
        }
        stage.desktop.runReady();
        return "socket disturbed";
    }

    std::string changeScreens() {
        auto& screens = stage.desktop.screens;
        screens.frames.clear();
        for (auto count = below(3); count > 0; --count) {
            screens.frames.push_back({1000.0 * static_cast<double>(count), 0, {1000, 800}});
        }
        screens.main.reset();
        if (!screens.frames.empty() && below(2) == 0) screens.main = screens.frames.front();
        screens.change();
        return "screens changed";
    }

    std::string stepFromSomewhere() {
        const std::string direction = oneOf({"next", "prev", " NEXT\n", "previous", ""});
        const std::string seq = oneOf({"", "1", "2", "3"});
        if (below(2) == 0) {
            stage.pagePosts("PPT:" + direction + "|" + seq + "|panel");
        } else {
            stage.app->consumeSlideEvent(direction, seq, "native_ws");
            stage.desktop.runReady();
        }
        return "step";
    }

    std::mt19937 random_;
    std::vector<platform::Pid> running_;
    platform::Pid nextPid_ = 100;
};

/// The event words of one act, as letters, so that a grammar can be held against them.
std::string eventLetters(const std::vector<std::string>& lines) {
    static const std::map<std::string, char> letters{
        {"duplicate_dropped", 'D'},
        {"native_bridge_received", 'R'},
        {"blocked_invalid_direction", 'I'},
        {"blocked_no_accessibility", 'A'},
        {"exec_context", 'X'},
        {"blocked_no_target", 'N'},
        {"target_resolved", 'T'},
        {"menu_path_skipped", 's'},
        {"menu_path_sent", 'm'},
        {"menu_path_missing", 'f'},
        {"menu_path_disabled", 'f'},
        {"menu_path_unavailable", 'f'},
        {"menu_path_press_failed", 'f'},
        {"key_sent", 'K'},
        {"key_undelivered", 'U'},
        {"completed", 'C'},
    };
    std::string word;
    for (const auto& line : lines) {
        const auto found = letters.find(line.substr(0, line.find(' ')));
        if (found != letters.end()) word += found->second;
    }
    return word;
}

class RandomWorlds : public testing::TestWithParam<unsigned> {};

TEST_P(RandomWorlds, KeepTheirPromises) {
    RandomWorld world(GetParam());
    // One step: refused, or carried out by the menu, or by a key that arrives or is reported.
    static const std::regex aStep("D|R(I|A|X(N|T(mC|[sf]?KU?C)))");

    for (int i = 0; i < 150; ++i) {
        world.stage.forget();
        const auto front = world.stage.desktop.frontPid();
        std::map<platform::Pid, std::size_t> keysBefore;
        for (const auto pid : world.running()) {
            keysBefore[pid] = world.stage.desktop.program(pid).keys().size();
        }

        const auto what = world.act();
        SCOPED_TRACE("act " + std::to_string(i) + ": " + what);

        std::size_t newKeys = 0;
        for (const auto pid : world.running()) {
            const auto& program = world.stage.desktop.program(pid);
            const auto& keys = program.keys();
            newKeys += keys.size() - keysBefore[pid];
            ASSERT_EQ(keys.size() % 2, 0U) << "a key stayed down in " << pid;
            for (std::size_t k = 0; k < keys.size(); k += 2) {
                ASSERT_TRUE(keys[k].down && !keys[k + 1].down && keys[k].key == keys[k + 1].key);
                ASSERT_EQ(keys[k + 1].at - keys[k].at, 50ms);
            }
            if (program.application().bundleIdentifier == "com.apple.TextEdit") {
                ASSERT_TRUE(keys.empty()) << "a key for a program that holds no slides";
            }
        }
        ASSERT_LE(newKeys, 2U) << "one act is one step";

        if (what == "step") {
            const auto letters = eventLetters(world.stage.lines());
            ASSERT_TRUE(std::regex_match(letters, aStep)) << letters;
            const bool keyArrived =
                letters.find('K') != std::string::npos && letters.find('U') == std::string::npos;
            ASSERT_EQ(newKeys, keyArrived ? 2U : 0U);
            if (!world.stage.desktop.accessibility.trusted) {
                ASSERT_EQ(newKeys, 0U) << "a key without trust";
            }
            ASSERT_EQ(world.stage.desktop.frontPid(), front) << "the focus was moved";
        }
        ASSERT_LE(world.stage.desktop.accessibility.prompts, 1);
        ASSERT_FALSE(world.stage.desktop.application.terminated());
        ASSERT_LE(world.openOverlays(), 1);
        ASSERT_LE(world.openSockets(), 1U);
    }

    world.stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_TRUE(world.stage.desktop.application.terminated());
    EXPECT_EQ(world.openSockets(), 0U);
    const auto quitting = world.stage.desktop.journal.mark();
    world.stage.desktop.advance(120s);
    EXPECT_THAT(world.stage.desktop.journal.effectsSince(quitting),
                testing::Each(testing::StartsWith("process ended")));
}

TEST_P(RandomWorlds, AreTheSameWhenTheyAreReplayed) {
    const auto story = [](unsigned seed) {
        RandomWorld world(seed);
        for (int i = 0; i < 30; ++i) world.act();
        return world.stage.desktop.journal.effectsSince(0);
    };
    EXPECT_EQ(story(GetParam()), story(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWorlds, testing::Range(1U, 41U));

}  // namespace
}  // namespace stagehopper
