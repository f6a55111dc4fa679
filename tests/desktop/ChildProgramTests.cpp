// What a program that we start gets from us.

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

#include "tests/drivers/desktop/ChildProgram.h"

namespace stagehopper::desktop {
namespace {

constexpr std::chrono::seconds limit{10};

class Pair {
public:
    Pair() {
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends_.data()) != 0) abort();
    }
    ~Pair() {
        close(ends_[0]);
        close(ends_[1]);
    }
    Pair(const Pair&) = delete;
    Pair& operator=(const Pair&) = delete;

    [[nodiscard]] int handed() const { return ends_[1]; }
    /// What has come in, without waiting.
    [[nodiscard]] std::string received() const {
        std::array<char, 100> bytes{};
        const auto count = recv(ends_[0], bytes.data(), bytes.size(), MSG_DONTWAIT);
        return {bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
    }

private:
    std::array<int, 2> ends_{};
};

ChildOptions shell(const std::string& script, std::vector<HandedDescriptor> descriptors) {
    return {{"/bin/sh", "-c", script}, {"PATH=/usr/bin:/bin"}, "/", false, std::move(descriptors)};
}

TEST(ChildProgram, GetsEachDescriptorUnderItsNumberEvenWhereOursCrossThem) {
    const Pair one;
    const Pair two;
    // The shell knows one-digit numbers only.
    ASSERT_LT(two.handed(), 10);
    ChildProgram program(shell("echo first >&" + std::to_string(two.handed()) + "; echo second >&" +
                                   std::to_string(one.handed()),
                               {{one.handed(), two.handed()}, {two.handed(), one.handed()}}));
    ASSERT_EQ(program.waitForExit(limit), 0) << program.output().text();
    EXPECT_EQ(one.received(), "first\n");
    EXPECT_EQ(two.received(), "second\n");
}

TEST(ChildProgram, GetsNoDescriptorThatItIsNotHanded) {
    const Pair pair;
    ASSERT_LT(pair.handed(), 10);
    const auto script = "echo word >&" + std::to_string(pair.handed());
    ChildProgram without(shell(script, {}));
    EXPECT_NE(without.waitForExit(limit), 0);
    EXPECT_EQ(pair.received(), "");
    ChildProgram with(shell(script, {{pair.handed(), pair.handed()}}));
    EXPECT_EQ(with.waitForExit(limit), 0);
    EXPECT_EQ(pair.received(), "word\n");
}

}  // namespace
}  // namespace stagehopper::desktop
