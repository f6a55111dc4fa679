#include "ports/linux/gtk/LinuxApplication.h"

#include <glib-unix.h>

#include <array>
#include <csignal>
#include <utility>

#include "ports/linux/glib/GlibDispatch.h"
#include "ports/linux/gtk/ApplicationIcon.h"
#include "ports/linux/gtk/EditingCommand.h"
#include "ports/linux/system/ProgramNames.h"

namespace stagehopper::linux_port {

namespace {

constexpr int windowIconPixels = 128;
constexpr std::array quitSignals{SIGTERM, SIGINT, SIGHUP};

}  // namespace

LinuxApplication::LinuxApplication(GlibDispatch& dispatch)
    : dispatch_(dispatch),
      application_(gtk_application_new(applicationId, G_APPLICATION_DEFAULT_FLAGS)),
      alive_(std::make_shared<LinuxApplication*>(this)) {
    g_signal_connect(application_.get(), "activate", G_CALLBACK(&LinuxApplication::activated),
                     this);
    // Without a session bus this also succeeds, as the only instance.
    g_application_register(G_APPLICATION(application_.get()), nullptr, nullptr);
    gtk_window_set_default_icon(applicationIcon(windowIconPixels).get());
    for (const int number : quitSignals) {
        const auto& source = quitSources_.emplace_back(g_unix_signal_source_new(number));
        g_source_set_callback(source.get(), &LinuxApplication::interrupted, this, nullptr);
        g_source_attach(source.get(), nullptr);
    }
}

LinuxApplication::~LinuxApplication() {
    g_signal_handlers_disconnect_by_data(application_.get(), this);
    // Undoes the registration: otherwise the toolkit keeps an application that never ran, and the
    // bus keeps its name.
    if (!ran_ && isRegistered() && !isRunningElsewhere()) {
        g_signal_emit_by_name(application_.get(), "shutdown");
    }
}

void LinuxApplication::setDelegate(std::weak_ptr<platform::ApplicationDelegate> delegate) {
    delegate_ = std::move(delegate);
}

void LinuxApplication::setActivationPolicy(platform::ActivationPolicy /*policy*/) {
    // No such policies exist here.
}

void LinuxApplication::setMainMenu(const platform::MainMenu& menu) {
    mainMenu_ = menu;
    for (auto* window : openWindows_) window->setMenu(mainMenu_);
}

void LinuxApplication::activate() {
    if (!openWindows_.empty()) openWindows_.back()->makeKeyAndOrderFront();
}

bool LinuxApplication::isRegistered() const {
    return g_application_get_is_registered(G_APPLICATION(application_.get())) == TRUE;
}

bool LinuxApplication::isRunningElsewhere() const {
    return g_application_get_is_remote(G_APPLICATION(application_.get())) == TRUE;
}

int LinuxApplication::run() {
    if (over_) return 0;
    ran_ = true;
    return g_application_run(G_APPLICATION(application_.get()), 0, nullptr);
}

// noexcept here and below: an exception must not travel through GLib; it ends the program.
void LinuxApplication::activated(GApplication* /*application*/, void* self) noexcept {
    auto& application = *static_cast<LinuxApplication*>(self);
    if (application.launched_) {
        // The program was started a second time: show the running one.
        application.activate();
    } else {
        application.launch();
    }
}

void LinuxApplication::launch() {
    launched_ = true;
    // We end the loop ourselves: GTK would end it with the last window.
    g_application_hold(G_APPLICATION(application_.get()));
    if (const auto delegate = delegate_.lock()) delegate->applicationDidFinishLaunching();
}

int LinuxApplication::interrupted(void* self) noexcept {
    static_cast<LinuxApplication*>(self)->terminate();
    return G_SOURCE_CONTINUE;
}

void LinuxApplication::terminate() {
    if (over_) return;
    over_ = true;
    // Closed windows leave the screen at once: the delegate may block for seconds.
    gdk_display_flush(gdk_display_get_default());
    if (const auto delegate = delegate_.lock()) delegate->applicationWillTerminate();
    dispatch_.close();
    g_application_quit(G_APPLICATION(application_.get()));
}

void LinuxApplication::windowOpened(LinuxWindow& window) {
    openWindows_.push_back(&window);
    window.setMenu(mainMenu_);
}

void LinuxApplication::windowClosed(LinuxWindow& window) {
    if (std::erase(openWindows_, &window) == 0 || !openWindows_.empty()) return;
    // Later, since a window may be closed from inside any operation of the delegate; but before the
    // queued tasks: a user who closes the panel does not want the waiting steps.
    using Alive = std::weak_ptr<LinuxApplication*>;
    g_idle_add_full(
        G_PRIORITY_HIGH, [](void* alive) { return askWhetherToQuit(*static_cast<Alive*>(alive)); },
        new Alive(alive_), [](void* alive) { delete static_cast<Alive*>(alive); });
}

int LinuxApplication::askWhetherToQuit(const std::weak_ptr<LinuxApplication*>& alive) noexcept {
    if (const auto self = alive.lock()) (*self)->lastWindowClosed();
    return G_SOURCE_REMOVE;
}

void LinuxApplication::lastWindowClosed() {
    const auto delegate = delegate_.lock();
    if (!openWindows_.empty() || !delegate) return;
    if (delegate->applicationShouldTerminateAfterLastWindowClosed()) terminate();
}

void LinuxApplication::perform(platform::MenuAction action, GtkWindow* window) {
    switch (action) {
        case platform::MenuAction::orderFrontStandardAboutPanel:
            aboutPanel_.show(window);
            break;
        case platform::MenuAction::terminate:
            terminate();
            break;
        case platform::MenuAction::cut:
        case platform::MenuAction::copy:
        case platform::MenuAction::paste:
        case platform::MenuAction::selectAll:
            performEditing(action, window);
            break;
    }
}

}  // namespace stagehopper::linux_port
