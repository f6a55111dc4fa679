#pragma once

#include <memory>

#include "platform/Geometry.h"

namespace stagehopper::platform {

class WebView;

/// Bits of a window's collection behavior; the values are AppKit's `NSWindowCollectionBehavior`.
enum PanelCollectionBehavior : unsigned {
    /// On every desktop of the user.
    canJoinAllSpaces = 1U << 0U,
    /// Beside a window of another program that fills the screen.
    fullScreenAuxiliary = 1U << 8U,
};

struct PanelOptions {
    Rect contentRect;
    /// `WindowStyle` bits.
    unsigned styleMask = 0;
    bool clearBackground = false;
    bool opaque = true;
    bool hasShadow = true;
    /// Hidden while another program is active.
    bool hidesOnDeactivate = true;
    /// Window level, counted from the system's shielding level, which covers full-screen programs.
    int levelAboveShielding = 0;
    /// `PanelCollectionBehavior` bits.
    unsigned collectionBehavior = 0;
    /// All clicks go to the windows below.
    bool ignoresMouseEvents = false;
};

/// An auxiliary window, hidden until ordered front. Main thread only. Dropping it closes it.
class Panel {
public:
    virtual ~Panel() = default;
    /// The panel holds the view strongly.
    virtual void setContentView(const std::shared_ptr<WebView>& view) = 0;
    /// Shows it above the other windows of its level, whichever program is active, without moving
    /// the focus.
    virtual void orderFrontRegardless() = 0;
    /// Hides it; its page continues to run.
    virtual void orderOut() = 0;
    /// Moves and resizes it, and redraws it at once.
    virtual void setFrame(const Rect& frame) = 0;
};

}  // namespace stagehopper::platform
