#include "ports/json/NlohmannJson.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace stagehopper::json_port {

namespace {

using platform::JsonValue;

/// Counts brackets outside strings. The text need not be well-formed.
bool isNestedTooDeeply(std::string_view text) {
    int depth = 0;
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inString && c == '\\') {
            ++i;
        } else if (c == '"') {
            inString = !inString;
        } else if (!inString && (c == '[' || c == '{')) {
            if (++depth > platform::maxJsonNesting) return true;
        } else if (!inString && (c == ']' || c == '}')) {
            --depth;
        }
    }
    return false;
}

JsonValue integer(std::uint64_t number) {
    if (std::in_range<std::int64_t>(number)) return {static_cast<std::int64_t>(number)};
    return {number};
}

JsonValue recorded(const nlohmann::json& json) {
    using Type = nlohmann::json::value_t;
    switch (json.type()) {
        case Type::boolean:
            return {json.get<bool>()};
        case Type::number_integer:
            return {json.get<std::int64_t>()};
        case Type::number_unsigned:
            return integer(json.get<std::uint64_t>());
        case Type::number_float:
            return {json.get<double>()};
        case Type::string:
            return {json.get<std::string>()};
        case Type::array: {
            JsonValue::Array elements;
            for (const auto& element : json) elements.push_back(recorded(element));
            return {std::move(elements)};
        }
        case Type::object: {
            JsonValue::Object members;
            for (const auto& [name, value] : json.items()) {
                members.push_back({name, recorded(value)});
            }
            return {std::move(members)};
        }
        default:
            return {nullptr};
    }
}

}  // namespace

std::optional<JsonValue> NlohmannJson::decoded(std::string_view text) {
    // The library takes a NUL for the end of the text.
    if (text.find('\0') != std::string_view::npos || isNestedTooDeeply(text)) return std::nullopt;
    const auto document = nlohmann::json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!document.is_structured()) return std::nullopt;
    return recorded(document);
}

}  // namespace stagehopper::json_port
