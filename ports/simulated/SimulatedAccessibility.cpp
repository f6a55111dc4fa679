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

/// An element of a running program; holds neither the program nor anything of it.
class ProgramElement : public UIElement {
public:
    ProgramElement(Journal& journal, std::weak_ptr<RunningProgram> program)
        : journal_(journal), program_(std::move(program)) {}

    std::optional<AttributeValue> attributeValue(AccessibilityAttribute attribute) const override {
        const auto program = program_.lock();
        if (!program || !program->readable()) return std::nullopt;
        return read(*program, attribute);
    }
    AccessibilityError press() const override {
        const auto program = program_.lock();
        if (!program) return AccessibilityError::invalidElement;
        return pressIn(*program);
    }

protected:
    virtual std::optional<AttributeValue> read(const RunningProgram& program,
                                               AccessibilityAttribute attribute) const = 0;
    virtual AccessibilityError pressIn(RunningProgram& /*program*/) const {
        return AccessibilityError::actionUnsupported;
    }
    [[nodiscard]] Journal& journal() const { return journal_; }
    [[nodiscard]] const std::weak_ptr<RunningProgram>& program() const { return program_; }

private:
    Journal& journal_;
    std::weak_ptr<RunningProgram> program_;
};

class WindowElement final : public ProgramElement {
public:
    WindowElement(Journal& journal, std::weak_ptr<RunningProgram> program, std::size_t index)
        : ProgramElement(journal, std::move(program)), index_(index) {}

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
    MenuElement(Journal& journal, std::weak_ptr<RunningProgram> program, MenuNode node)
        : ProgramElement(journal, std::move(program)), node_(std::move(node)) {}

private:
    std::optional<AttributeValue> read(const RunningProgram& /*program*/,
                                       AccessibilityAttribute attribute) const override {
        switch (attribute) {
            case AccessibilityAttribute::title:
                if (!node_.title) return std::nullopt;
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
                    std::make_shared<const MenuElement>(journal(), program(), std::move(menu))};
            }
            default:
                return std::nullopt;
        }
    }

    AccessibilityError pressIn(RunningProgram& program) const override {
        if (node_.resultOfPress == AccessibilityError::success) {
            const auto title = node_.title.value_or("");
            program.itemWasPressed(title);
            journal().add("pressed \"" + title + "\" of " +
                          std::to_string(program.application().processIdentifier));
        }
        return node_.resultOfPress;
    }

    [[nodiscard]] AttributeList elements(const std::vector<MenuNode>& nodes) const {
        AttributeList list;
        for (const auto& node : nodes) {
            if (node.odd) {
                list.push_back({std::int64_t{0}});
            } else {
                list.push_back({UIElementRef(
                    std::make_shared<const MenuElement>(journal(), program(), node))});
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
                if (running.windows().empty()) return std::nullopt;
                return AttributeValue{window(0)};
            case AccessibilityAttribute::menuBar: {
                if (running.menus().empty()) return std::nullopt;
                MenuNode bar = submenu("", running.menus()).role(role::menuBar);
                return AttributeValue{
                    std::make_shared<const MenuElement>(journal(), program(), std::move(bar))};
            }
            default:
                return std::nullopt;
        }
    }

    [[nodiscard]] UIElementRef window(std::size_t index) const {
        return std::make_shared<const WindowElement>(journal(), program(), index);
    }
};

}  // namespace

void SimulatedAccessibility::requestTrust() {
    ++prompts;
    journal_.add("accessibility prompt shown");
}

UIElementRef SimulatedAccessibility::applicationElement(platform::Pid process) {
    return std::make_shared<const ApplicationElement>(journal_, workspace_.find(process));
}

}  // namespace stagehopper::simulated
