#include "ports/linux/atspi/ProgramElement.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

#include "ports/linux/atspi/AccessibilityBus.h"
#include "ports/linux/atspi/MenuBarSearch.h"
#include "ports/linux/atspi/MenuElement.h"
#include "ports/linux/atspi/WindowElement.h"
#include "ports/linux/x11/X11Desktop.h"

namespace stagehopper::linux_port {

using platform::AccessibilityAttribute;
using platform::AttributeList;
using platform::AttributeValue;
using platform::UIElementRef;

namespace {

std::optional<AttributeValue> valueOf(UIElementRef element) {
    if (!element) return std::nullopt;
    return AttributeValue{std::move(element)};
}

UIElementRef windowElement(std::string title) {
    return std::make_shared<const WindowElement>(std::move(title));
}

}  // namespace

std::optional<AttributeValue> ProgramElement::attributeValue(
    AccessibilityAttribute attribute) const {
    switch (attribute) {
        case AccessibilityAttribute::windows:
        case AccessibilityAttribute::children: {
            auto found = windows();
            if (found.empty()) return std::nullopt;
            return AttributeValue{std::move(found)};
        }
        case AccessibilityAttribute::focusedWindow:
            return valueOf(focusedWindow());
        case AccessibilityAttribute::menuBar:
            return valueOf(menuBar());
        case AccessibilityAttribute::enabled:
        case AccessibilityAttribute::menu:
        case AccessibilityAttribute::role:
        case AccessibilityAttribute::title:
            break;
    }
    return std::nullopt;
}

platform::AccessibilityError ProgramElement::press() const {
    return platform::AccessibilityError::actionUnsupported;
}

std::vector<ProgramElement::BusWindow> ProgramElement::busWindows() const {
    std::vector<BusWindow> windows;
    // Our own windows would have to be described by this very thread, which waits for the answer.
    if (process_ == getpid()) return windows;
    auto known = bus_->knownPrograms().find(process_);
    auto answers = known ? ask(*known) : std::nullopt;
    if (!answers) {
        known = meet();
        if (known) answers = ask(*known);
        if (!answers) return windows;
        bus_->knownPrograms().remember(process_, *known);
    }
    // A program keeps closed dialogs in its tree; a minimised window still counts.
    constexpr auto there = at_spi_state::showing | at_spi_state::visible | at_spi_state::iconified;
    for (std::size_t i = 0; i < known->windows.size(); ++i) {
        const auto states = at_spi_reply::states((*answers)[3 * i + 3]).value_or(0);
        if (!isWindow(at_spi_reply::role((*answers)[3 * i + 1])) || (states & there) == 0) continue;
        windows.push_back({known->windows[i],
                           at_spi_reply::name((*answers)[3 * i + 2]).value_or(std::string{}),
                           (states & at_spi_state::active) != 0});
    }
    return windows;
}

std::optional<KnownProgram> ProgramElement::meet() const {
    auto root = bus_->applicationOf(process_);
    if (!root) return std::nullopt;
    auto windows = bus_->childrenOf({*root}).front();
    if (!windows) return std::nullopt;
    return KnownProgram{std::move(*root), std::move(*windows)};
}

std::optional<std::vector<CallResult>> ProgramElement::ask(const KnownProgram& known) const {
    std::vector<BusCall> calls;
    calls.push_back(at_spi_call::children(known.root));
    for (const auto& object : known.windows) {
        calls.push_back(at_spi_call::role(object));
        calls.push_back(at_spi_call::name(object));
        calls.push_back(at_spi_call::states(object));
    }
    auto results = bus_->call(std::move(calls));
    if (at_spi_reply::children(results.front()) != known.windows) return std::nullopt;
    return results;
}

AttributeList ProgramElement::windows() const {
    AttributeList windows;
    for (auto& window : busWindows()) {
        windows.emplace_back().value = windowElement(std::move(window.title));
    }
    if (!windows.empty()) return windows;
    for (auto& window : desktop_.windows()) {
        if (window.process != process_ || window.furniture) continue;
        windows.emplace_back().value = windowElement(std::move(window.title));
    }
    return windows;
}

UIElementRef ProgramElement::focusedWindow() const {
    const auto windows = busWindows();
    if (const auto* active = activeOne(windows)) return windowElement(active->title);
    const auto focused = desktop_.focusedWindow();
    if (!focused || focused->process != process_) return nullptr;
    return windowElement(focused->title);
}

UIElementRef ProgramElement::menuBar() const {
    // The active window only: during a slide show the editor's menu is still there, and a press in
    // it is accepted and does nothing.
    const auto windows = busWindows();
    const auto* active = activeOne(windows);
    if (active == nullptr) return nullptr;
    auto menuBar = findMenuBar(*bus_, active->object);
    if (!menuBar) return nullptr;
    return std::make_shared<const MenuElement>(
        std::make_shared<MenuTree>(bus_, std::move(*menuBar)), 0);
}

const ProgramElement::BusWindow* ProgramElement::activeOne(
    const std::vector<BusWindow>& windows) const {
    const auto isActive = [](const BusWindow& window) { return window.active; };
    const auto first = std::ranges::find_if(windows, isActive);
    if (first == windows.end()) return nullptr;
    if (std::ranges::count_if(windows, isActive) == 1) return &*first;
    // A window that our own second keyboard has visited may call itself active too.
    const auto focused = desktop_.focusedWindow();
    const auto real = std::ranges::find_if(windows, [&](const BusWindow& window) {
        return window.active && focused && focused->process == process_ &&
               focused->title == window.title;
    });
    return real == windows.end() ? &*first : &*real;
}

}  // namespace stagehopper::linux_port
