#include "tests/macos/MacStage.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace stagehopper {

MacStage::MacStage() {
    files.put(std::string(resources) + "/panel.html", "<!doctype html>");
    files.put(std::string(resources) + "/overlay.html", "<!doctype html>");
    world.tasks.programs["/usr/sbin/netstat"] = {.output = "default 10.0.0.1 UGScg en0\n",
                                                 .exitsAfter = platform::Duration{0}};
    world.tasks.programs["/sbin/ping"] = {};
}

void MacStage::make() {
    pool_ = std::make_unique<cocoa::AutoreleasePool>();
    services_ = std::make_unique<macos_port::Services>();
    app = AppController::create(services_->platform(files));
    services_->application().setDelegate(app);
}

void MacStage::launch() {
    make();
    world.application.finishLaunching();
    runUntilIdle();
}

int MacStage::run() {
    make();
    return services_->application().run();
}

void MacStage::drop() {
    app.reset();
    services_.reset();
    pool_.reset();
}

void MacStage::pagePosts(std::string_view text) {
    panelPage().posts("bridge", text);
    runUntilIdle();
}

void MacStage::userQuits() {
    world.application.userPresses("退出 Stagehopper");
    runUntilIdle();
}

void MacStage::userClosesPanel() {
    recording::Windows::userCloses(world.windows.newest("NSWindow"));
    runUntilIdle();
}

void MacStage::installBackend(recording::ProgramFile program) {
    files.put(backend, "");
    files.setExecutable(backend, true);
    world.tasks.programs[backend] = std::move(program);
}

void MacStage::installServingBackend(int port) {
    installBackend({.onStart = [this, port] { world.servers.serve(port); },
                    .onEnd = [this, port] { world.servers.stopServing(port); }});
}

void MacStage::serveMeeting(int port, const std::string& roomCode) {
    world.servers.serve(port).answers["/v1/meetings/active"] = {
        200, R"({"meetings":[{"roomCode":")" + roomCode +
                 R"(","roomName":"","createdAt":1,"participants":[)"
                 R"({"userId":"phone-1","displayName":"","role":"guest"}]}]})"};
}

void MacStage::forget() {
    recording::journal().clear();
    world.systemLog.clear();
}

std::vector<std::string> MacStage::lines(std::string_view part) {
    auto found = lines();
    std::erase_if(found, [part](const auto& line) { return line.find(part) == std::string::npos; });
    return found;
}

const recording::JournalEntry* MacStage::entryWith(std::string_view part) {
    const auto& entries = recording::journal().entries();
    const auto found = std::find_if(entries.rbegin(), entries.rend(), [part](const auto& entry) {
        return entry.line().find(part) != std::string::npos;
    });
    return found == entries.rend() ? nullptr : &*found;
}

std::string MacStage::queueOf(std::string_view part) {
    const auto* entry = entryWith(part);
    return entry == nullptr ? std::string() : entry->queue;
}

double MacStage::timeOf(std::string_view part) {
    if (const auto* entry = entryWith(part)) return entry->seconds;
    throw std::logic_error("no line holds " + std::string(part));
}

std::vector<std::string> MacStage::diagnostics(std::string_view event) const {
    constexpr std::string_view tag = "[slide_nav] ";
    std::vector<std::string> found;
    for (const auto& message : world.systemLog) {
        if (!message.starts_with(tag)) continue;
        if (auto text = message.substr(tag.size()); text.starts_with(event)) {
            found.push_back(std::move(text));
        }
    }
    return found;
}

}  // namespace stagehopper
