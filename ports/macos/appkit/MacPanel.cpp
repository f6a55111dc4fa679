#include "ports/macos/appkit/MacPanel.h"

#include "ports/macos/appkit/Geometry.h"
#include "ports/macos/appkit/MacWebView.h"
#include "ports/macos/appkit/WindowBits.h"
#include "ports/macos/cocoa/graphics/CGWindowLevel.h"

namespace stagehopper::macos_port {

MacPanel::MacPanel(const platform::PanelOptions& options)
    : panel_(cocoa::NSPanel::make(toCGRect(options.contentRect), toStyleMask(options.styleMask),
                                  false)) {
    // Otherwise closing would release the reference that we own.
    panel_->setReleasedWhenClosed(false);
    panel_->setRestorable(false);
    // The panel appears and disappears at once: no animation is running when it is released.
    panel_->setAnimationBehavior(cocoa::NSWindowAnimationBehaviorNone);
    if (options.clearBackground) panel_->setBackgroundColor(cocoa::NSColor::clearColor());
    panel_->setOpaque(options.opaque);
    panel_->setHasShadow(options.hasShadow);
    panel_->setHidesOnDeactivate(options.hidesOnDeactivate);
    panel_->setLevel(cocoa::CGShieldingWindowLevel() + options.levelAboveShielding);
    panel_->setCollectionBehavior(toCollectionBehavior(options.collectionBehavior));
    panel_->setIgnoresMouseEvents(options.ignoresMouseEvents);
}

MacPanel::~MacPanel() {
    // Not "close": AppKit might count it as the program's last window and end the program.
    if (visible_) panel_->orderOut(nullptr);
    // The page outlives its panel if another owner holds it.
    panel_->setContentView(nullptr);
}

void MacPanel::setContentView(const std::shared_ptr<platform::WebView>& view) {
    content_ = std::dynamic_pointer_cast<MacWebView>(view);
    panel_->setContentView(content_ ? content_->view() : nullptr);
}

void MacPanel::orderFrontRegardless() {
    visible_ = true;
    panel_->orderFrontRegardless();
}

void MacPanel::orderOut() {
    visible_ = false;
    panel_->orderOut(nullptr);
}

void MacPanel::setFrame(const platform::Rect& frame) {
    panel_->setFrame(toCGRect(frame), true);
}

}  // namespace stagehopper::macos_port
