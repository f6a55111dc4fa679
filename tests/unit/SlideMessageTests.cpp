#include "slidechannel/SlideMessage.h"

#include <gtest/gtest.h>

#include <string>

#include "ports/json/NlohmannJson.h"
#include "tests/unit/NestedArrays.h"

namespace stagehopper {
namespace {

/// A text that cannot be decoded counts as another message.
SlideMessage messageOf(std::string_view text) {
    const auto decoded = json_port::NlohmannJson().decoded(text);
    return decoded ? parseSlideMessage(*decoded) : OtherMessage{};
}

SlideMessage step(const std::string& members) {
    return messageOf(R"({"type":"slide_nav",)" + members + "}");
}

std::string seqOf(const std::string& value) {
    const auto message = step(R"("seq":)" + value);
    const auto* nav = std::get_if<SlideNavMessage>(&message);
    return nav == nullptr ? "none" : nav->seq;
}

TEST(SlideMessage, AWelcomeMayHaveAnyOtherFields) {
    EXPECT_EQ(messageOf(R"({"type":"welcome"})"), SlideMessage(WelcomeMessage{}));
    EXPECT_EQ(messageOf(R"({"x":[1],"type":"welcome","type2":"slide_nav"})"),
              SlideMessage(WelcomeMessage{}));
}

TEST(SlideMessage, AStepHasItsDirectionUnchanged) {
    EXPECT_EQ(step(R"("direction":" Next\n","seq":17)"),
              SlideMessage(SlideNavMessage{" Next\n", "17"}));
}

TEST(SlideMessage, AStepMayLackEverything) {
    EXPECT_EQ(messageOf(R"({"type":"slide_nav"})"), SlideMessage(SlideNavMessage{}));
}

TEST(SlideMessage, ADirectionThatIsNotAStringIsEmpty) {
    EXPECT_EQ(step(R"("direction":5,"seq":5)"), SlideMessage(SlideNavMessage{"", "5"}));
    EXPECT_EQ(step(R"("direction":["next"])"), SlideMessage(SlideNavMessage{}));
}

TEST(SlideMessage, ASequenceTagIsWrittenAsText) {
    EXPECT_EQ(seqOf(R"("a1")"), "a1");
    EXPECT_EQ(seqOf(R"("")"), "");
    EXPECT_EQ(seqOf("42"), "42");
    EXPECT_EQ(seqOf("-7"), "-7");
    EXPECT_EQ(seqOf("1790000000123"), "1790000000123");
    EXPECT_EQ(seqOf("18446744073709551615"), "18446744073709551615");
}

TEST(SlideMessage, AWholeNumberIsTheSameInEveryNotation) {
    EXPECT_EQ(seqOf("17.0"), "17");
    EXPECT_EQ(seqOf("1.7e1"), "17");
}

TEST(SlideMessage, UnusualTagsBecomeDifferentTexts) {
    EXPECT_EQ(seqOf("1.5"), "1.5");
    EXPECT_EQ(seqOf("null"), "<null>");
    EXPECT_EQ(seqOf("true"), "1");
    EXPECT_EQ(seqOf("false"), "0");
    EXPECT_EQ(seqOf("[1,2]"), "[1,2]");
    EXPECT_EQ(seqOf(R"({"a":1})"), R"({"a":1})");
    EXPECT_EQ(seqOf("0.1"), "0.1");
    EXPECT_EQ(seqOf("0.30000000000000004"), "0.30000000000000004");
    EXPECT_EQ(seqOf("1e20"), "1e+20");
    EXPECT_EQ(seqOf(R"({"b":"\"","a":[null,-2.0]})"), R"({"a":[<null>,-2],"b":"\""})");
}

TEST(SlideMessage, ATagMayBeNestedUpToFoundationsLimit) {
    // The message itself is the first of 512 levels.
    EXPECT_EQ(seqOf(nestedArrays(511)), nestedArrays(511));
    EXPECT_EQ(step(R"("seq":)" + nestedArrays(512)), SlideMessage(OtherMessage{}));
    EXPECT_EQ(step(R"("seq":)" + nestedArrays(100'000)), SlideMessage(OtherMessage{}));
}

TEST(SlideMessage, BracketsInATextAreNotNesting) {
    const std::string brackets = R"(\"[\\)" + std::string(1000, '[');
    EXPECT_EQ(seqOf('"' + brackets + '"'), R"("[\)" + std::string(1000, '['));
}

TEST(SlideMessage, EverythingElseIsOther) {
    for (const char* text :
         {"", "x", "[]", "{}", "5", R"({"type":1})", R"({"type":null})", R"({"type":"Welcome"})",
          R"({"type":"slide_nav "})", R"({"Type":"welcome"})", R"([{"type":"welcome"}])",
          "{\"type\":\"welcome\"}x", "{\"type\":\"welcome\xFF\"}"}) {
        EXPECT_EQ(messageOf(text), SlideMessage(OtherMessage{})) << text;
    }
}

}  // namespace
}  // namespace stagehopper
