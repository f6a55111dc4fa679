#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <utility>

#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Properties.h"

namespace stagehopper::recording {

namespace {

/// The properties that AppKit and WebKit declare weak.
constexpr std::array<std::string_view, 3> weakNames{"delegate", "target", "navigationDelegate"};

struct Property {
    /// An object's pointer may be gone.
    Value value;
    Retained kept;
    Weak weak;
    bool isWeak = false;
};

struct Properties {
    std::map<std::string, Property, std::less<>> byName;
};

}  // namespace

Value property(cocoa::id object, std::string_view name) {
    const auto& all = stateOf<Properties>(object).byName;
    const auto found = all.find(name);
    if (found == all.end()) return {};
    const auto& [value, kept, weak, isWeak] = found->second;
    if (!value.isObject()) return value;
    return isWeak ? weak.get() : kept.get();
}

void setProperty(cocoa::id object, std::string_view name, Value value) {
    Property made;
    made.value = value;
    made.isWeak = std::ranges::find(weakNames, name) != weakNames.end();
    if (made.isWeak) {
        made.weak = Weak(value.object());
    } else {
        made.kept = Retained(value.object());
    }
    // The old value may hold the last reference to an object whose destruction reads this one.
    auto& slot = stateOf<Properties>(object).byName[std::string(name)];
    std::swap(slot, made);
}

std::string propertyOfSetter(std::string_view selector) {
    const bool isSetter = selector.size() > 4 && selector.starts_with("set") &&
                          std::ranges::count(selector, ':') == 1 && selector.ends_with(':');
    if (!isSetter) return {};
    std::string name(selector.substr(3, selector.size() - 4));
    const auto isUpper = [](char letter) {
        return std::isupper(static_cast<unsigned char>(letter)) != 0;
    };
    // `setTitle:` sets `title`, but `setURL:` sets `URL`.
    const bool isAcronym = name.size() > 1 && isUpper(name[0]) && isUpper(name[1]);
    if (!isAcronym) name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
    return name;
}

}  // namespace stagehopper::recording
