#include "tests/scenario/Stage.h"

#include <utility>

namespace stagehopper {

namespace {

constexpr std::string_view tag = "[slide_nav] ";

}  // namespace

Stage::Stage(std::vector<platform::SlideApplication> portRows) {
    desktop.slideApplications = std::move(portRows);
    desktop.files.put("/app/Resources/panel.html", "<!doctype html>");
    desktop.host.commandLine = {"/app/stagehopper"};
    desktop.host.bundleId = "org.stagehopper.Stagehopper";
    desktop.accessibility.trusted = true;
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
    const auto messages = desktop.systemLog.messages();
    std::vector<std::string> found;
    for (std::size_t i = forgotten_; i < messages.size(); ++i) {
        const std::string_view message = messages[i];
        if (!message.starts_with(tag)) continue;
        const auto line = message.substr(tag.size());
        if (line.starts_with(event)) found.emplace_back(line);
    }
    return found;
}

std::string Stage::logFile() {
    return desktop.files.contents(logPath);
}

void Stage::forget() {
    forgotten_ = desktop.systemLog.messages().size();
}

}  // namespace stagehopper
