#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/Dispatch.h"
#include "platform/KeyboardEvents.h"

namespace stagehopper::simulated {

/// An entry of a program's menu, with all the defects that an entry can have.
struct MenuNode {
    /// Absent: the title cannot be read.
    std::optional<std::string> title;
    std::string roleName{platform::accessibility_role::menuItem};
    /// Absent: the state cannot be read.
    std::optional<bool> isEnabled = true;
    platform::AccessibilityError resultOfPress = platform::AccessibilityError::success;
    /// Whether a press has an effect, independent of the result that it returns.
    bool acts = true;
    /// How long the program is busy before it acts on a press.
    platform::Duration durationOfPress{0};
    /// Shared by all copies of the entry; null if its title can always be read.
    std::shared_ptr<int> titleReadsLeft;
    std::vector<MenuNode> children;
    /// Entries of a menu that is reached by the menu attribute instead of the children.
    std::vector<MenuNode> menuAttribute;
    /// Not an element at all.
    bool odd = false;

    MenuNode role(std::string_view name) &&;
    MenuNode disabled() &&;
    MenuNode unreadableTitle() &&;
    MenuNode unreadableEnabled() &&;
    /// The title disappears after this many reads.
    MenuNode titleReadable(int times) &&;
    /// A press returns this and has no effect.
    MenuNode pressResult(platform::AccessibilityError result) &&;
    /// A press has its effect but is reported as failed.
    MenuNode pressActsYetFails(platform::AccessibilityError result) &&;
    MenuNode pressTakes(platform::Duration duration) &&;
    MenuNode withMenuAttribute(std::vector<MenuNode> entries) &&;
};

MenuNode item(std::string_view title);
MenuNode submenu(std::string_view title, std::vector<MenuNode> children);
/// Something in the list of a menu's children that is not an element.
MenuNode oddEntry();

/// A program before it is started: `program("com.apple.Preview").pid(60).window("deck.pdf")`.
class Program {
public:
    Program pid(platform::Pid pid) &&;
    Program window(std::string_view title) &&;
    /// A window whose title cannot be read.
    Program untitledWindow() &&;
    /// The index of the window with the focus; by default the last window.
    Program focusedWindow(std::size_t index) &&;
    /// Adds a top-level menu. Without one the program has no menu bar.
    Program menu(std::string_view title, std::vector<MenuNode> entries) &&;
    /// Makes all its attributes unreadable.
    Program unreadable() &&;
    /// Makes it refuse keys for this reason.
    Program refusesKeys(std::string_view reason) &&;

    [[nodiscard]] platform::Pid processIdentifier() const { return processIdentifier_; }

private:
    friend Program program(std::optional<std::string> bundleId);
    friend class RunningProgram;

    platform::Pid processIdentifier_ = 0;
    std::optional<std::string> bundleIdentifier_;
    std::vector<std::optional<std::string>> windows_;
    std::optional<std::size_t> focusedWindow_;
    std::vector<MenuNode> menus_;
    bool readable_ = true;
    /// Present if the program refuses keys.
    std::optional<std::string> keyRefusal_;
};

Program program(std::optional<std::string> bundleId = std::nullopt);

/// A key that a program has received.
struct ReceivedKey {
    platform::VirtualKey key;
    bool down;
    /// Since the desktop was made.
    std::chrono::nanoseconds at;
};

/// A program that runs or has run: what it shows and what it has received.
class RunningProgram {
public:
    explicit RunningProgram(Program program) : program_(std::move(program)) {}

    [[nodiscard]] platform::RunningApplication application() const {
        return {program_.processIdentifier_, program_.bundleIdentifier_};
    }
    [[nodiscard]] const std::vector<std::optional<std::string>>& windows() const {
        return program_.windows_;
    }
    /// Absent without windows.
    [[nodiscard]] std::optional<std::size_t> focusedWindow() const;
    [[nodiscard]] const std::vector<MenuNode>& menus() const { return program_.menus_; }
    [[nodiscard]] bool readable() const { return program_.readable_; }
    [[nodiscard]] const std::optional<std::string>& keyRefusal() const {
        return program_.keyRefusal_;
    }

    void closeWindows() { program_.windows_.clear(); }
    void receive(const ReceivedKey& key) { keys_.push_back(key); }
    void itemWasPressed(std::string title) { pressed_.push_back(std::move(title)); }

    [[nodiscard]] const std::vector<ReceivedKey>& keys() const { return keys_; }
    /// The codes of the keys that went down.
    [[nodiscard]] std::vector<int> keysDown() const;
    /// Titles of the menu items that were pressed.
    [[nodiscard]] const std::vector<std::string>& pressed() const { return pressed_; }

private:
    Program program_;
    std::vector<ReceivedKey> keys_;
    std::vector<std::string> pressed_;
};

}  // namespace stagehopper::simulated
