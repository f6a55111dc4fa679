#pragma once

#include <algorithm>
#include <string_view>

#include "platform/Json.h"

namespace stagehopper {

/// The member with this name; null if it is missing or `value` is not an object.
inline const platform::JsonValue* member(const platform::JsonValue& value, std::string_view name) {
    const auto* members = std::get_if<platform::JsonValue::Object>(&value.value);
    if (members == nullptr) return nullptr;
    const auto found = std::ranges::find(*members, name, &platform::JsonMember::name);
    return found == members->end() ? nullptr : &found->value;
}

/// What `value` holds; null if it is null or of another type.
template <class T>
const T* as(const platform::JsonValue* value) {
    return value == nullptr ? nullptr : std::get_if<T>(&value->value);
}

}  // namespace stagehopper
