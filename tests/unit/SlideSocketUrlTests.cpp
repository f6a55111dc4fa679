#include "slidechannel/SlideSocketUrl.h"

#include <gtest/gtest.h>

#include <utility>

namespace stagehopper {
namespace {

constexpr auto* query =
    "?roomCode=AB12&userId=overlay-native-3F2A9C1B&role=guest&displayName=overlay-native&"
    "cursorColor=%23000000";

std::string urlOf(std::string_view server, std::string_view room = "AB12") {
    return slideSocketUrl(server, room, "overlay-native-3F2A9C1B").value_or("none");
}

TEST(SlideSocketUrl, HasTheServersSchemeAndPathThenTheFiveItemsInOrder) {
    const std::pair<const char*, const char*> cases[] = {
        {"http://127.0.0.1:3000", "ws://127.0.0.1:3000/ws"},
        {"https://127.0.0.1:3000", "wss://127.0.0.1:3000/ws"},
        {"ws://127.0.0.1:3000", "ws://127.0.0.1:3000/ws"},
        {"wss://h", "wss://h/ws"},
        // The server's path precedes the suffix.
        {"ws://h/x", "ws://h/x/ws"},
        {"http://h/", "ws://h//ws"},
        {"ws://h/ws", "ws://h/ws/ws"},
        // Its query is replaced.
        {"http://h?token=1", "ws://h"},
        {"http://h/p?a=b", "ws://h/p"},
        // The scheme is replaced in every place, and compared exactly.
        {"http://h/http://g", "ws://h/ws://g/ws"},
        {"HTTP://h", "HTTP://h/ws"},
        {"WS://h", "WS://h/ws"},
        // A valid URL need not be reachable.
        {"http://h:65536", "ws://h:65536/ws"},
        {"http://:3000", "ws://:3000/ws"},
        {"http://", "ws:///ws"},
        {"ftp://h", "ftp://h/ws"},
        {"localhost:3000", "localhost:3000/ws"},
        {"h", "h/ws"},
        {"", "/ws"},
        // An address may have a zone; characters beyond ASCII are escaped.
        {"http://[fe80::1%25eth0]:3000", "ws://[fe80::1%25eth0]:3000/ws"},
        {"http://[fe80::1%eth0]", "ws://[fe80::1%25eth0]/ws"},
        {"http://会/议", "ws://%E4%BC%9A/%E8%AE%AE/ws"},
    };
    for (const auto& [server, expected] : cases) {
        EXPECT_EQ(urlOf(server), std::string(expected) + query) << server;
    }
}

TEST(SlideSocketUrl, AFragmentFollowsTheQuery) {
    EXPECT_EQ(urlOf("http://h#part"), std::string("ws://h") + query + "#part/ws");
    EXPECT_EQ(urlOf("http://h/p?a=b#c?d"), std::string("ws://h/p") + query + "#c?d/ws");
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
