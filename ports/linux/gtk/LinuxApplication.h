#pragma once

#include <gtk/gtk.h>

#include <memory>
#include <vector>

#include "platform/Application.h"
#include "ports/linux/glib/GlibPointers.h"
#include "ports/linux/gtk/AboutPanel.h"
#include "ports/linux/gtk/LinuxWindow.h"

namespace stagehopper::linux_port {

class GlibDispatch;

/// The program on the desktop and on the session bus, which allows one instance. Main thread only.
/// `dispatch` outlives it; its windows do not.
class LinuxApplication final : public platform::Application, public LinuxWindowOwner {
public:
    /// The display is open.
    explicit LinuxApplication(GlibDispatch& dispatch);
    ~LinuxApplication() override;
    LinuxApplication(const LinuxApplication&) = delete;
    LinuxApplication& operator=(const LinuxApplication&) = delete;

    void setDelegate(std::weak_ptr<platform::ApplicationDelegate> delegate) override;
    void setActivationPolicy(platform::ActivationPolicy policy) override;
    void setMainMenu(const platform::MainMenu& menu) override;
    void activate() override;
    void terminate() override;
    /// When another instance runs in this session: raises that one and returns at once.
    int run() override;

    [[nodiscard]] bool isRunningElsewhere() const;

private:
    [[nodiscard]] GtkApplication* gtkApplication() const override { return application_.get(); }
    void windowOpened(LinuxWindow& window) override;
    void windowClosed(LinuxWindow& window) override;
    void perform(platform::MenuAction action, GtkWindow* window) override;

    static void activated(GApplication* application, void* self) noexcept;
    static int interrupted(void* self) noexcept;

    [[nodiscard]] bool isRegistered() const;
    void launch();
    static int askWhetherToQuit(const std::weak_ptr<LinuxApplication*>& alive) noexcept;
    void lastWindowClosed();

    GlibDispatch& dispatch_;
    ObjectPointer<GtkApplication> application_;
    std::weak_ptr<platform::ApplicationDelegate> delegate_;
    platform::MainMenu mainMenu_;
    std::vector<LinuxWindow*> openWindows_;
    AboutPanel aboutPanel_;
    /// Attached from the start, so that a signal during launch also ends the program in order.
    std::vector<SourcePointer> quitSources_;
    bool ran_ = false;
    bool launched_ = false;
    bool over_ = false;
    /// Posted work holds this weakly and does nothing after its end. Last member, so that it is
    /// destroyed first.
    std::shared_ptr<LinuxApplication*> alive_;
};

}  // namespace stagehopper::linux_port
