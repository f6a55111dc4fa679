#include "text/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace stagehopper {
namespace {

using namespace std::string_literals;

TEST(Utf8, WellFormedTextIsValid) {
    for (const auto& text : {""s, "abc"s, "é"s, "下一张"s, "😀"s, "\0"s, "\xF4\x8F\xBF\xBF"s}) {
        EXPECT_TRUE(isValidUtf8(text)) << text;
    }
}

TEST(Utf8, MalformedTextIsInvalid) {
    for (const auto& text : {"\x80"s,              // a continuation byte alone
                             "\xC3"s,              // cut short
                             "\xE4\xB8"s,          // cut short
                             "\xC0\xAF"s,          // overlong
                             "\xE0\x80\xAF"s,      // overlong
                             "\xF0\x80\x80\xAF"s,  // overlong
                             "\xED\xA0\x80"s,      // a surrogate
                             "\xF4\x90\x80\x80"s,  // above U+10FFFF
                             "\xFF"s, "ab\xE4\x28\xB8"s}) {
        EXPECT_FALSE(isValidUtf8(text)) << testing::PrintToString(text);
    }
}

TEST(Utf8, EachMalformedByteIsReplaced) {
    EXPECT_EQ(wellFormed("a\xFF é\0"s), "a\uFFFD é\0"s);
    EXPECT_EQ(wellFormed("\xE4\xB8"), "\uFFFD\uFFFD");
    EXPECT_EQ(wellFormed("\xC0\xAF下"), "\uFFFD\uFFFD下");
    EXPECT_EQ(wellFormed(""), "");
}

TEST(Utf8, TrimmingRemovesBlanksAndLineBreaksAtBothEnds) {
    EXPECT_EQ(trimmed(" \t\r\n NEXT \v\f\n"), "NEXT");
    EXPECT_EQ(trimmed("a b"), "a b");
    EXPECT_EQ(trimmed(""), "");
    EXPECT_EQ(trimmed(" \n "), "");
}

TEST(Utf8, TrimmingKnowsUnicodesBlanksAndLineBreaks) {
    for (const char* blank : {"\u0085", "\u00A0", "\u1680", "\u2000", "\u200A", "\u2028", "\u2029",
                              "\u202F", "\u205F", "\u3000"}) {
        EXPECT_EQ(trimmed(std::string(blank) + "é" + blank + blank), "é")
            << testing::PrintToString(std::string(blank));
    }
}

TEST(Utf8, TrimmingKeepsInvisibleCharactersThatAreNotBlanks) {
    EXPECT_EQ(trimmed("\u200B"), "\u200B");  // zero-width space is a format character
    EXPECT_EQ(trimmed("\0 "s), "\0"s);
}

TEST(Utf8, TrimmingStopsAtMalformedBytes) {
    EXPECT_EQ(trimmed(" \x80 "), "\x80");
    EXPECT_EQ(trimmed(" \xE3\x80 "), "\xE3\x80");
    EXPECT_EQ(trimmed("\x80\x80\x80\x80\x80"), "\x80\x80\x80\x80\x80");
}

}  // namespace
}  // namespace stagehopper
