#include "ports/simulated/Program.h"

#include <utility>

namespace stagehopper::simulated {

MenuNode MenuNode::role(std::string_view name) && {
    roleName = name;
    return std::move(*this);
}

MenuNode MenuNode::disabled() && {
    isEnabled = false;
    return std::move(*this);
}

MenuNode MenuNode::unreadableTitle() && {
    title.reset();
    return std::move(*this);
}

MenuNode MenuNode::unreadableEnabled() && {
    isEnabled.reset();
    return std::move(*this);
}

MenuNode MenuNode::titleReadable(int times) && {
    titleReadsLeft = std::make_shared<int>(times);
    return std::move(*this);
}

MenuNode MenuNode::pressResult(platform::AccessibilityError result) && {
    resultOfPress = result;
    acts = false;
    return std::move(*this);
}

MenuNode MenuNode::pressActsYetFails(platform::AccessibilityError result) && {
    resultOfPress = result;
    return std::move(*this);
}

MenuNode MenuNode::pressTakes(platform::Duration duration) && {
    durationOfPress = duration;
    return std::move(*this);
}

MenuNode MenuNode::withMenuAttribute(std::vector<MenuNode> entries) && {
    menuAttribute = std::move(entries);
    return std::move(*this);
}

MenuNode item(std::string_view title) {
    MenuNode node;
    node.title = title;
    return node;
}

MenuNode submenu(std::string_view title, std::vector<MenuNode> children) {
    MenuNode node = item(title).role(platform::accessibility_role::menu);
    node.children = std::move(children);
    return node;
}

MenuNode oddEntry() {
    MenuNode node;
    node.odd = true;
    return node;
}

Program program(std::optional<std::string> bundleId) {
    Program made;
    made.bundleIdentifier_ = std::move(bundleId);
    return made;
}

Program Program::pid(platform::Pid pid) && {
    processIdentifier_ = pid;
    return std::move(*this);
}

Program Program::window(std::string_view title) && {
    windows_.emplace_back(title);
    return std::move(*this);
}

Program Program::untitledWindow() && {
    windows_.emplace_back(std::nullopt);
    return std::move(*this);
}

Program Program::focusedWindow(std::size_t index) && {
    focusedWindow_ = index;
    return std::move(*this);
}

Program Program::menu(std::string_view title, std::vector<MenuNode> entries) && {
    MenuNode node = item(title).role(platform::accessibility_role::menuBarItem);
    node.children = std::move(entries);
    menus_.push_back(std::move(node));
    return std::move(*this);
}

Program Program::unreadable() && {
    readable_ = false;
    return std::move(*this);
}

Program Program::refusesKeys(std::string_view reason) && {
    keyRefusal_ = reason;
    return std::move(*this);
}

std::optional<std::size_t> RunningProgram::focusedWindow() const {
    if (program_.windows_.empty()) return std::nullopt;
    return program_.focusedWindow_.value_or(program_.windows_.size() - 1);
}

std::vector<int> RunningProgram::keysDown() const {
    std::vector<int> codes;
    for (const auto& key : keys_) {
        if (key.down) codes.push_back(key.key);
    }
    return codes;
}

}  // namespace stagehopper::simulated
