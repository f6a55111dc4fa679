#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <locale>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Json.h"
#include "tests/contract/PortHarness.h"

namespace stagehopper {

/// A record as text: {"a":[1,null]}. Strings stay as they are, members are sorted. Integers and
/// whole doubles look alike.
struct JsonRendering {
    std::string operator()(std::nullptr_t) const { return "null"; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(std::uint64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const {
        if (!std::isfinite(number)) return "not finite";
        std::ostringstream text;
        text.imbue(std::locale::classic());
        text.precision(15);
        text << (number == 0 ? 0 : number);
        return text.str();
    }
    std::string operator()(const std::string& text) const { return '"' + text + '"'; }
    std::string operator()(const platform::JsonValue::Array& elements) const {
        std::vector<std::string> parts;
        for (const auto& element : elements) parts.push_back(std::visit(*this, element.value));
        return '[' + joined(parts) + ']';
    }
    std::string operator()(const platform::JsonValue::Object& members) const {
        std::vector<std::string> parts;
        for (const auto& [name, value] : members) {
            parts.push_back((*this)(name) + ':' + std::visit(*this, value.value));
        }
        std::ranges::sort(parts);
        return '{' + joined(parts) + '}';
    }

private:
    static std::string joined(const std::vector<std::string>& parts) {
        std::string text;
        for (const auto& part : parts) text += part + ',';
        if (!text.empty()) text.pop_back();
        return text;
    }
};

/// Texts of JSON and what every port makes of them.
class JsonContract : public testing::Test {
protected:
    /// "absent" if the text cannot be decoded.
    std::string rendered(std::string_view text) {
        const auto decoded = json.decoded(text);
        return decoded ? std::visit(JsonRendering(), decoded->value) : "absent";
    }
    /// As the only element of an array.
    std::string element(std::string_view text) {
        const auto array = rendered('[' + std::string(text) + ']');
        return array.starts_with('[') ? array.substr(1, array.size() - 2) : array;
    }
    std::string string(std::string_view contents) {
        return element('"' + std::string(contents) + '"');
    }

    /// The texts between the blanks of `list`.
    static std::vector<std::string> words(const std::string& list) {
        std::istringstream stream(list);
        return {std::istream_iterator<std::string>(stream), {}};
    }
    void expectUnchanged(const std::string& list) {
        for (const auto& text : words(list)) EXPECT_EQ(rendered(text), text);
    }
    void expectAbsent(const std::string& list) {
        for (const auto& text : words(list)) EXPECT_EQ(rendered(text), "absent") << text;
    }
    void expectEachAbsent(const std::vector<std::string_view>& texts) {
        for (const auto text : texts) EXPECT_EQ(rendered(text), "absent") << text;
    }
    void expectAbsentElements(const std::string& list) {
        for (const auto& text : words(list)) EXPECT_EQ(element(text), "absent") << text;
    }
    void expectAbsentStrings(const std::string& list) {
        for (const auto& text : words(list)) EXPECT_EQ(string(text), "absent") << text;
    }
    void expectUnchangedElements(const std::string& list) {
        for (const auto& text : words(list)) EXPECT_EQ(element(text), text);
    }
    /// Each text is followed by what is expected.
    void expectElements(const std::string& table) {
        const auto all = words(table);
        for (std::size_t i = 0; i + 1 < all.size(); i += 2) {
            EXPECT_EQ(element(all[i]), all[i + 1]) << all[i];
        }
    }

    std::unique_ptr<PortHarness> harness = makePortHarness();
    platform::Json& json = harness->platform().json;
};

}  // namespace stagehopper
