#include "tests/scenario/Stage.h"

#include <utility>

namespace stagehopper {

namespace {

constexpr std::string_view diagnosticTag = "[slide_nav] ";
constexpr std::string_view systemTag = "Stagehopper: ";

}  // namespace

Stage::Stage(std::vector<platform::SlideApplication> portRows) {
    desktop.slideApplications = std::move(portRows);
    desktop.files.put("/app/Resources/panel.html", "<!doctype html>");
    desktop.host.commandLine = {"/app/stagehopper"};
    desktop.host.bundleId = "org.stagehopper.Stagehopper";
    desktop.accessibility.trusted = true;
    desktop.processes.programs["/usr/sbin/netstat"] = {.output = "default 10.0.0.1 UGScg en0\n",
                                                       .exitsAfter = platform::Duration{0}};
    desktop.processes.programs["/sbin/ping"] = {};
    app = AppController::create(desktop.platform());
}

void Stage::launch() {
    desktop.launch(app);
    forget();
}

void Stage::pagePosts(std::string_view text) {
    desktop.panelPage().posts("bridge", text);
    desktop.runReady();
}

void Stage::step(std::string_view direction) {
    app->consumeSlideEvent(direction, "", "test");
    desktop.runReady();
}

std::vector<std::string> Stage::lines() const {
    return lines("");
}

std::vector<std::string> Stage::lines(std::string_view event) const {
    auto found = messages(diagnosticTag);
    std::erase_if(found, [event](const auto& line) { return !line.starts_with(event); });
    return found;
}

std::vector<std::string> Stage::systemLines() const {
    return messages(systemTag);
}

std::vector<std::string> Stage::messages(std::string_view tag) const {
    const auto all = desktop.systemLog.messages();
    std::vector<std::string> found;
    for (std::size_t i = forgotten_; i < all.size(); ++i) {
        if (all[i].starts_with(tag)) found.push_back(all[i].substr(tag.size()));
    }
    return found;
}

void Stage::installBackend(simulated::ProgramFile program) {
    desktop.files.put(backendPath, "");
    desktop.files.setExecutable(backendPath, true);
    desktop.processes.programs[backendPath] = std::move(program);
}

void Stage::installServingBackend(int port) {
    installBackend({.onStart = [this, port] { desktop.network.serve(port); },
                    .onEnd = [this, port] { desktop.network.stopServing(port); }});
}

simulated::Server& Stage::serveMeetings(int port, const std::string& meetings) {
    auto& server = desktop.network.serve(port);
    server.answers["/v1/meetings/active"] = {200, "{\"meetings\":[" + meetings + "]}"};
    return server;
}

std::string Stage::logFile() {
    return desktop.files.contents(logPath);
}

void Stage::forget() {
    forgotten_ = desktop.systemLog.messages().size();
}

}  // namespace stagehopper
