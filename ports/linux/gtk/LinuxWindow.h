#pragma once

#include <gtk/gtk.h>

#include <memory>

#include "platform/Menu.h"
#include "platform/Window.h"
#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

class LinuxWebView;
class LinuxWindow;

/// What a window needs from the application. Main thread only.
class LinuxWindowOwner {
public:
    [[nodiscard]] virtual GtkApplication* gtkApplication() const = 0;
    virtual void windowOpened(LinuxWindow& window) = 0;
    virtual void windowClosed(LinuxWindow& window) = 0;
    /// Performs an action that was chosen in the menu bar of `window`.
    virtual void perform(platform::MenuAction action, GtkWindow* window) = 0;

protected:
    LinuxWindowOwner() = default;
    ~LinuxWindowOwner() = default;
    LinuxWindowOwner(const LinuxWindowOwner&) = default;
    LinuxWindowOwner& operator=(const LinuxWindowOwner&) = default;
};

/// A GTK window: the menu bar and, below it, the content, whose size is the window's size as the
/// program sees it. Main thread only. After closing, calls do nothing. `owner` outlives it.
///
/// The window manager places it unless it is centered, and decides whether it has a minimize
/// button.
class LinuxWindow final : public platform::Window {
public:
    LinuxWindow(LinuxWindowOwner& owner, const platform::WindowOptions& options);
    ~LinuxWindow() override;
    LinuxWindow(const LinuxWindow&) = delete;
    LinuxWindow& operator=(const LinuxWindow&) = delete;

    void setTitle(std::string_view title) override;
    void setMinimumSize(platform::Size size) override;
    void setContentView(const std::shared_ptr<platform::WebView>& view) override;
    void center() override;
    void setDelegate(std::weak_ptr<platform::WindowDelegate> delegate) override;
    void makeKeyAndOrderFront() override;

    /// Replaces the menu bar; an empty menu takes it away.
    void setMenu(const platform::MainMenu& menu);
    /// Null when closed.
    [[nodiscard]] GtkWindow* gtkWindow() const {
        return window_ ? GTK_WINDOW(window_.get()) : nullptr;
    }

private:
    static int deleteRequested(GtkWidget* window, GdkEvent* event, void* self) noexcept;

    void open();
    void close();
    void tellDelegate();
    void removeMenu();

    LinuxWindowOwner& owner_;
    platform::Size contentSize_;
    ObjectPointer<GtkWidget> window_;
    GtkWidget* layout_;
    /// Keeps the content's size while there is no content.
    GtkWidget* contentFrame_;
    GtkWidget* menuBar_ = nullptr;
    ObjectPointer<GtkAccelGroup> menuKeys_;
    std::shared_ptr<LinuxWebView> content_;
    std::weak_ptr<platform::WindowDelegate> delegate_;
    bool opened_ = false;
    /// Shows whether the delegate has dropped us. Last member, so that it is destroyed first.
    std::shared_ptr<LinuxWindow*> alive_;
};

}  // namespace stagehopper::linux_port
