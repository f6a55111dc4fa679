#include "slidechannel/SlideSocketUrl.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

constexpr auto* query =
    "?roomCode=AB12&userId=overlay-native-3F2A9C1B&role=guest&displayName=overlay-native&"
    "cursorColor=%23000000";

std::string urlOf(std::string_view server, std::string_view room = "AB12") {
    return slideSocketUrl(server, room, "overlay-native-3F2A9C1B").value_or("none");
}

TEST(SlideSocketUrl, HasThePathAndTheFiveItemsInOrder) {
    EXPECT_EQ(urlOf("http://127.0.0.1:3000"), std::string("ws://127.0.0.1:3000/ws") + query);
}

TEST(SlideSocketUrl, HttpsBecomesWss) {
    EXPECT_EQ(urlOf("https://127.0.0.1:3000"), std::string("wss://127.0.0.1:3000/ws") + query);
}

TEST(SlideSocketUrl, SocketSchemesAreNotChanged) {
    EXPECT_EQ(urlOf("ws://127.0.0.1:3000"), std::string("ws://127.0.0.1:3000/ws") + query);
    EXPECT_EQ(urlOf("wss://h"), std::string("wss://h/ws") + query);
}

TEST(SlideSocketUrl, TheServersPathPrecedesTheSuffix) {
    EXPECT_EQ(urlOf("ws://h/x"), std::string("ws://h/x/ws") + query);
    EXPECT_EQ(urlOf("http://h/"), std::string("ws://h//ws") + query);
    EXPECT_EQ(urlOf("ws://h/ws"), std::string("ws://h/ws/ws") + query);
}

TEST(SlideSocketUrl, TheServersQueryIsReplaced) {
    EXPECT_EQ(urlOf("http://h?token=1"), std::string("ws://h") + query);
    EXPECT_EQ(urlOf("http://h/p?a=b"), std::string("ws://h/p") + query);
}

TEST(SlideSocketUrl, ReplacesTheSchemeInEveryPlace) {
    EXPECT_EQ(urlOf("http://h/http://g"), std::string("ws://h/ws://g/ws") + query);
}

TEST(SlideSocketUrl, SchemesAreComparedExactly) {
    EXPECT_EQ(urlOf("HTTP://h"), std::string("HTTP://h/ws") + query);
    EXPECT_EQ(urlOf("WS://h"), std::string("WS://h/ws") + query);
}

TEST(SlideSocketUrl, AFragmentFollowsTheQuery) {
    EXPECT_EQ(urlOf("http://h#part"), std::string("ws://h") + query + "#part/ws");
    EXPECT_EQ(urlOf("http://h/p?a=b#c?d"), std::string("ws://h/p") + query + "#c?d/ws");
}

TEST(SlideSocketUrl, AValidUrlNeedNotBeReachable) {
    EXPECT_EQ(urlOf("http://h:65536"), std::string("ws://h:65536/ws") + query);
    EXPECT_EQ(urlOf("http://:3000"), std::string("ws://:3000/ws") + query);
    EXPECT_EQ(urlOf("http://"), std::string("ws:///ws") + query);
    EXPECT_EQ(urlOf("ftp://h"), std::string("ftp://h/ws") + query);
    EXPECT_EQ(urlOf("localhost:3000"), std::string("localhost:3000/ws") + query);
    EXPECT_EQ(urlOf("h"), std::string("h/ws") + query);
    EXPECT_EQ(urlOf(""), std::string("/ws") + query);
}

TEST(SlideSocketUrl, AnAddressMayHaveAZone) {
    EXPECT_EQ(urlOf("http://[fe80::1%25eth0]:3000"),
              std::string("ws://[fe80::1%25eth0]:3000/ws") + query);
    EXPECT_EQ(urlOf("http://[fe80::1%eth0]"), std::string("ws://[fe80::1%25eth0]/ws") + query);
}

TEST(SlideSocketUrl, CharactersBeyondAsciiAreEscaped) {
    EXPECT_EQ(urlOf("http://会/议"), std::string("ws://%E4%BC%9A/%E8%AE%AE/ws") + query);
}

TEST(SlideSocketUrl, TheRoomIsPercentEncoded) {
    const auto room = [](std::string_view code) {
        const auto url = urlOf("http://h", code);
        const auto start = url.find('=') + 1;
        return url.substr(start, url.find("&userId") - start);
    };
    EXPECT_EQ(room("A B"), "A%20B");
    EXPECT_EQ(room("A&B=C#D"), "A%26B%3DC%23D");
    EXPECT_EQ(room("100%"), "100%25");
    EXPECT_EQ(room("会议"), "%E4%BC%9A%E8%AE%AE");
    EXPECT_EQ(room("a|\"<>\\^`{}[]"), "a%7C%22%3C%3E%5C%5E%60%7B%7D%5B%5D");
    EXPECT_EQ(room("-._~!$'()*+,:@/?"), "-._~!$'()*+,:@/?");
    EXPECT_EQ(room(std::string_view("\n\0", 2)), "%0A%00");
    EXPECT_EQ(room(""), "");
}

TEST(SlideSocketUrl, PortsAddressesAndUsersAreAccepted) {
    for (const char* server : {"http://[::1]:3000", "http://user:pass@h:1",
                               "http://h:", "http://h:65535", "http://a.b-c_d~e", "http://%41"}) {
        EXPECT_NE(urlOf(server), "none") << server;
    }
}

TEST(SlideSocketUrl, AnInvalidUrlIsAbsent) {
    for (const char* server : {"127.0.0.1:3000",
                               "1http://h",
                               ":h",
                               "no url",
                               "http://h:1x",
                               "http://h:-1",
                               "http://a b",
                               "http://h/a b",
                               "http://h/%",
                               "http://h/%4",
                               "http://h/%zz",
                               "http://h/<>",
                               "http://h/\xFF",
                               "http://a@b@c",
                               "http://[fe80::1%]",
                               "http://[fe80::1% ]",
                               "http://[::1",
                               "http://[]",
                               "http://[::1]x",
                               "http://[xyz]",
                               "http://h?a b",
                               "http://h?%",
                               "\nhttp://h",
                               "http://h\n"}) {
        EXPECT_EQ(urlOf(server), "none") << server;
    }
}

}  // namespace
}  // namespace stagehopper
