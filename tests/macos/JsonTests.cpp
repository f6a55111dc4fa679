// JSON: what Foundation is asked, and how its numbers are read.

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>

#include "platform/Json.h"
#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using testing::IsEmpty;
using testing::SizeIs;

class MacJson : public MacStage {
protected:
    MacJson() { make(); }
    std::optional<platform::JsonValue> decoded(std::string_view text) {
        return services().platform(files).json.decoded(text);
    }
    /// The type and value of the only element.
    template <class T>
    void expectElement(const std::string& text, T expected) {
        const auto document = decoded('[' + text + ']');
        ASSERT_TRUE(document) << text;
        const auto& element = std::get<platform::JsonValue::Array>(document->value).at(0);
        const auto* value = std::get_if<T>(&element.value);
        ASSERT_NE(value, nullptr) << text;
        EXPECT_EQ(*value, expected) << text;
    }
};

TEST_F(MacJson, IntegersKeepAllTheirDigits) {
    expectElement("17", std::int64_t{17});
    expectElement("9007199254740993", std::int64_t{9007199254740993});
    expectElement("-9223372036854775808", std::numeric_limits<std::int64_t>::min());
    expectElement("9223372036854775807", std::numeric_limits<std::int64_t>::max());
    expectElement("9223372036854775808", std::uint64_t{1} << 63U);
    expectElement("18446744073709551615", std::numeric_limits<std::uint64_t>::max());
}

TEST_F(MacJson, OtherNumbersAreDoubles) {
    expectElement("1.5", 1.5);
    expectElement("18446744073709551616", 18446744073709551616.0);
}

TEST_F(MacJson, ABooleanIsNotANumber) {
    expectElement("true", true);
    expectElement("false", false);
    expectElement("1", std::int64_t{1});
}

TEST_F(MacJson, AMalformedTextDoesNotReachFoundation) {
    for (const auto* text : {"", "[1,]", "[01]", "17", "['a']", "[\"\xFF\"]", "[1] // one"}) {
        EXPECT_FALSE(decoded(text)) << text;
    }
    EXPECT_THAT(lines("JSONObjectWithData:"), IsEmpty());
    EXPECT_TRUE(decoded("[1]"));
    EXPECT_THAT(lines("JSONObjectWithData:"), SizeIs(1));
}

}  // namespace

}  // namespace stagehopper
