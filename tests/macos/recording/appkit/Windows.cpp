#include "tests/macos/recording/appkit/Windows.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "ports/macos/cocoa/appkit/NSApplication.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Heap.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

bool isVisible(cocoa::id window) {
    return property(window, "visible").as<bool>();
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

std::size_t Windows::visible() const {
    return static_cast<std::size_t>(std::ranges::count_if(all(), isVisible));
}

void Windows::userCloses(cocoa::id window) {
    queues::async("main", [window = Weak(window)] {
        if (window.get() != nullptr) answer(window.get(), "close");
    });
}

bool Windows::ordinaryWindowVisible() const {
    return std::ranges::any_of(
        all(), [](cocoa::id window) { return isVisible(window) && !isKindOf(window, "NSPanel"); });
}

}  // namespace stagehopper::recording
