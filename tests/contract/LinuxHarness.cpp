// The Linux port under the contract's tests, on the display that they are started on.

#include <webkit2/webkit2.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "ports/linux/Display.h"
#include "ports/linux/GlibDispatch.h"
#include "ports/linux/GlibText.h"
#include "ports/linux/LinuxApplication.h"
#include "ports/linux/LinuxHost.h"
#include "ports/linux/LinuxScreens.h"
#include "ports/linux/LinuxSystemLog.h"
#include "ports/linux/LinuxUserInterface.h"
#include "ports/linux/LinuxWebView.h"
#include "ports/linux/LinuxWindow.h"
#include "ports/linux/SystemClock.h"
#include "ports/linux/desktop/AtSpiAccessibility.h"
#include "ports/linux/desktop/MasterKeyboard.h"
#include "ports/linux/desktop/X11Desktop.h"
#include "ports/linux/desktop/X11Workspace.h"
#include "ports/linux/network/BeastUrlSession.h"
#include "ports/linux/processes/LinuxChildProcesses.h"
#include "ports/posix/PosixFileSystem.h"
#include "tests/contract/PortHarness.h"

namespace stagehopper {

namespace {

using namespace linux_port;

/// A text as a JavaScript string literal.
std::string quoted(std::string_view text) {
    std::string literal = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            literal += {'\\', c};
        } else if (static_cast<unsigned char>(c) < 0x20U) {
            constexpr std::string_view digits = "0123456789abcdef";
            literal += "\\x";
            literal += digits[static_cast<std::size_t>(c) / 16];
            literal += digits[static_cast<std::size_t>(c) % 16];
        } else {
            literal += c;
        }
    }
    return literal + '"';
}

void postScript(platform::WebView& view, std::string_view handler, const std::string& value) {
    view.evaluateJavaScript("webkit.messageHandlers." + std::string(handler) + ".postMessage(" +
                            value + ")");
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

class LinuxHarness final : public PortHarness {
public:
    platform::Platform platform() override {
        return {.accessibility = accessibility_,
                .application = application_,
                .childProcesses = childProcesses_,
                .clock = clock_,
                .dispatch = dispatch_,
                .fileSystem = fileSystem_,
                .host = host_,
                .keyboardEvents = keyboard_,
                .screens = screens_,
                .systemLog = systemLog_,
                .text = text_,
                .urlSession = urlSession_,
                .userInterface = userInterface_,
                .workspace = workspace_,
                .slideApplications = {}};
    }

    bool runUntil(const std::function<bool()>& done, std::chrono::seconds limit) override {
        bool over = false;
        const SourcePointer timeout(
            g_timeout_source_new_seconds(static_cast<unsigned>(limit.count())));
        g_source_set_callback(timeout.get(), &LinuxHarness::limitReached, &over, nullptr);
        g_source_attach(timeout.get(), nullptr);
        while (!done()) {
            if (over) return false;
            g_main_context_iteration(nullptr, TRUE);
        }
        return true;
    }

    void userCloses(platform::Window& window) override {
        gtk_window_close(dynamic_cast<LinuxWindow&>(window).gtkWindow());
    }

    void loadEmptyPage(platform::WebView& view) override {
        const auto page = directory_.path() / "empty page.html";
        plantFile(page, "<!doctype html>");
        bool finished = false;
        auto* widget = dynamic_cast<LinuxWebView&>(view).widget();
        g_signal_connect(widget, "load-changed", G_CALLBACK(&LinuxHarness::loadChanged), &finished);
        view.loadFile(page, directory_.path());
        const bool loaded = runUntil([&finished] { return finished; }, std::chrono::seconds(20));
        g_signal_handlers_disconnect_by_data(widget, &finished);
        if (!loaded) throw std::runtime_error("the empty page does not load");
    }

    void pagePosts(platform::WebView& view, std::string_view handler,
                   std::string_view text) override {
        postScript(view, handler, quoted(text));
    }
    void pagePostsNumber(platform::WebView& view, std::string_view handler) override {
        postScript(view, handler, "7");
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
    static int limitReached(void* over) noexcept {
        *static_cast<bool*>(over) = true;
        return G_SOURCE_REMOVE;
    }
    static void loadChanged(WebKitWebView* /*view*/, WebKitLoadEvent event,
                            bool* finished) noexcept {
        if (event == WEBKIT_LOAD_FINISHED) *finished = true;
    }

    TemporaryDirectory directory_;
    SystemClock clock_;
    posix::PosixFileSystem fileSystem_;
    LinuxSystemLog systemLog_;
    GlibText text_;
    LinuxHost host_{1, &program_invocation_name};
    GlibDispatch dispatch_;
    LinuxChildProcesses childProcesses_;
    BeastUrlSession urlSession_;
    LinuxApplication application_{dispatch_};
    LinuxUserInterface userInterface_{application_, systemLog_};
    X11Desktop desktop_;
    LinuxScreens screens_{desktop_};
    X11Workspace workspace_{desktop_};
    AtSpiAccessibility accessibility_{desktop_};
    MasterKeyboard keyboard_{desktop_};
};

}  // namespace

std::unique_ptr<PortHarness> makePortHarness() {
    static const bool hasDisplay = openDisplay();
    if (!hasDisplay) throw std::runtime_error("these tests need a display");
    return std::make_unique<LinuxHarness>();
}

}  // namespace stagehopper
