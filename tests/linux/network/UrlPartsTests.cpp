// What a client makes of an address.

#include "ports/linux/network/UrlParts.h"

#include <gmock/gmock.h>

namespace stagehopper::linux_port {
namespace {

std::string line(const char* url) {
    const auto parts = splitUrl(url);
    if (!parts) return "none";
    return parts->scheme + " " + parts->host + " " + parts->port + " " + parts->target + " " +
           parts->authority();
}

struct Row {
    const char* url;
    const char* parts;
};

class UrlPartsTable : public testing::TestWithParam<Row> {};

TEST_P(UrlPartsTable, IsReadAsWritten) {
    EXPECT_EQ(line(GetParam().url), GetParam().parts);
}

INSTANTIATE_TEST_SUITE_P(
    GoodOnes, UrlPartsTable,
    testing::Values(
        Row{"http://127.0.0.1:3000/health", "http 127.0.0.1 3000 /health 127.0.0.1:3000"},
        Row{"http://127.0.0.1", "http 127.0.0.1 80 / 127.0.0.1"},
        Row{"http://host:80/", "http host 80 / host"},
        Row{"http://host:/a", "http host 80 /a host"},
        Row{"HTTPS://Host/a", "https Host 443 /a Host"},
        Row{"ws://h:3001/ws?roomCode=A%20B&x=", "ws h 3001 /ws?roomCode=A%20B&x= h:3001"},
        Row{"wss://h", "wss h 443 / h"}, Row{"ws://h?x=1", "ws h 80 /?x=1 h"},
        Row{"http://h/a#part", "http h 80 /a h"}, Row{"http://h#part", "http h 80 / h"},
        Row{"http://me:secret@h/a", "http h 80 /a h"}, Row{"http://h/a@b:c", "http h 80 /a@b:c h"},
        Row{"http://[::1]:3000/a", "http ::1 3000 /a [::1]:3000"},
        Row{"http://[::1]", "http ::1 80 / [::1]"},
        Row{"ws://[fe80::1%25eth0]:3000/a", "ws fe80::1%eth0 3000 /a [fe80::1]:3000"}));

INSTANTIATE_TEST_SUITE_P(
    BadOnes, UrlPartsTable,
    testing::Values(Row{"", "none"}, Row{"no address", "none"}, Row{"127.0.0.1:3000", "none"},
                    Row{"ftp://h/", "none"}, Row{"http://", "none"}, Row{"http:///a", "none"},
                    Row{"http://:80/", "none"}, Row{"http://h:0/", "none"},
                    Row{"http://h:65536/", "none"}, Row{"http://h:8o/", "none"},
                    Row{"http://h:-1/", "none"}, Row{"http://[::1/", "none"},
                    Row{"http://[::1]3000/", "none"}, Row{"http://[]/", "none"},
                    Row{"http://h/a b", "none"}, Row{"http://h/\r\nCookie: x", "none"},
                    Row{"http://h\t/", "none"}));

}  // namespace
}  // namespace stagehopper::linux_port
