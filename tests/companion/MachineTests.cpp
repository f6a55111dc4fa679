// The backend's view of the machine: addresses, users, random text, its parent.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <set>

#include "companion/backend/room/Names.h"
#include "companion/backend/room/RandomText.h"
#include "companion/backend/system/LocalAddresses.h"
#include "companion/backend/system/LoopbackUser.h"
#include "companion/backend/system/ParentProcess.h"

namespace stagehopper::companion {
namespace {

using testing::ElementsAre;

TEST(LocalAddresses, TheAddressThatAPhoneReachesComesFirst) {
    EXPECT_THAT(likelyFirst({{"docker0", "172.17.0.1"},
                             {"wg0", "10.8.0.2", true},
                             {"eth1", "203.0.113.9"},
                             {"eth2", "169.254.3.4"},
                             {"eth0", "10.1.2.3"},
                             {"br-4f2", "192.168.49.1"},
                             {"eth3", "172.20.0.7"},
                             {"wlan0", "192.168.1.5"}}),
                ElementsAre("192.168.1.5", "10.1.2.3", "172.20.0.7", "203.0.113.9", "169.254.3.4",
                            "192.168.49.1", "10.8.0.2", "172.17.0.1"));
}

TEST(LocalAddresses, DuplicatesAreRemoved) {
    EXPECT_THAT(likelyFirst({{"eth0", "10.0.0.1"}, {"eth0:1", "10.0.0.1"}}),
                ElementsAre("10.0.0.1"));
}

TEST(LocalAddresses, LoopbackAddressesAreLeftOut) {
    for (const LocalAddress& local : localAddresses()) {
        EXPECT_FALSE(local.address.starts_with("127.")) << local.interfaceName;
    }
}

TEST(LoopbackUser, FindsTheUserWhoOpenedAConnection) {
    sockaddr_in server{};
    server.sin_family = AF_INET;
    server.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* address = reinterpret_cast<sockaddr*>(&server);
    socklen_t size = sizeof(server);
    const int listening = ::socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(listening, address, size), 0);
    ASSERT_EQ(::listen(listening, 1), 0);
    ASSERT_EQ(::getsockname(listening, address, &size), 0);
    const int opened = ::socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(::connect(opened, address, size), 0);
    sockaddr_in client{};
    ASSERT_EQ(::getsockname(opened, reinterpret_cast<sockaddr*>(&client), &size), 0);

    const LoopbackConnection connection{.fromAddress = INADDR_LOOPBACK,
                                        .fromPort = ntohs(client.sin_port),
                                        .toAddress = INADDR_LOOPBACK,
                                        .toPort = ntohs(server.sin_port)};
    EXPECT_EQ(userOf(connection), ::geteuid());
    LoopbackConnection unknown = connection;
    unknown.toPort = unknown.fromPort;
    EXPECT_FALSE(userOf(unknown));
    ::close(opened);
    ::close(listening);
}

TEST(RandomText, CodesAndSecretsAreValidAndDiffer) {
    std::set<std::string> secrets;
    std::set<char> letters;
    for (int i = 0; i < 500; ++i) {
        const std::string code = randomRoomCode();
        EXPECT_TRUE(isRoomCode(code)) << code;
        letters.insert(code.begin(), code.end());
        const std::string secret = randomSecret();
        EXPECT_EQ(secret.size(), 22U);
        secrets.insert(secret);
    }
    EXPECT_EQ(secrets.size(), 500U);
    EXPECT_EQ(letters.size(), roomCodeAlphabet.size()) << "every letter occurs";
}

TEST(RandomText, WholeSecretsAreCompared) {
    EXPECT_TRUE(secretsEqual("abc", "abc"));
    EXPECT_FALSE(secretsEqual("abd", "abc"));
    EXPECT_FALSE(secretsEqual("xbc", "abc"));
    EXPECT_FALSE(secretsEqual("ab", "abc"));
    EXPECT_FALSE(secretsEqual("", "abc"));
}

TEST(ParentProcess, IsGoneOnlyWhenNoProcessHasItsId) {
    EXPECT_FALSE(ParentProcess(::getppid()).isGone()) << "our parent";
    EXPECT_FALSE(ParentProcess(1).isGone()) << "a process of another user, which we may not signal";
    EXPECT_TRUE(ParentProcess(2147483647).isGone()) << "no such process";
}

}  // namespace
}  // namespace stagehopper::companion
