#include "tests/macos/recording/system/AccessibilityElements.h"

#include <string>
#include <utility>
#include <vector>

#include "tests/macos/recording/foundation/Bridged.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/system/World.h"

namespace stagehopper::recording {

namespace {

using simulated::MenuNode;
using simulated::RunningProgram;
namespace role = platform::accessibility_role;

struct Reader {
    platform::Pid process;
    const RunningProgram& program;
    std::string_view attribute;

    Retained operator()(ElementState::SystemWide) const { return {}; }

    Retained operator()(ElementState::Program) const {
        if (attribute == "AXRole") return makeString(std::string(role::application));
        if (attribute == "AXWindows") return windows();
        if (attribute == "AXFocusedWindow" && !program.windows().empty()) return focusedWindow();
        if (attribute == "AXMenuBar" && !program.menus().empty()) {
            return menu(simulated::submenu("", program.menus()).role(role::menuBar));
        }
        return {};
    }

    Retained operator()(ElementState::Window window) const {
        if (window.index >= program.windows().size()) return {};
        const auto& title = program.windows()[window.index];
        if (attribute == "AXRole") return makeString(std::string(role::window));
        return attribute == "AXTitle" && title ? makeString(*title) : Retained();
    }

    Retained operator()(const MenuNode& node) const {
        if (attribute == "AXRole") return makeString(node.roleName);
        if (attribute == "AXChildren") return children(node);
        if (attribute == "AXTitle" && node.title) return makeString(*node.title);
        if (attribute == "AXEnabled" && node.isEnabled) return makeTruth(*node.isEnabled);
        if (attribute == "AXMenu" && !node.menuAttribute.empty()) {
            return menu(simulated::submenu("", node.menuAttribute));
        }
        return {};
    }

    [[nodiscard]] Retained window(std::size_t index) const {
        return makeElement({process, ElementState::Window{index}});
    }
    [[nodiscard]] Retained focusedWindow() const {
        const auto& focused = World::current().programs.focusedWindow;
        const auto found = focused.find(process);
        return window(found == focused.end() ? 0 : found->second);
    }
    [[nodiscard]] Retained menu(MenuNode node) const {
        return makeElement({process, std::move(node)});
    }
    [[nodiscard]] Retained windows() const {
        std::vector<Retained> all;
        for (std::size_t i = 0; i < program.windows().size(); ++i) all.push_back(window(i));
        return makeArray(all);
    }
    [[nodiscard]] Retained children(const MenuNode& node) const {
        std::vector<Retained> all;
        for (const auto& child : node.children) {
            all.push_back(child.odd ? makeNumber(0) : menu(child));
        }
        return makeArray(all);
    }
};

}  // namespace

Retained makeElement(ElementState state) {
    auto element = makeObject(elementClass);
    stateOf<ElementState>(element.get()) = std::move(state);
    return element;
}

Retained attributeOf(const ElementState& element, std::string_view attribute) {
    const auto program = World::current().programs.find(element.process);
    if (!program || !program->readable()) return {};
    const auto& instead = World::current().accessibility.instead;
    if (const auto found = instead.find(attribute); found != instead.end()) return found->second;
    return std::visit(Reader{element.process, *program, attribute}, element.what);
}

}  // namespace stagehopper::recording
