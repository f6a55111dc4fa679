// JSON: numbers, words, arrays and objects.

#include "tests/contract/JsonFixture.h"

namespace stagehopper {
namespace {

using namespace std::string_view_literals;
using platform::JsonValue;

TEST_F(JsonContract, EveryKindOfValueIsDecoded) {
    expectUnchanged(R"([] {} [null] [true] [false] [0] [[]] [{}] [""] {"a":1} {"a":[],"b":{}}
                       [1,"a",null,true,false,{"b":[2]}] [[],[],[[]]] [1,1,1]
                       {"a":{"b":{"c":[{"d":null}]}}})");
}

TEST_F(JsonContract, ABooleanIsNotANumber) {
    EXPECT_EQ(rendered("[true,1,false,0,1.0,0.0]"), "[true,1,false,0,1,0]");
    EXPECT_EQ(rendered(R"({"a":true,"b":1})"), R"({"a":true,"b":1})");
}

TEST_F(JsonContract, IntegersUpTo53BitsAreExact) {
    expectUnchangedElements(
        "0 1 -1 10 127 128 255 256 32768 65536 2147483647 2147483648 -2147483648 -2147483649 "
        "4294967295 4294967296 1790000000123 9007199254740991 9007199254740992 "
        "-9007199254740991 -9007199254740992");
}

TEST_F(JsonContract, IntegersOf64BitsAreExact) {
    expectUnchangedElements(
        "9007199254740993 -9007199254740993 123456789012345678 1000000000000000000 "
        "9223372036854775806 9223372036854775807 -9223372036854775807 -9223372036854775808 "
        "9223372036854775808 10000000000000000000 18446744073709551614 18446744073709551615");
}

TEST_F(JsonContract, LargerIntegersAreRounded) {
    expectElements(
        "18446744073709551616 1.84467440737096e+19 -9223372036854775809 -9.22337203685478e+18 "
        "-18446744073709551615 -1.84467440737096e+19 100000000000000000000 1e+20 "
        "123456789012345678901234567890 1.23456789012346e+29");
}

TEST_F(JsonContract, FractionsAndExponentsAreRead) {
    expectElements(
        "1.5 1.5  -1.5 -1.5  0.1 0.1  0.25 0.25  123.456 123.456  3.14159 3.14159 "
        "17.0 17  1.7e1 17  170e-1 17  1E2 100  1E+2 100  1.0E+2 100  1e02 100  1e-2 0.01 "
        "1e-02 0.01  1e0 1  1e20 1e+20  -1e-7 -1e-07  0.000001 1e-06  1e-400 0 "
        "0.0 0  -0 0  -0.0 0  -0e1 0  0e0 0  0e+1 0  0E-1 0 "
        "1790000000.5 1790000000.5  0.1000000000 0.1");
}

TEST_F(JsonContract, ANumberTooLargeForADoubleMakesTheTextAbsent) {
    expectAbsentElements("1e400 -1e400 1e309 1.8e308 1E99999999999999999999");
    EXPECT_EQ(element(std::string(400, '9')), "absent");
}

TEST_F(JsonContract, MalformedNumbersAreAbsent) {
    expectAbsentElements(
        "00 01 -01 007 1. .5 -.5 . +1 - + --1 1e 1e+ 1E- e5 1.5e 0e 0.e 1.e1 2.e3 1.5. 1..5 1.5.5 "
        "1e1.5 1e5e5 0x1F 0b1 0o17 1_000 1,000.5. 1a -1x 1+1 1-1 1f 1L 1/2 1% \xEF\xBC\x91 "
        "NaN -NaN nan inf Inf Infinity -Infinity");
    expectEachAbsent({"[1 0]", "[- 1]", "[1e 5]", "[1 .5]"});
}

TEST_F(JsonContract, OtherWordsAreAbsent) {
    expectAbsentElements(
        "True TRUE tru truee true1 t fals falsee False nul nulll Null NULL nil none undefined yes "
        "no a truefalse null0 True() @true");
    expectEachAbsent({"[true false]", "[t rue]"});
}

TEST_F(JsonContract, BlanksAreAllowedBetweenTheParts) {
    for (const auto* text : {" [1,2]", "[1,2] ", "[ 1 , 2 ]", "\t[1,2]", "\n[1,2]\n",
                             "\r\n[1,2]\r\n", "[\n\t1\r,\n2 ]", "  \t\r\n [1,2]"}) {
        EXPECT_EQ(rendered(text), "[1,2]");
    }
    EXPECT_EQ(rendered(" { \"a\" : 1 ,\n\"b\"\t:\r[ ] } "), R"({"a":1,"b":[]})");
    EXPECT_EQ(rendered("[ ]"), "[]");
    EXPECT_EQ(rendered("{\n}"), "{}");
    EXPECT_EQ(rendered(std::string(100'000, ' ') + "[]" + std::string(100'000, '\n')), "[]");
}

TEST_F(JsonContract, OtherBlanksAreAbsent) {
    expectEachAbsent({"\f[1]",     "[\f1]",      "[1]\f",         "\v[1]",     "[1\v]",
                      "\u00a0[1]", "[\u00a01]",  "[1]\u00a0",     "[\u20281]", "[\u30001]",
                      "[1\u0085]", "[\b1]",      "[\0]"sv,        "[1]\0"sv,   "\0[1]"sv,
                      "[1\0]"sv,   "[1]\0[2]"sv, "{\"a\"\0:1}"sv, "[\u2060]",  "[\x7f]",
                      "[\x1f]"});
}

TEST_F(JsonContract, ATextThatIsNeitherAnArrayNorAnObjectIsAbsent) {
    expectEachAbsent({"",    " ",     "\n\n", "null", "true", "false", "0",   "17",
                      "1.5", "\"a\"", "\"\"", " 5 ",  "a",    "'a'",   ",",   ":",
                      "-",   "\"",    "\\",   "\0"sv, "()",   "<a/>",  "a=1", "\"[]\""});
}

TEST_F(JsonContract, MalformedArraysAreAbsent) {
    expectAbsent(
        R"([ ] [1 [1, [1,] [,] [,1] [1,,2] [, [1;2] [[] []] [1]] [1} [} [[1] ["a":1] [1:2] ["a] [a]
           ['a'] ["a'] ['a"] [1]2 [1][2] [1], [1]"" []{} []// [1],[2] (1) [1) [...] [1...2])");
    expectEachAbsent(
        {"[1 2]", R"(["a" "b"])", "[1] x", "[1 , , 2]", "[\"a\",\n4\n,1,", "[1]\n[2]"});
}

TEST_F(JsonContract, MalformedObjectsAreAbsent) {
    expectAbsent(
        R"({ } {] {"a":1] {"a"} {"a":} {"a":1 {"a":1, {"a":1,} {,} {,"a":1} {"a":1,,"b":2} {"a"::1}
           {"a",1} {"a"=1} {"a";1} {a:1} {'a':1} {1:1} {1.5:1} {null:1} {true:1} {[]:1} {{}:1}
           {"a":1:2} {:1} {:} {"a":"b} {"a:1} {"a":1;} {"a":'b'} {"a":b} {"a":1}} {}[] {}{}
           {}} {"a":{} {"a":[} {"a":[1} {"\a":1} {...} {"a":1,"b"} {"a":1]})");
    expectEachAbsent({R"({"a" 1})", R"({"a":1 "b":2})", R"({"a" "b"})", "{\"\n\":1}", "{} 1"});
}

TEST_F(JsonContract, CommentsAreAbsent) {
    expectAbsent(R"([/**/1] [1/**/] [1]//a {/**/} {"a"/**/:1} {"a":/**/1} /[1] [1]/ <!----!>[1])");
    expectEachAbsent({"/* a */[1]", "[1]/* a */", "// a\n[1]", "[1]// a", "[1 // a\n]", "# a\n[1]",
                      "[1]# a", "[1 # a\n]", "-- a\n[1]", "{\"a\":1// b\n}"});
}

TEST_F(JsonContract, OfMembersWithTheSameNameOneRemains) {
    EXPECT_THAT(rendered(R"({"a":1,"a":2})"), testing::AnyOf(R"({"a":1})", R"({"a":2})"));
    EXPECT_THAT(rendered(R"({"a":1,"\u0061":2})"), testing::AnyOf(R"({"a":1})", R"({"a":2})"));
    EXPECT_THAT(rendered(R"({"a":[],"b":3,"a":[]})"), R"({"a":[],"b":3})");
}

TEST_F(JsonContract, ManyElementsAndMembersAreDecoded) {
    constexpr std::size_t count = 2'000;
    std::string elements;
    std::string members;
    for (std::size_t i = 0; i < count; ++i) {
        elements += std::to_string(i) + ',';
        members += "\"m" + std::to_string(i) + "\":" + std::to_string(i) + ',';
    }
    elements.back() = ']';
    members.back() = '}';
    EXPECT_EQ(rendered('[' + elements), '[' + elements);
    const auto object = json.decoded('{' + members);
    ASSERT_TRUE(object);
    EXPECT_EQ(std::get<JsonValue::Object>(object->value).size(), count);
}

TEST_F(JsonContract, NestingIsLimited) {
    const auto repeated = [](std::string_view part, std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) text += part;
        return text;
    };
    const auto arrays = [&](std::size_t levels) {
        return std::string(levels, '[') + std::string(levels, ']');
    };
    const auto objects = [&](std::size_t levels) {
        return repeated("{\"a\":", levels - 1) + "{}" + std::string(levels - 1, '}');
    };
    const auto mixed = [&](std::size_t levels) {
        return repeated("[{\"a\":", levels / 2) + '0' + repeated("}]", levels / 2);
    };
    for (const std::size_t levels : {1U, 2U, 100U, 511U, 512U}) {
        EXPECT_EQ(rendered(arrays(levels)), arrays(levels));
        EXPECT_EQ(rendered(objects(levels)), objects(levels));
    }
    EXPECT_EQ(rendered(mixed(512)), mixed(512));
    EXPECT_EQ(rendered('[' + arrays(511) + ',' + arrays(511) + ']'),
              '[' + arrays(511) + ',' + arrays(511) + ']');
    for (const std::size_t levels : {513U, 514U, 1000U, 100'000U}) {
        EXPECT_EQ(rendered(arrays(levels)), "absent") << levels;
        EXPECT_EQ(rendered(objects(levels)), "absent") << levels;
        EXPECT_EQ(rendered(mixed(levels + 1)), "absent") << levels;
        EXPECT_EQ(rendered(std::string(levels, '[')), "absent") << levels;
        EXPECT_EQ(rendered(repeated("{\"a\":", levels)), "absent") << levels;
        EXPECT_EQ(rendered(repeated("[{\"a\":", levels)), "absent") << levels;
    }
    for (const auto* unclosed : {"[", "{\"a\":", "[{\"a\":"}) {
        EXPECT_EQ(rendered(repeated(unclosed, 200)), "absent");
    }
}

}  // namespace
}  // namespace stagehopper
