// The Linux port under the contract tests, on the current display.

#include <webkit2/webkit2.h>

#include <cerrno>
#include <stdexcept>

#include "ports/json/NlohmannJson.h"
#include "ports/linux/atspi/AtSpiAccessibility.h"
#include "ports/linux/glib/GlibDispatch.h"
#include "ports/linux/glib/GlibText.h"
#include "ports/linux/gtk/Display.h"
#include "ports/linux/gtk/LinuxApplication.h"
#include "ports/linux/gtk/LinuxScreens.h"
#include "ports/linux/gtk/LinuxUserInterface.h"
#include "ports/linux/gtk/LinuxWebView.h"
#include "ports/linux/gtk/LinuxWindow.h"
#include "ports/linux/network/BeastUrlSession.h"
#include "ports/linux/processes/LinuxChildProcesses.h"
#include "ports/linux/system/LinuxHost.h"
#include "ports/linux/system/LinuxSystemLog.h"
#include "ports/linux/system/SystemClock.h"
#include "ports/linux/x11/MasterKeyboard.h"
#include "ports/linux/x11/X11Desktop.h"
#include "ports/linux/x11/X11Workspace.h"
#include "ports/posix/PosixFileSystem.h"
#include "tests/contract/RealFilesHarness.h"

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

class LinuxHarness final : public RealFilesHarness {
public:
    platform::Platform platform() override {
        return {.accessibility = accessibility_,
                .application = application_,
                .childProcesses = childProcesses_,
                .clock = clock_,
                .dispatch = dispatch_,
                .fileSystem = fileSystem_,
                .host = host_,
                .json = json_,
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
        const auto page = temporaryDirectory() / "empty page.html";
        plantFile(page, "<!doctype html>");
        bool finished = false;
        auto* widget = dynamic_cast<LinuxWebView&>(view).widget();
        g_signal_connect(widget, "load-changed", G_CALLBACK(&LinuxHarness::loadChanged), &finished);
        view.loadFile(page, temporaryDirectory());
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

private:
    static int limitReached(void* over) noexcept {
        *static_cast<bool*>(over) = true;
        return G_SOURCE_REMOVE;
    }
    static void loadChanged(WebKitWebView* /*view*/, WebKitLoadEvent event,
                            bool* finished) noexcept {
        if (event == WEBKIT_LOAD_FINISHED) *finished = true;
    }

    SystemClock clock_;
    posix::PosixFileSystem fileSystem_;
    LinuxSystemLog systemLog_;
    GlibText text_;
    LinuxHost host_{1, &program_invocation_name};
    json_port::NlohmannJson json_;
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
