// The macOS port on the recording runtime under the contract's tests. Files are real, as the port
// uses the system's functions for them.

#include <string>
#include <utility>

#include "ports/macos/Services.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/contract/RealFilesHarness.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper {

namespace {

class RecordingHarness final : public RealFilesHarness {
public:
    platform::Platform platform() override { return services_.platform(); }
    bool runUntil(const std::function<bool()>& done, std::chrono::seconds limit) override {
        return recording::queues::runUntil(done, static_cast<double>(limit.count()));
    }

    // The tests make one window and one view each.
    void userCloses(platform::Window& /*window*/) override {
        recording::Windows::userCloses(world_.windows.newest("NSWindow"));
    }
    void loadEmptyPage(platform::WebView& view) override {
        view.loadFile(temporaryDirectory() / "empty.html", temporaryDirectory());
    }
    void pagePosts(platform::WebView& /*view*/, std::string_view handler,
                   std::string_view text) override {
        world_.pages.newest().posts(handler, text);
    }
    void pagePostsNumber(platform::WebView& /*view*/, std::string_view handler) override {
        world_.pages.newest().posts(handler, recording::makeNumber(17));
    }

    std::filesystem::path programThatExits(int status) override {
        return program({.exitsAfter = platform::Duration{0.001}, .exitStatus = status});
    }
    std::filesystem::path programThatWrites(std::string_view text) override {
        return program({.output = std::string(text), .exitsAfter = platform::Duration{0.001}});
    }
    std::filesystem::path programThatRunsUntilTerminated() override { return program({}); }
    std::filesystem::path notAProgram() override {
        return program({.launchError = "The file has no executable format."});
    }

private:
    std::filesystem::path program(recording::ProgramFile program) {
        auto& programs = world_.tasks.programs;
        auto path = temporaryDirectory() / std::to_string(programs.size());
        programs[path.string()] = std::move(program);
        return path;
    }

    recording::CheckedWorld world_;
    cocoa::AutoreleasePool pool_;
    macos_port::Services services_;
};

}  // namespace

std::unique_ptr<PortHarness> makePortHarness() {
    return std::make_unique<RecordingHarness>();
}

}  // namespace stagehopper
