// Hostile input: against the log, the parsers and the limit of connections.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <regex>

#include "companion/backend/system/LocalAddresses.h"
#include "tests/companion/Room.h"

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class AbuseTest : public RoomTest {
protected:
    void expectServing() { EXPECT_EQ(request(port_, "GET", "/health").status, 200); }

    std::string host_ = "127.0.0.1:" + std::to_string(port_);
};

TEST_F(AbuseTest, AHeadRequestGetsNoBody) {
    RawClient client(port_);
    for (const char* path : {"/health", "/phone", "/nothing"}) {
        client.send("HEAD " + std::string(path) + " HTTP/1.1\r\nHost: " + host_ + "\r\n\r\n");
        const std::string answer = client.readUntil("\r\n\r\n", 5s);
        EXPECT_THAT(answer, testing::EndsWith("\r\n\r\n")) << path;
    }
    client.send("GET /health HTTP/1.1\r\nHost: " + host_ + "\r\n\r\n");
    EXPECT_THAT(client.readUntil("backend\"}", 5s), StartsWith("HTTP/1.1 200"));
}

TEST_F(AbuseTest, ASecretInAPathIsNotLogged) {
    for (const std::string mark : {"%23", "/", "?", "%2523"}) {
        EXPECT_NE(request(port_, "POST", "/phone" + mark + code_ + "." + secret_).status, 200);
        EXPECT_NE(request(port_, "GET", "/" + mark + secret_).status, 200);
    }
    EXPECT_NE(ownPageRequest(port_, "DELETE", "/v1/meetings/" + secret_).status, 204);
    backend_.terminate();
    ASSERT_EQ(backend_.exitStatus(5s), 0);
    EXPECT_THAT(backend_.log(), HasSubstr(" refused "));
    EXPECT_THAT(backend_.log(), Not(HasSubstr(secret_)));
}

TEST_F(AbuseTest, AThousandRefusedRequestsCauseOneLogLineASecondAndAreCounted) {
    const auto begin = std::chrono::steady_clock::now();
    RawClient client(port_);
    for (int i = 0; i < 1000; ++i) {
        client.send("GET /nothing HTTP/1.1\r\nHost: " + host_ + "\r\n\r\n");
        ASSERT_THAT(client.readUntil("such thing\"}", 5s), StartsWith("HTTP/1.1 404"));
    }
    backend_.terminate();
    ASSERT_EQ(backend_.exitStatus(5s), 0);
    const auto seconds =
        std::chrono::ceil<std::chrono::seconds>(std::chrono::steady_clock::now() - begin);

    const std::string log = backend_.log();
    const std::regex line("( refused )|left_out=([0-9]+)");
    int lines = 0;
    int leftOut = 0;
    for (std::sregex_iterator at(log.begin(), log.end(), line); at != std::sregex_iterator();
         ++at) {
        (*at)[1].matched ? ++lines : leftOut += std::stoi((*at)[2]);
    }
    EXPECT_LE(lines, seconds.count() + 1);
    EXPECT_EQ(lines + leftOut, 1000);
}

TEST_F(AbuseTest, DeeperNestingExceedsTheSizeLimit) {
    const std::string deep = std::string(100 * 1024, '[') + std::string(100 * 1024, ']');
    EXPECT_EQ(ownPageRequest(port_, "POST", "/v1/meetings", R"({"roomName":)" + deep + "}").status,
              413);
    RoomClient phone = join("phone-1");
    phone.send(R"({"type":)" + deep + "}");
    // The close code is not checked: the connection ends while the message is still being sent.
    EXPECT_TRUE(phone.closed(5s));
    expectServing();
}

/// A process of another user of this machine, which opens as many connections as it can.
class Crowder {
public:
    explicit Crowder(std::uint16_t port) {
        std::array<int, 2> done{};
        if (::pipe(done.data()) != 0) throw std::runtime_error("no pipe");
        id_ = ::fork();
        if (id_ < 0) throw std::runtime_error("no process");
        if (id_ == 0) {
            const rlimit files{4096, 4096};
            if (::setrlimit(RLIMIT_NOFILE, &files) != 0 || ::setuid(12345) != 0) ::_exit(1);
            takeAll(port);
            [[maybe_unused]] const ssize_t written = ::write(done[1], "x", 1);
            while (true) ::pause();
        }
        ::close(done[1]);
        char mark = 0;
        ready_ = ::read(done[0], &mark, 1) == 1;
        ::close(done[0]);
    }
    ~Crowder() {
        ::kill(id_, SIGKILL);
        ::waitpid(id_, nullptr, 0);
    }
    Crowder(const Crowder&) = delete;
    Crowder& operator=(const Crowder&) = delete;

    bool ready() const { return ready_; }

private:
    /// Connects from many addresses in 127.0.0.0/8.
    static void takeAll(std::uint16_t port) {
        for (std::uint32_t address = 1; address <= 20; ++address) {
            for (int i = 0; i < 70; ++i) {
                const int handle = ::socket(AF_INET, SOCK_STREAM, 0);
                sockaddr_in from{};
                from.sin_family = AF_INET;
                from.sin_addr.s_addr = htonl(0x7F000000 + address);
                sockaddr_in to = from;
                to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
                to.sin_port = htons(port);
                const auto* generic = reinterpret_cast<const sockaddr*>(&from);
                if (::bind(handle, generic, sizeof(from)) != 0) ::_exit(2);
                generic = reinterpret_cast<const sockaddr*>(&to);
                if (::connect(handle, generic, sizeof(to)) != 0) ::_exit(3);
            }
        }
    }

    pid_t id_ = 0;
    bool ready_ = false;
};

TEST_F(AbuseTest, AnotherUserOfThisMachineCannotLockOutItsPrograms) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs to become another user";
    const Crowder crowder(port_);
    ASSERT_TRUE(crowder.ready());
    expectServing();
    EXPECT_EQ(join("overlay-native-3F2A9C1B").status(), 101);
}

TEST_F(AbuseTest, AnotherUserOfThisMachineCannotLockOutPhones) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs to become another user";
    const auto addresses = likelyFirst(localAddresses());
    if (addresses.empty()) GTEST_SKIP() << "this machine has no network address";
    const Crowder crowder(port_);
    ASSERT_TRUE(crowder.ready());
    EXPECT_EQ(request(port_, "GET", "/phone", {}, {}, addresses.front()).status, 200);
}

}  // namespace
}  // namespace stagehopper::companion
