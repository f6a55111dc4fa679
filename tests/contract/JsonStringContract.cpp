// JSON: strings, names and the encoding of the text.

#include "tests/contract/JsonFixture.h"

namespace stagehopper {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST_F(JsonContract, EveryEscapeIsRead) {
    EXPECT_EQ(string(R"(\"\\\/\b\f\n\r\t)"), "\"\"\\/\b\f\n\r\t\"");
    expectElements(
        R"("\u0041" "A" "\u00e9" "é" "\u00E9" "é" "\u0022" """ "\u005c" "\" "\u9875" "页"
           "\uFFFD" "�" "\ud83d\ude00" "😀" "\uD83D\uDE00" "😀" "x\ud83D\uDe00y" "x😀y"
           "\\u0041" "\u0041" "\\n" "\n" "\/" "/")");
    EXPECT_EQ(string(R"(\u0001\u001f\u007F)"), "\"\x01\x1f\x7f\"");
    EXPECT_EQ(string(R"(a\u0000b\u0000)"), "\"a\0b\0\""s);
    EXPECT_EQ(string(R"(\u2028\u00a0)"), "\"\u2028\u00a0\"");
    EXPECT_EQ(string(R"(\uD7FF\uE000)"), "\"\uD7FF\uE000\"");
    EXPECT_EQ(string(R"(\uD800\uDC00)"), "\"\U00010000\"");
    EXPECT_EQ(string(R"(\uDBFF\uDFFF)"), "\"\U0010FFFF\"");
}

TEST_F(JsonContract, AStringMayStartWithAByteOrderMark) {
    EXPECT_EQ(string("\uFEFF"), "\"\uFEFF\"");
    EXPECT_EQ(string(R"(\uFEFF)"), "\"\uFEFF\"");
    EXPECT_EQ(string(R"(\uFFFE)"), "\"\uFFFE\"");
}

TEST_F(JsonContract, HalfOfASurrogatePairMakesTheTextAbsent) {
    expectAbsentStrings(
        R"(\ud83d \ude00 \ud83dx \ud83d\n \ud83d\u0041 \ud83d\ud83d \ude00\ud83d
           \ud83d\ud83d\ude00 \ud83d\ude00\ude00 \uD800 \uDBFF \uDC00 \uDFFF \ud83d\\ude00
           \ud83dude00 \ud83d\u \ud83d\ude0 a\udc00b)");
    EXPECT_EQ(rendered(R"({"\ud83d":1})"), "absent");
}

TEST_F(JsonContract, MalformedEscapesAreAbsent) {
    expectAbsentStrings(
        R"(\ \a \v \0 \1 \e \x41 \' \u \u1 \u12 \u123 \u123g \u+123 \u00-1 \U0041 \u{41} \N \T
           \é \u00\u0041 \uD83D\UDE00)");
    expectEachAbsent({R"(["\ "])", R"(["\u 123"])", "[\"\\\n\"]", "[\"\\\0\"]"sv});
}

TEST_F(JsonContract, StringsMayHaveAnyCharacterButControlCharacters) {
    for (const auto& text :
         words("a é 页 😀 / ' [ ] {} , : // /**/ # \x7f \u0080 \u00a0 \u07ff \u0800 \u2028 \uffff "
               "\U00010000 \U0010ffff e\u0301 null 17 true %s $1 @ \u200b")) {
        EXPECT_EQ(string(text), '"' + text + '"');
    }
    EXPECT_EQ(string("  a "), "\"  a \"");
    for (char control = 0; control < ' '; ++control) {
        EXPECT_EQ(string(std::string("a") + control), "absent") << static_cast<int>(control);
    }
    for (const auto length : {100U, 4096U, 100'000U, 1'000'000U}) {
        EXPECT_EQ(string(std::string(length, 'x')).size(), length + 2);
    }
}

TEST_F(JsonContract, NamesMayBeAnyString) {
    expectUnchanged(R"({"":1} {"a.b":1,"a.c":2} {".":1} {"A":1,"a":2} {"@count":1} {"@sum.x":1}
                       {"0":1} {"self":1} {"description":1,"hash":2,"isa":3} {"页":1} {"😀":1}
                       {"null":null})");
    EXPECT_EQ(rendered(R"({"  ":1," ":2,"a b":3})"), R"({"  ":1," ":2,"a b":3})");
    EXPECT_EQ(rendered(R"({"\u0061\n":1})"), "{\"a\n\":1}");
    EXPECT_EQ(rendered(R"({"a\u0000b":1,"a":2})"), "{\"a\0b\":1,\"a\":2}"s);
}

TEST_F(JsonContract, MalformedUtf8IsAbsent) {
    // Single bytes, and sequences without a beginning or an end.
    expectAbsentStrings(
        "\x80 \xBF \xC3 \xE2\x82 \xE2 \xF0\x9F\x98 \xF0\x9F \xF0 \x80\x80 a\xC3 \xC3( \xE2(\x82 "
        "\xE2\x82( \xC3\xC3 \xC3\xA9\xA9");
    // Overlong.
    expectAbsentStrings(
        "\xC0\x80 \xC0\xAF \xC1\xBF \xE0\x80\x80 \xE0\x9F\xBF \xF0\x80\x80\x80 \xF0\x8F\xBF\xBF");
    // Surrogates.
    expectAbsentStrings(
        "\xED\xA0\x80 \xED\xAF\xBF \xED\xB0\x80 \xED\xBF\xBF \xED\xA0\xBD\xED\xB8\x80");
    // Beyond U+10FFFF.
    expectAbsentStrings(
        "\xF4\x90\x80\x80 \xF5\x80\x80\x80 \xF7\xBF\xBF\xBF \xF8\x88\x80\x80\x80 "
        "\xFC\x84\x80\x80\x80\x80 \xFE \xFF");
    expectAbsent("{\"\xFF\":1} [\xFF] [1]\xFF \xFF[1] [1\xC3\xA9] [\xC3]");
}

TEST_F(JsonContract, OtherEncodingsAreAbsent) {
    expectEachAbsent({"[\0]\0"sv, "\0[\0]"sv, "\xFF\xFE[\0]\0"sv, "\xFE\xFF\0[\0]"sv,
                      "[\0\0\0]\0\0\0"sv, "\0\0\0[\0\0\0]"sv, "\xFF\xFE\0\0[\0\0\0]\0\0\0"sv,
                      "\0\0\xFE\xFF\0\0\0[\0\0\0]"sv, "[\0\"\0a\0\"\0]\0"sv, "{\0}\0"sv,
                      "[\"\xE9\"]"});
}

TEST_F(JsonContract, AByteOrderMarkIsIgnoredOnlyAtTheStart) {
    EXPECT_EQ(rendered("\uFEFF[1]"), "[1]");
    EXPECT_EQ(rendered("\uFEFF {}"), "{}");
    expectEachAbsent({"\uFEFF", "\uFEFF\uFEFF[1]", " \uFEFF[1]", "[1]\uFEFF", "[\uFEFF1]",
                      "\uFEFF1", "\xEF\xBB[1]", "\xEF[1]"});
}

TEST_F(JsonContract, BracketsInStringsAreNotNesting) {
    const std::string brackets(1000, '[');
    EXPECT_EQ(string(brackets), '"' + brackets + '"');
    EXPECT_EQ(string(R"(\")" + brackets), "\"\"" + brackets + '"');
    EXPECT_EQ(string(R"(\\)"), R"("\")");
    const std::string braces(1000, '{');
    EXPECT_EQ(rendered("{\"" + braces + "\":1}"), "{\"" + braces + "\":1}");
}

}  // namespace
}  // namespace stagehopper
