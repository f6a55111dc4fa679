#include "tests/scenario/RandomWorld.h"

#include <chrono>
#include <utility>

namespace stagehopper {

using namespace std::chrono_literals;

RandomWorld::RandomWorld(unsigned seed) : random_(seed) {
    auto& programs = stage.desktop.processes.programs;
    programs["/sbin/ifconfig"] = {.output = "flags=8943<UP,BROADCAST>",
                                  .exitsAfter = platform::Duration{0.1}};
    programs["/usr/bin/osascript"] = {.exitsAfter = platform::Duration{3},
                                      .exitStatus = static_cast<std::int32_t>(below(2))};
    stage.installServingBackend(3000);
    stage.launch();
}

std::string RandomWorld::act() {
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

std::string RandomWorld::startProgram() {
    if (running_.size() >= 6) return "no room for another program";
    const auto pid = nextPid_++;
    const auto* bundleId =
        oneOf({"com.microsoft.Powerpoint", "com.kingsoft.wpsoffice.mac", "com.apple.iWork.Keynote",
               "com.apple.Preview", "com.google.Chrome", "com.apple.TextEdit"});
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

std::string RandomWorld::quitProgram() {
    if (running_.empty()) return "nothing to quit";
    const auto which = running_.begin() + static_cast<std::ptrdiff_t>(below(running_.size()));
    stage.desktop.quitProgram(*which);
    running_.erase(which);
    return "program quit";
}

std::string RandomWorld::changeFront() {
    if (running_.empty() || below(5) == 0) {
        stage.desktop.bringNothingToFront();
    } else {
        stage.desktop.bringToFront(running_[below(running_.size())]);
    }
    return "another front program";
}

std::string RandomWorld::changeTrust() {
    stage.desktop.accessibility.trusted = below(4) != 0;
    return "trust changed";
}

std::string RandomWorld::letTimePass() {
    stage.desktop.advance(std::chrono::milliseconds(below(3000)));
    if (below(10) == 0) stage.desktop.sleepFor(8h);
    if (below(10) == 0) stage.desktop.clock.userSetsClock(oneOf({-1h, 1h}));
    return "time passed";
}

std::string RandomWorld::disturbLogFile() {
    if (below(2) == 0) stage.desktop.files.remove(Stage::logPath);
    stage.desktop.files.setCanCreate(below(3) != 0);
    return "log file disturbed";
}

std::string RandomWorld::garbageFromThePage() {
    std::string text = oneOf({"", "CMD:", "PPT:", "DBG:", "WSCONN:", "CMD:enableSlideControl"});
    for (auto length = below(20); length > 0; --length) {
        text += static_cast<char>(below(3) == 0 ? '|' : static_cast<int>(random_() % 256) - 128);
    }
    if (below(8) == 0) stage.desktop.panelPage().postsNonText("bridge");
    stage.pagePosts(text);
    return "garbage from the page";
}

std::string RandomWorld::commandFromThePage() {
    stage.pagePosts(oneOf({"CMD:showOverlay", "CMD:hideOverlay", "CMD:destroyOverlay",
                           "CMD:startBundledBackend", "CMD:stopBundledBackend",
                           "CMD:requestAwdlBeforeMeeting", "WSCONN:http://127.0.0.1:3000|AB12",
                           "WSCONN:http://127.0.0.1:3007|CD34", "WSCONN:no url|AB12"}));
    return "command from the page";
}

std::string RandomWorld::disturbBackend() {
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

std::string RandomWorld::disturbServers() {
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

std::string RandomWorld::disturbSocket() {
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

std::string RandomWorld::changeScreens() {
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

std::string RandomWorld::stepFromSomewhere() {
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

}  // namespace stagehopper
