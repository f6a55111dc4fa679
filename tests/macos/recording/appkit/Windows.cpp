#include "tests/macos/recording/appkit/Windows.h"

#include <algorithm>
#include <stdexcept>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

template <class T>
T propertyOf(cocoa::id window, std::string_view name) {
    return property(window, name).as<T>();
}

bool isVisible(cocoa::id window) {
    return propertyOf<bool>(window, "visible");
}

}  // namespace

std::vector<cocoa::id> Windows::all() const {
    std::vector<cocoa::id> existing;
    for (const auto& window : windows_) {
        if (window.get() != nullptr) existing.push_back(window.get());
    }
    return existing;
}

cocoa::id Windows::newest(std::string_view className) const {
    cocoa::id newest = nullptr;
    for (const auto window : all()) {
        if (classNameOf(window) == className) newest = window;
    }
    if (newest == nullptr) throw std::logic_error("there is no " + std::string(className));
    return newest;
}

WindowLook Windows::look(cocoa::id window) {
    const auto background = property(window, "backgroundColor").object();
    return {.className = classNameOf(window),
            .title = textOf(property(window, "title").object()),
            .frame = propertyOf<cocoa::CGRect>(window, "frame"),
            .minSize = propertyOf<cocoa::CGSize>(window, "minSize"),
            .styleMask = propertyOf<unsigned long>(window, "styleMask"),
            .backing = propertyOf<unsigned long>(window, "backing"),
            .deferred = propertyOf<bool>(window, "deferred"),
            .visible = isVisible(window),
            .key = propertyOf<bool>(window, "key"),
            .level = propertyOf<long>(window, "level"),
            .collectionBehavior = propertyOf<unsigned long>(window, "collectionBehavior"),
            .opaque = propertyOf<bool>(window, "opaque"),
            .clearBackground = background != nullptr && describe(background) == "clearColor",
            .hasShadow = propertyOf<bool>(window, "hasShadow"),
            .hidesOnDeactivate = propertyOf<bool>(window, "hidesOnDeactivate"),
            .ignoresMouseEvents = propertyOf<bool>(window, "ignoresMouseEvents"),
            .releasedWhenClosed = propertyOf<bool>(window, "releasedWhenClosed"),
            .restorable = propertyOf<bool>(window, "restorable"),
            .animationBehavior = propertyOf<long>(window, "animationBehavior"),
            .contentView = property(window, "contentView").object()};
}

std::size_t Windows::visible() const {
    return static_cast<std::size_t>(std::ranges::count_if(all(), isVisible));
}

void Windows::userCloses(cocoa::id window) {
    queues::async("main", [window = Weak(window)] {
        if (window.get() != nullptr) answer(window.get(), "performClose:", {cocoa::id{}});
    });
}

bool Windows::ordinaryWindowVisible() const {
    return std::ranges::any_of(
        all(), [](cocoa::id window) { return isVisible(window) && !isKindOf(window, "NSPanel"); });
}

}  // namespace stagehopper::recording
