#include "ports/macos/appkit/MacWindow.h"

#include <utility>

#include "ports/macos/appkit/Geometry.h"
#include "ports/macos/appkit/MacWebView.h"
#include "ports/macos/appkit/WindowBits.h"

namespace stagehopper::macos_port {

MacWindow::MacWindow(AppControllerObject& appController, const platform::WindowOptions& options)
    : appController_(appController),
      window_(cocoa::NSWindow::make(toCGRect(options.contentRect), toStyleMask(options.styleMask),
                                    false)) {
    // Otherwise closing would release the reference that we own.
    window_->setReleasedWhenClosed(false);
    window_->setRestorable(false);
    appController_.addWindow(window_.get(), *this);
}

MacWindow::~MacWindow() {
    // Notifies the delegate through AppKit's delegate.
    if (open_) window_->close();
    window_->setDelegate(nullptr);
    appController_.removeWindow(*this);
    // The page outlives its window if another owner holds it.
    window_->setContentView(nullptr);
}

void MacWindow::setTitle(std::string_view title) {
    if (open_) window_->setTitle(cocoa::string(title));
}

void MacWindow::setMinimumSize(platform::Size size) {
    if (open_) window_->setMinSize(toCGSize(size));
}

void MacWindow::setContentView(const std::shared_ptr<platform::WebView>& view) {
    if (!open_) return;
    content_ = std::dynamic_pointer_cast<MacWebView>(view);
    window_->setContentView(content_ ? content_->view() : nullptr);
}

void MacWindow::center() {
    if (open_) window_->center();
}

void MacWindow::setDelegate(std::weak_ptr<platform::WindowDelegate> delegate) {
    if (!open_) return;
    appController_.setWindowDelegate(*this, std::move(delegate));
    window_->setDelegate(appController_.object());
}

void MacWindow::makeKeyAndOrderFront() {
    if (open_) window_->makeKeyAndOrderFront(nullptr);
}

void MacWindow::didBeginClosing() {
    open_ = false;
}

}  // namespace stagehopper::macos_port
