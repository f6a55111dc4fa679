#include "ports/simulated/SimulatedAccessibility.h"

#include <utility>

namespace stagehopper::simulated {

namespace {

using platform::AccessibilityAttribute;
using platform::AccessibilityError;
using platform::AttributeList;
using platform::AttributeValue;
using platform::UIElement;
using platform::UIElementRef;
namespace role = platform::accessibility_role;

/// How long a press waits for the program.
constexpr std::chrono::milliseconds pressLimit{500};

/// An element of a running program. Does not keep the program alive.
class ProgramElement : public UIElement {
public:
    ProgramElement(const Machine& machine, std::weak_ptr<RunningProgram> program)
        : machine_(machine), program_(std::move(program)) {}

    std::optional<AttributeValue> attributeValue(AccessibilityAttribute attribute) const override {
        const auto program = program_.lock();
        if (!program || !program->readable()) return std::nullopt;
        return read(*program, attribute);
    }
    AccessibilityError press() const override {
        if (program_.expired()) return AccessibilityError::invalidElement;
        return pressIn();
    }

protected:
    virtual std::optional<AttributeValue> read(const RunningProgram& program,
                                               AccessibilityAttribute attribute) const = 0;
    [[nodiscard]] virtual AccessibilityError pressIn() const {
        return AccessibilityError::actionUnsupported;
    }
    [[nodiscard]] const Machine& machine() const { return machine_; }
    [[nodiscard]] const std::weak_ptr<RunningProgram>& program() const { return program_; }

private:
    Machine machine_;
    std::weak_ptr<RunningProgram> program_;
};

class WindowElement final : public ProgramElement {
public:
    WindowElement(const Machine& machine, std::weak_ptr<RunningProgram> program, std::size_t index)
        : ProgramElement(machine, std::move(program)), index_(index) {}

private:
    std::optional<AttributeValue> read(const RunningProgram& program,
                                       AccessibilityAttribute attribute) const override {
        if (index_ >= program.windows().size()) return std::nullopt;
        const auto& title = program.windows()[index_];
        if (attribute == AccessibilityAttribute::title && title) return AttributeValue{*title};
        if (attribute == AccessibilityAttribute::role)
            return AttributeValue{std::string(role::window)};
        return std::nullopt;
    }

    std::size_t index_;
};

class MenuElement final : public ProgramElement {
public:
    MenuElement(const Machine& machine, std::weak_ptr<RunningProgram> program, MenuNode node)
        : ProgramElement(machine, std::move(program)), node_(std::move(node)) {}

private:
    std::optional<AttributeValue> read(const RunningProgram& /*program*/,
                                       AccessibilityAttribute attribute) const override {
        switch (attribute) {
            case AccessibilityAttribute::title:
                if (!node_.title || !mayReadTitle()) return std::nullopt;
                return AttributeValue{*node_.title};
            case AccessibilityAttribute::role:
                return AttributeValue{node_.roleName};
            case AccessibilityAttribute::enabled:
                if (!node_.isEnabled) return std::nullopt;
                return AttributeValue{*node_.isEnabled};
            case AccessibilityAttribute::children:
                return AttributeValue{elements(node_.children)};
            case AccessibilityAttribute::menu: {
                if (node_.menuAttribute.empty()) return std::nullopt;
                MenuNode menu = submenu("", node_.menuAttribute);
                return AttributeValue{
                    std::make_shared<const MenuElement>(machine(), program(), std::move(menu))};
            }
            default:
                return std::nullopt;
        }
    }

    [[nodiscard]] AccessibilityError pressIn() const override {
        if (!node_.acts) return node_.resultOfPress;
        const auto act = [journal = &machine().journal, weak = program(),
                          title = node_.title.value_or("")] {
            const auto program = weak.lock();
            if (!program) return;
            program->itemWasPressed(title);
            journal->add("pressed \"" + title + "\" of " +
                         std::to_string(program->application().processIdentifier));
        };
        if (node_.durationOfPress > pressLimit) {
            // The press has already returned success to the caller.
            machine().dispatch.asyncSystem(node_.durationOfPress, act);
            machine().clock.sleep(pressLimit);
            return AccessibilityError::success;
        }
        machine().clock.sleep(
            std::chrono::duration_cast<std::chrono::microseconds>(node_.durationOfPress));
        act();
        return node_.resultOfPress;
    }

    [[nodiscard]] bool mayReadTitle() const {
        return !node_.titleReadsLeft || (*node_.titleReadsLeft)-- > 0;
    }

    [[nodiscard]] AttributeList elements(const std::vector<MenuNode>& nodes) const {
        AttributeList list;
        for (const auto& node : nodes) {
            if (node.odd) {
                list.push_back({std::int64_t{0}});
            } else {
                list.push_back({UIElementRef(
                    std::make_shared<const MenuElement>(machine(), program(), node))});
            }
        }
        return list;
    }

    MenuNode node_;
};

class ApplicationElement final : public ProgramElement {
public:
    using ProgramElement::ProgramElement;

private:
    std::optional<AttributeValue> read(const RunningProgram& running,
                                       AccessibilityAttribute attribute) const override {
        switch (attribute) {
            case AccessibilityAttribute::role:
                return AttributeValue{std::string(role::application)};
            case AccessibilityAttribute::windows: {
                AttributeList windows;
                for (std::size_t i = 0; i < running.windows().size(); ++i) {
                    windows.push_back({window(i)});
                }
                return AttributeValue{std::move(windows)};
            }
            case AccessibilityAttribute::focusedWindow:
                if (!running.focusedWindow()) return std::nullopt;
                return AttributeValue{window(*running.focusedWindow())};
            case AccessibilityAttribute::menuBar: {
                if (running.menus().empty()) return std::nullopt;
                MenuNode bar = submenu("", running.menus()).role(role::menuBar);
                return AttributeValue{
                    std::make_shared<const MenuElement>(machine(), program(), std::move(bar))};
            }
            default:
                return std::nullopt;
        }
    }

    [[nodiscard]] UIElementRef window(std::size_t index) const {
        return std::make_shared<const WindowElement>(machine(), program(), index);
    }
};

}  // namespace

void SimulatedAccessibility::requestTrust() {
    ++prompts;
    machine_.journal.add("accessibility prompt shown");
}

UIElementRef SimulatedAccessibility::applicationElement(platform::Pid process) {
    return std::make_shared<const ApplicationElement>(machine_, workspace_.find(process));
}

}  // namespace stagehopper::simulated
