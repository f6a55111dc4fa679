#include <gmock/gmock.h>

#include "ports/macos/cocoa/foundation/NSArray.h"
#include "ports/macos/cocoa/foundation/NSDate.h"
#include "ports/macos/cocoa/foundation/NSDateFormatter.h"
#include "ports/macos/cocoa/foundation/NSDictionary.h"
#include "ports/macos/cocoa/foundation/NSLocale.h"
#include "ports/macos/cocoa/foundation/NSNumber.h"
#include "ports/macos/cocoa/foundation/NSURL.h"
#include "ports/macos/cocoa/foundation/NSUUID.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper::recording {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class StandInsOfValues : public RecordedTest {
protected:
    cocoa::AutoreleasePool pool_;
};

TEST_F(StandInsOfValues, KeepATextWithItsZeros) {
    const std::string bytes("a\0\xC3\xA9", 4);
    EXPECT_EQ(cocoa::text(cocoa::string(bytes)), bytes);
}

TEST_F(StandInsOfValues, RefuseATextThatIsNotWellFormed) {
    EXPECT_FALSE(cocoa::NSString::make("\xFF"));
    EXPECT_FALSE(cocoa::NSString::make("\xED\xA0\x80"));
}

TEST_F(StandInsOfValues, HaveNoUtf8ForHalfASurrogatePair) {
    const auto half = makeStringWithoutUtf8(u"é\xD83D");
    const cocoa::NSString string(half.get());
    EXPECT_EQ(string.UTF8String(), nullptr);
    EXPECT_EQ(string.lengthOfBytesUsingEncoding(cocoa::NSUTF8StringEncoding), 0U);
    EXPECT_EQ(string.length(), 2U);
    EXPECT_EQ(string.characterAtIndex(1), 0xD83D);
}

TEST_F(StandInsOfValues, CountTheUnitsOfAText) {
    EXPECT_EQ(cocoa::string("aé页😀").length(), 5U);
}

TEST(Utf16, BecomesUtf8AndKeepsHalvesOfPairsAsBytes) {
    EXPECT_EQ(cocoa::utf8Of(u"aé页😀"), "aé页😀");
    EXPECT_EQ(cocoa::utf8Of(u""), "");
    EXPECT_EQ(cocoa::utf8Of(u"\xD83D"), "\xED\xA0\xBD");
    EXPECT_EQ(cocoa::utf8Of(u"\xDE00\xD83D"
                            u"a"),
              "\xED\xB8\x80\xED\xA0\xBD"
              "a");
}

TEST_F(StandInsOfValues, FoldCaseAndDiacritics) {
    constexpr auto differences =
        cocoa::NSCaseInsensitiveSearch | cocoa::NSDiacriticInsensitiveSearch;
    const auto folded =
        cocoa::string("Écran NÄCHSTE 下一页")
            .stringByFoldingWithOptions(differences, cocoa::NSLocale::currentLocale());
    EXPECT_EQ(cocoa::text(folded), "ecran nachste 下一页");
}

TEST_F(StandInsOfValues, KeepTheOrderOfAnArray) {
    const auto array =
        cocoa::NSArray::arrayWithObjects<cocoa::NSString>({cocoa::string("b"), cocoa::string("a")});
    std::vector<std::string> texts;
    for (const auto each : cocoa::elements<cocoa::NSString>(array))
        texts.push_back(cocoa::text(each));
    EXPECT_THAT(texts, ElementsAre("b", "a"));
}

TEST_F(StandInsOfValues, FindTheValueUnderAnEqualKey) {
    const auto table = cocoa::NSDictionary::dictionaryWithObjects<cocoa::NSString, cocoa::NSNumber>(
        {{cocoa::string("on"), cocoa::NSNumber::numberWithBool(true)}});
    EXPECT_TRUE(table.objectForKey(cocoa::string("on")).as<cocoa::NSNumber>());
    EXPECT_FALSE(table.objectForKey(cocoa::string("off")));
}

TEST_F(StandInsOfValues, ReturnNilForAUrlWithASpace) {
    EXPECT_FALSE(cocoa::NSURL::URLWithString(cocoa::string("http://127.0.0.1/a b")));
    EXPECT_TRUE(cocoa::NSURL::URLWithString(cocoa::string("ws://127.0.0.1:3000/ws?room=A%20B")));
}

TEST_F(StandInsOfValues, ReturnThePathOfAFileUrlUnchanged) {
    const auto folder = cocoa::NSURL::fileURLWithPath(cocoa::string("/tmp/a b/页"), true);
    EXPECT_EQ(cocoa::text(folder.path()), "/tmp/a b/页");
}

TEST_F(StandInsOfValues, LetTheWallClockFollowVirtualTime) {
    const double before = cocoa::NSDate::date().timeIntervalSince1970();
    queues::advance(90);
    const auto now = cocoa::NSDate::date();
    EXPECT_DOUBLE_EQ(now.timeIntervalSince1970(), before + 90);
    EXPECT_EQ(cocoa::text(cocoa::NSDateFormatter::localizedStringFromDate(
                  now, cocoa::NSDateFormatterNoStyle, cocoa::NSDateFormatterMediumStyle)),
              "09:28:23");
}

TEST_F(StandInsOfValues, MakeUuidsThatDiffer) {
    const auto first = cocoa::text(cocoa::NSUUID::UUID().UUIDString());
    EXPECT_NE(first, cocoa::text(cocoa::NSUUID::UUID().UUIDString()));
    EXPECT_THAT(first, testing::MatchesRegex(
                           "[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}"));
}

TEST_F(StandInsOfValues, NoteAnIndexPastTheEndAsAProblem) {
    static_cast<void>(cocoa::NSArray::arrayWithObjects<cocoa::NSString>({}).objectAtIndex(0));
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("behind its end")));
}

}  // namespace

}  // namespace stagehopper::recording
