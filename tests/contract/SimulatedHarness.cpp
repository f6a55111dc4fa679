#include <string>
#include <utility>

#include "ports/simulated/Desktop.h"
#include "tests/contract/PortHarness.h"

namespace stagehopper {

namespace {

class SimulatedHarness final : public PortHarness {
public:
    platform::Platform platform() override { return desktop_.platform(); }

    bool runUntil(const std::function<bool()>& done, std::chrono::seconds limit) override {
        const auto end = desktop_.clock.elapsed() + limit;
        while (!done()) {
            if (desktop_.clock.elapsed() > end || !desktop_.dispatch.runNext()) return done();
        }
        return true;
    }

    // The tests make one window and one view each, so the desktop's latest is the one meant.
    void userCloses(platform::Window& /*window*/) override { desktop_.userClosesPanel(); }
    void loadEmptyPage(platform::WebView& view) override { view.loadFile("/page.html", "/"); }
    void pagePosts(platform::WebView& /*view*/, std::string_view handler,
                   std::string_view text) override {
        desktop_.panelPage().posts(std::string(handler), text);
    }
    void pagePostsNumber(platform::WebView& /*view*/, std::string_view handler) override {
        desktop_.panelPage().postsNonText(std::string(handler));
    }

    std::filesystem::path temporaryDirectory() override { return "/tmp/test"; }
    void plantFile(const std::filesystem::path& path, std::string_view contents) override {
        desktop_.files.put(path, contents);
    }
    void plantLink(const std::filesystem::path& path,
                   const std::filesystem::path& target) override {
        desktop_.files.link(path, target);
    }
    void plantHardLink(const std::filesystem::path& path,
                       const std::filesystem::path& target) override {
        desktop_.files.hardLink(path, target);
    }
    std::string contentsOf(const std::filesystem::path& path) override {
        return desktop_.files.contents(path);
    }
    void plantExecutable(const std::filesystem::path& path) override {
        desktop_.files.put(path, "");
        desktop_.files.setExecutable(path, true);
    }

    std::filesystem::path programThatExits(int status) override {
        return program({.exitsAfter = platform::Duration{0.001}, .exitStatus = status});
    }
    std::filesystem::path programThatWrites(std::string_view text) override {
        return program({.output = std::string(text), .exitsAfter = platform::Duration{0.001}});
    }
    std::filesystem::path programThatRunsUntilTerminated() override { return program({}); }
    std::filesystem::path notAProgram() override {
        return program({.launchError = "Exec format error"});
    }

private:
    std::filesystem::path program(simulated::ProgramFile program) {
        const std::filesystem::path path =
            "/programs/" + std::to_string(desktop_.processes.programs.size());
        plantExecutable(path);
        desktop_.processes.programs[path] = std::move(program);
        return path;
    }

    simulated::Desktop desktop_;
};

}  // namespace

std::unique_ptr<PortHarness> makePortHarness() {
    return std::make_unique<SimulatedHarness>();
}

}  // namespace stagehopper
