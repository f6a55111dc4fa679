#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/Workspace.h"

namespace stagehopper::platform {

/// The attributes that we read, named as on macOS without the prefix "AX".
enum class AccessibilityAttribute {
    children,
    enabled,
    focusedWindow,
    menu,
    menuBar,
    role,
    title,
    windows,
};

/// Results of an action. The numbers are those of macOS's `AXError` on every port.
enum class AccessibilityError : std::int32_t {
    success = 0,
    failure = -25200,
    illegalArgument = -25201,
    invalidElement = -25202,
    cannotComplete = -25204,
    attributeUnsupported = -25205,
    actionUnsupported = -25206,
    notImplemented = -25208,
    apiDisabled = -25211,
    noValue = -25212,
};

/// Values of the role attribute, as macOS spells them.
namespace accessibility_role {
inline constexpr std::string_view menuBar = "AXMenuBar";
inline constexpr std::string_view menuBarItem = "AXMenuBarItem";
inline constexpr std::string_view menu = "AXMenu";
inline constexpr std::string_view menuItem = "AXMenuItem";
inline constexpr std::string_view window = "AXWindow";
inline constexpr std::string_view application = "AXApplication";
inline constexpr std::string_view unknown = "AXUnknown";
}  // namespace accessibility_role

class UIElement;
using UIElementRef = std::shared_ptr<const UIElement>;

struct AttributeValue;
using AttributeList = std::vector<AttributeValue>;

/// The value of an attribute. A list may mix types: the other program decides what it sends.
struct AttributeValue {
    std::variant<std::string, bool, std::int64_t, UIElementRef, AttributeList> value;
};

/// One object in another program's interface. Main thread only. The object may disappear at any
/// time: reads then return nothing and a press returns an error. No call blocks longer than the
/// port's time limit, whatever the other program does.
class UIElement {
public:
    virtual ~UIElement() = default;
    /// Absent when the object has no such attribute or the read fails.
    [[nodiscard]] virtual std::optional<AttributeValue> attributeValue(
        AccessibilityAttribute attribute) const = 0;
    /// Activates the object, as a click does.
    ///
    /// An error guarantees that this press has no effect, so that the caller may try another way:
    /// the object or its action is absent, its program is gone or refused, or the request was never
    /// sent. Everything else is success. A request without an answer within the time limit counts
    /// as pressed: the program may still act on it, and a second way would then act twice.
    [[nodiscard]] virtual AccessibilityError press() const = 0;
};

/// The right to access other programs' interfaces, and their root objects. Main thread only.
class Accessibility {
public:
    virtual ~Accessibility() = default;
    /// Whether this process may read and control other programs' interfaces. Must be fast: called
    /// at every slide step.
    virtual bool isProcessTrusted() = 0;
    /// Shows the system's dialog that asks the user for this right. Returns at once.
    virtual void requestTrust() = 0;
    /// The root of the interface of a process. Never null; an unknown process has no attributes.
    virtual UIElementRef applicationElement(Pid process) = 0;
};

}  // namespace stagehopper::platform
