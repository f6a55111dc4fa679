// The macOS port on GNUstep under the contract's tests, on the display that they are started on.

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "ports/macos/Services.h"
#include "ports/macos/cocoa/AutoreleasePool.h"
#include "ports/macos/cocoa/NSApplication.h"
#include "ports/macos/cocoa/NSArray.h"
#include "ports/macos/cocoa/NSDate.h"
#include "ports/macos/cocoa/NSRunLoop.h"
#include "ports/macos/cocoa/NSWindow.h"
#include "tests/contract/PortHarness.h"
#include "tests/macos/gnustep/Preparation.h"

extern "C" {
extern const stagehopper::cocoa::id NSDefaultRunLoopMode;
}

namespace stagehopper {

namespace {

/// Lets the main thread's run loop and the window server's events have their turn, up to a moment.
void turnRunLoop(cocoa::NSDate until) {
    using namespace cocoa;
    using NextEvent = Message<NSApplication, MessageKind::instance,
                              "nextEventMatchingMask:untilDate:inMode:dequeue:",
                              NSObject(NSUInteger, NSDate, NSString, BOOL)>;
    using SendEvent = Message<NSApplication, MessageKind::instance, "sendEvent:", void(NSObject)>;
    constexpr auto anyEvent = ~NSUInteger{0};
    const auto application = NSApplication::sharedApplication().pointer();
    const auto event =
        NextEvent::send(application, anyEvent, until, NSString(NSDefaultRunLoopMode), toBOOL(true));
    if (event) SendEvent::send(application, event);
}

/// The window that the tests have opened last.
cocoa::NSWindow contractWindow() {
    using namespace cocoa;
    using Windows = Message<NSApplication, MessageKind::instance, "windows", NSArray()>;
    using Title = Message<NSWindow, MessageKind::instance, "title", NSString()>;
    NSWindow found;
    for (const auto window :
         elements<NSWindow>(Windows::send(NSApplication::sharedApplication().pointer()))) {
        if (text(Title::send(window.pointer())) == "Contract") found = window;
    }
    return found;
}

void closeButton(cocoa::NSWindow window) {
    using namespace cocoa;
    using PerformClose = Message<NSWindow, MessageKind::instance, "performClose:", void(NSObject)>;
    PerformClose::send(window.pointer(), nullptr);
}

/// A new directory that goes with its owner.
class TemporaryDirectory {
public:
    TemporaryDirectory() {
        auto name = (std::filesystem::temp_directory_path() / "contract-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory");
        path_ = name;
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

class GnustepHarness final : public PortHarness {
public:
    platform::Platform platform() override { return services_.platform(); }

    bool runUntil(const std::function<bool()>& done, std::chrono::seconds limit) override {
        constexpr double moment = 0.01;
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!done()) {
            if (std::chrono::steady_clock::now() >= end) return false;
            const cocoa::AutoreleasePool pool;
            const auto now = cocoa::NSDate::date().timeIntervalSince1970();
            turnRunLoop(cocoa::NSDate::dateWithTimeIntervalSince1970(now + moment));
        }
        return true;
    }

    void userCloses(platform::Window& /*window*/) override { closeButton(contractWindow()); }
    void loadEmptyPage(platform::WebView& view) override {
        const auto page = directory_.path() / "empty page.html";
        plantFile(page, "");
        view.loadFile(page, directory_.path());
    }
    void pagePosts(platform::WebView& view, std::string_view handler,
                   std::string_view text) override {
        view.evaluateJavaScript("post " + std::string(handler) + ' ' + std::string(text));
    }
    void pagePostsNumber(platform::WebView& view, std::string_view handler) override {
        view.evaluateJavaScript("postNumber " + std::string(handler));
    }

    std::filesystem::path temporaryDirectory() override { return directory_.path(); }
    void plantFile(const std::filesystem::path& path, std::string_view contents) override {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << contents;
    }
    void plantLink(const std::filesystem::path& path,
                   const std::filesystem::path& target) override {
        std::filesystem::create_symlink(target, path);
    }
    std::string contentsOf(const std::filesystem::path& path) override {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void plantExecutable(const std::filesystem::path& path) override { plantProgram(path, "\n"); }

    std::filesystem::path programThatExits(int status) override {
        return makeScript("exit " + std::to_string(status));
    }
    std::filesystem::path programThatWrites(std::string_view text) override {
        const auto output = directory_.path() / "output";
        plantFile(output, text);
        return makeScript("exec cat '" + output.string() + "'");
    }
    std::filesystem::path programThatRunsUntilTerminated() override {
        return makeScript("exec sleep 60");
    }
    std::filesystem::path notAProgram() override {
        auto path = directory_.path() / "no program";
        plantProgram(path, "\x7fno program");
        return path;
    }

private:
    std::filesystem::path makeScript(const std::string& command) const {
        auto path = directory_.path() / "program";
        plantProgram(path, "#!/bin/sh\n" + command + '\n');
        return path;
    }
    static void plantProgram(const std::filesystem::path& path, std::string_view contents) {
        std::ofstream(path, std::ios::binary) << contents;
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }

    cocoa::AutoreleasePool pool_;
    TemporaryDirectory directory_;
    macos_port::Services services_;
};

}  // namespace

std::unique_ptr<PortHarness> makePortHarness() {
    static const bool isPrepared = [] {
        cocoa::gnustep::prepare();
        return true;
    }();
    static_cast<void>(isPrepared);
    return std::make_unique<GnustepHarness>();
}

}  // namespace stagehopper
