#include "ports/linux/gtk/LinuxWindow.h"

#include <string>
#include <utility>

#include "ports/linux/gtk/LinuxWebView.h"
#include "ports/linux/gtk/MenuBar.h"
#include "ports/linux/gtk/Pixels.h"
#include "ports/linux/gtk/WindowRaising.h"

namespace stagehopper::linux_port {

namespace {

/// Takes a share in a new widget.
ObjectPointer<GtkWidget> owned(GtkWidget* widget) {
    return ObjectPointer<GtkWidget>(static_cast<GtkWidget*>(g_object_ref_sink(widget)));
}

}  // namespace

LinuxWindow::LinuxWindow(LinuxWindowOwner& owner, const platform::WindowOptions& options)
    : owner_(owner),
      contentSize_(options.contentRect.size),
      window_(owned(gtk_application_window_new(owner.gtkApplication()))),
      layout_(gtk_box_new(GTK_ORIENTATION_VERTICAL, 0)),
      contentFrame_(gtk_event_box_new()),
      alive_(std::make_shared<LinuxWindow*>(this)) {
    const auto has = [&options](platform::WindowStyle bit) {
        return (options.styleMask & bit) != 0 ? TRUE : FALSE;
    };
    gtk_window_set_decorated(gtkWindow(), has(platform::windowTitled));
    gtk_window_set_deletable(gtkWindow(), has(platform::windowClosable));
    gtk_window_set_resizable(gtkWindow(), has(platform::windowResizable));
    if (!has(platform::windowResizable)) {
        gtk_widget_set_size_request(contentFrame_, pixels(contentSize_.width),
                                    pixels(contentSize_.height));
    }

    gtk_container_add(GTK_CONTAINER(window_.get()), layout_);
    gtk_box_pack_end(GTK_BOX(layout_), contentFrame_, TRUE, TRUE, 0);
    g_signal_connect(window_.get(), "delete-event", G_CALLBACK(&LinuxWindow::deleteRequested),
                     this);
}

LinuxWindow::~LinuxWindow() {
    close();
}

void LinuxWindow::setTitle(std::string_view title) {
    if (window_) gtk_window_set_title(gtkWindow(), std::string(title).c_str());
}

void LinuxWindow::setMinimumSize(platform::Size size) {
    if (window_)
        gtk_widget_set_size_request(window_.get(), pixels(size.width), pixels(size.height));
}

void LinuxWindow::setContentView(const std::shared_ptr<platform::WebView>& view) {
    if (!window_) return;
    if (content_) gtk_container_remove(GTK_CONTAINER(contentFrame_), content_->widget());
    content_ = std::dynamic_pointer_cast<LinuxWebView>(view);
    if (!content_) return;
    gtk_container_add(GTK_CONTAINER(contentFrame_), content_->widget());
    gtk_widget_show(content_->widget());
    gtk_widget_grab_focus(content_->widget());
}

void LinuxWindow::center() {
    if (window_) gtk_window_set_position(gtkWindow(), GTK_WIN_POS_CENTER);
}

void LinuxWindow::setDelegate(std::weak_ptr<platform::WindowDelegate> delegate) {
    delegate_ = std::move(delegate);
}

void LinuxWindow::makeKeyAndOrderFront() {
    if (!window_) return;
    if (!opened_) open();
    raiseWindow(gtkWindow());
}

void LinuxWindow::open() {
    opened_ = true;
    gtk_widget_show_all(layout_);
    owner_.windowOpened(*this);
    int menuHeight = 0;
    if (menuBar_ != nullptr) gtk_widget_get_preferred_height(menuBar_, nullptr, &menuHeight);
    gtk_window_set_default_size(gtkWindow(), pixels(contentSize_.width),
                                pixels(contentSize_.height) + menuHeight);
}

void LinuxWindow::setMenu(const platform::MainMenu& menu) {
    removeMenu();
    if (!window_ || menu.empty()) return;
    auto bar = makeMenuBar(menu, [&owner = owner_, window = gtkWindow()](auto action) {
        owner.perform(action, window);
    });
    menuBar_ = bar.widget;
    menuKeys_ = std::move(bar.keys);
    gtk_box_pack_start(GTK_BOX(layout_), menuBar_, FALSE, FALSE, 0);
    gtk_window_add_accel_group(gtkWindow(), menuKeys_.get());
}

void LinuxWindow::removeMenu() {
    if (menuBar_ == nullptr) return;
    gtk_window_remove_accel_group(gtkWindow(), menuKeys_.get());
    gtk_widget_destroy(std::exchange(menuBar_, nullptr));
    menuKeys_.reset();
}

// noexcept: an exception must not travel through GTK; it ends the program here.
int LinuxWindow::deleteRequested(GtkWidget* /*window*/, GdkEvent* /*event*/, void* self) noexcept {
    static_cast<LinuxWindow*>(self)->close();
    return GDK_EVENT_STOP;
}

void LinuxWindow::tellDelegate() {
    // Released first, so that the delegate is notified once, whatever it does.
    if (const auto delegate = std::exchange(delegate_, {}).lock()) {
        delegate->windowWillClose(this);
    }
}

void LinuxWindow::close() {
    if (!window_) return;
    const std::weak_ptr<LinuxWindow*> alive = alive_;
    tellDelegate();
    // The delegate may have dropped the window, which has closed it.
    if (alive.expired() || !window_) return;
    // The page outlives its window when it has another owner.
    setContentView(nullptr);
    removeMenu();
    const auto window = std::move(window_);
    g_signal_handlers_disconnect_by_data(window.get(), this);
    gtk_widget_destroy(window.get());
    owner_.windowClosed(*this);
}

}  // namespace stagehopper::linux_port
