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
    // Our own windows would be described by this thread, which would wait for itself.
    if (process_ == getpid()) return windows;
    auto cached = bus_->programCache().find(process_);
    auto replies = cached ? readWindows(*cached) : std::nullopt;
    if (!replies) {
        cached = findOnBus();
        if (cached) replies = readWindows(*cached);
        if (!replies) return windows;
        bus_->programCache().store(process_, *cached);
    }
    // A program keeps closed dialogs in its tree; a minimized window still counts.
    constexpr auto there = at_spi_state::showing | at_spi_state::visible | at_spi_state::iconified;
    for (std::size_t i = 0; i < replies->size(); ++i) {
        auto& reply = (*replies)[i];
        if (!isWindow(reply.role) || (reply.states & there) == 0) continue;
        windows.push_back({cached->windows[i], std::move(reply.title),
                           (reply.states & at_spi_state::active) != 0});
    }
    return windows;
}

std::optional<CachedProgram> ProgramElement::findOnBus() const {
    auto root = bus_->applicationOf(process_);
    if (!root) return std::nullopt;
    auto windows = bus_->childrenOf({*root}).front();
    if (!windows) return std::nullopt;
    return CachedProgram{std::move(*root), std::move(*windows)};
}

std::optional<std::vector<ProgramElement::WindowReply>> ProgramElement::readWindows(
    const CachedProgram& program) const {
    std::vector<BusCall> calls;
    calls.push_back(at_spi_call::children(program.root));
    for (const auto& object : program.windows) {
        calls.push_back(at_spi_call::role(object));
        calls.push_back(at_spi_call::name(object));
        calls.push_back(at_spi_call::states(object));
    }
    const auto results = bus_->call(std::move(calls));
    auto result = results.begin();
    if (at_spi_reply::children(*result++) != program.windows) return std::nullopt;
    std::vector<WindowReply> replies(program.windows.size());
    for (auto& reply : replies) {
        reply.role = at_spi_reply::role(*result++);
        reply.title = at_spi_reply::name(*result++).value_or(std::string{});
        reply.states = at_spi_reply::states(*result++).value_or(0);
    }
    return replies;
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
    if (const auto* active = activeWindow(windows)) return windowElement(active->title);
    const auto focused = desktop_.focusedWindow();
    if (!focused || focused->process != process_) return nullptr;
    return windowElement(focused->title);
}

UIElementRef ProgramElement::menuBar() const {
    // Only of the active window: during a slide show the editor's menu still exists, and accepts a
    // press without any effect.
    const auto windows = busWindows();
    const auto* active = activeWindow(windows);
    if (active == nullptr) return nullptr;
    auto menuBar = findMenuBar(*bus_, active->object);
    if (!menuBar) return nullptr;
    return std::make_shared<const MenuElement>(
        std::make_shared<MenuTree>(bus_, std::move(*menuBar)), 0);
}

const ProgramElement::BusWindow* ProgramElement::activeWindow(
    const std::vector<BusWindow>& windows) const {
    const auto isActive = [](const BusWindow& window) { return window.active; };
    const auto first = std::ranges::find_if(windows, isActive);
    if (first == windows.end()) return nullptr;
    if (std::ranges::count_if(windows, isActive) == 1) return &*first;
    // A window that has received keys from our own keyboard may also report itself as active.
    const auto focused = desktop_.focusedWindow();
    const auto real = std::ranges::find_if(windows, [&](const BusWindow& window) {
        return window.active && focused && focused->process == process_ &&
               focused->title == window.title;
    });
    return real == windows.end() ? &*first : &*real;
}

}  // namespace stagehopper::linux_port
