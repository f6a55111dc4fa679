#include "slidechannel/SlideMessage.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "slidechannel/JsonReading.h"

namespace stagehopper {

namespace {

using platform::JsonValue;

std::string textOf(const JsonValue& object, const char* name) {
    const auto* text = as<std::string>(member(object, name));
    return text == nullptr ? std::string() : *text;
}

/// The shortest decimal number that reads back as `number`.
std::string shortest(double number) {
    std::array<char, 32> buffer{};
    for (const int digits : {15, 16, 17}) {
        std::snprintf(buffer.data(), buffer.size(), "%.*g", digits, number);
        if (std::strtod(buffer.data(), nullptr) == number) break;
    }
    std::string text(buffer.data());
    // The decimal separator of the user's locale, which may be a comma.
    const std::string_view separator = std::localeconv()->decimal_point;
    if (const auto at = text.find(separator); at != std::string::npos) {
        text.replace(at, separator.size(), ".");
    }
    return text;
}

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const auto& part : parts) text += (text.empty() ? "" : ",") + part;
    return text;
}

std::string stringLiteral(std::string_view text) {
    std::string literal = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') literal += '\\';
        literal += c;
    }
    return literal + '"';
}

/// A value as text: strings unchanged, numbers in plain decimal. 17 and 17.0 are the same tag,
/// because senders write whole numbers in both ways.
struct Description {
    std::string operator()(std::nullptr_t) const { return "<null>"; }
    std::string operator()(bool value) const { return value ? "1" : "0"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(std::uint64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const {
        constexpr double exactlyCounted = 9007199254740992.0;  // 2^53
        const bool isWhole = std::trunc(number) == number && std::abs(number) <= exactlyCounted;
        return isWhole ? std::to_string(static_cast<std::int64_t>(number)) : shortest(number);
    }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const JsonValue::Array& elements) const {
        std::vector<std::string> parts;
        for (const auto& element : elements) parts.push_back(nested(element));
        return '[' + joined(parts) + ']';
    }
    std::string operator()(const JsonValue::Object& members) const {
        std::vector<std::string> parts;
        for (const auto& [name, value] : members) {
            parts.push_back(stringLiteral(name) + ':' + nested(value));
        }
        // Their order depends on the decoder.
        std::ranges::sort(parts);
        return '{' + joined(parts) + '}';
    }

private:
    [[nodiscard]] std::string nested(const JsonValue& value) const {
        if (const auto* text = as<std::string>(&value)) return stringLiteral(*text);
        return std::visit(*this, value.value);
    }
};

}  // namespace

SlideMessage parseSlideMessage(const JsonValue& message) {
    const auto type = textOf(message, "type");
    if (type == "welcome") return WelcomeMessage{};
    if (type != "slide_nav") return OtherMessage{};
    const auto* seq = member(message, "seq");
    return SlideNavMessage{textOf(message, "direction"),
                           seq == nullptr ? std::string() : std::visit(Description(), seq->value)};
}

}  // namespace stagehopper
