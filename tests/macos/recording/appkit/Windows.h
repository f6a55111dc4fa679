#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

/// The visible state of a window, for tests.
struct WindowLook {
    std::string className;
    std::string title;
    cocoa::CGRect frame;
    cocoa::CGSize minSize;
    unsigned long styleMask = 0;
    unsigned long backing = 0;
    bool deferred = false;
    bool visible = false;
    bool key = false;
    long level = 0;
    unsigned long collectionBehavior = 0;
    bool opaque = true;
    bool clearBackground = false;
    bool hasShadow = true;
    bool hidesOnDeactivate = false;
    bool ignoresMouseEvents = false;
    bool releasedWhenClosed = true;
    bool restorable = true;
    /// 0: AppKit chooses the animations.
    long animationBehavior = 0;
    cocoa::id contentView = nullptr;
};

/// The program's windows and panels. Main thread only.
class Windows {
public:
    /// The windows that still exist, in the order of creation.
    [[nodiscard]] std::vector<cocoa::id> all() const;
    /// The newest of exactly that class; throws if there is none.
    [[nodiscard]] cocoa::id newest(std::string_view className) const;
    [[nodiscard]] static WindowLook look(cocoa::id window);
    [[nodiscard]] WindowLook look(std::string_view className) const {
        return look(newest(className));
    }
    [[nodiscard]] std::size_t visible() const;

    /// The user clicks the close button; handled when the main thread is free.
    static void userCloses(cocoa::id window);

    /// For NSWindow.
    void add(cocoa::id window) { windows_.emplace_back(window); }
    /// For NSApplication: whether an ordinary window is on the screen.
    [[nodiscard]] bool ordinaryWindowVisible() const;

private:
    std::vector<Weak> windows_;
};

}  // namespace stagehopper::recording
