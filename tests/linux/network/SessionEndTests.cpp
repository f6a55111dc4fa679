// Sessions that end while much is under way.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <pthread.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <set>
#include <thread>

#include "ports/linux/network/BeastUrlSession.h"
#include "tests/drivers/desktop/WaitFor.h"
#include "tests/drivers/servers/LoopbackServer.h"
#include "tests/linux/network/Outcomes.h"
#include "tests/linux/network/QuietServers.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using linux_port::BeastUrlSession;
using testing::IsEmpty;

/// The files that this program has open, by their number.
std::set<int> openFiles() {
    std::set<int> numbers;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        numbers.insert(std::stoi(entry.path().filename().string()));
    }
    // The listing itself has been one of them.
    std::erase_if(numbers, [](int number) { return ::fcntl(number, F_GETFD) < 0; });
    return numbers;
}

TEST(SessionEnd, WithoutAnyUseIsHarmless) {
    const BeastUrlSession session;
}

TEST(SessionThread, StartsBeforeTheFirstRequestSoThatNoRequestFailsWithoutIt) {
    const LoopbackServer server([](Peer& peer) {
        peer.readRequest();
        peer.send("HTTP/1.1 204 No Content\r\n\r\n");
    });
    BeastUrlSession session;
    Outcomes outcomes;
    pthread_attr_t usual;
    pthread_attr_t impossible;
    ASSERT_EQ(::pthread_getattr_default_np(&usual), 0);
    ASSERT_EQ(::pthread_getattr_default_np(&impossible), 0);
    // No memory is large enough for such a stack: no thread can be started.
    constexpr std::size_t tooLarge = std::size_t{1} << 46U;
    ASSERT_EQ(::pthread_attr_setstacksize(&impossible, tooLarge), 0);
    ASSERT_EQ(::pthread_setattr_default_np(&impossible), 0);
    EXPECT_NO_THROW(session.startDataTask("http://" + server.authority() + "/", outcomes.data()));
    ASSERT_EQ(::pthread_setattr_default_np(&usual), 0);
    EXPECT_THAT(outcomes.first(1), testing::ElementsAre("204 "));
}

TEST(SessionEnd, DropsPendingWorkAndLeavesTheServers) {
    SilentServer silent;
    DeafServer deaf;
    Outcomes outcomes;
    std::optional<BeastUrlSession> session(std::in_place);
    const auto connecting = session->makeWebSocketTask("ws://localhost:1/ws");
    const auto shaking = session->makeWebSocketTask("ws://" + silent.server.authority() + "/ws");
    const auto open = session->makeWebSocketTask("ws://" + deaf.server.authority() + "/ws");
    const auto canceled = session->makeWebSocketTask("ws://" + deaf.server.authority() + "/ws");
    for (const auto& task : {shaking, open, canceled}) {
        task->resume();
        // One for the greeting, and one that stays.
        for (int i = 0; i < 2; ++i) task->receive(outcomes.message());
        task->sendPing(outcomes.pong());
    }
    const CrowdedPort crowded;
    session->startDataTask("http://" + crowded.authority() + "/", outcomes.data());
    for (int i = 0; i < 3; ++i) {
        session->startDataTask("http://" + silent.server.authority() + "/", outcomes.data());
    }
    ASSERT_TRUE(outcomes.lines().await(2));
    ASSERT_TRUE(deaf.frames.await(2));
    ASSERT_TRUE(silent.asked.await(4));
    connecting->resume();
    session->startDataTask("http://nobody.invalid/", outcomes.data());
    canceled->cancel(1001);

    session.reset();
    const auto atTheEnd = outcomes.lines().size();

    EXPECT_TRUE(silent.left.await(4));
    ASSERT_TRUE(deaf.frames.await(6));
    EXPECT_THAT(deaf.frames.all(), testing::UnorderedElementsAre("frame 9", "frame 9", "close 1001",
                                                                 "close 1001", "end", "end"));
    EXPECT_EQ(outcomes.lines().size(), atTheEnd);
}

TEST(SessionEnd, ATaskThatOutlivesTheSessionDoesNothing) {
    DeafServer deaf;
    Outcomes outcomes;
    std::shared_ptr<platform::WebSocketTask> task;
    {
        BeastUrlSession session;
        task = session.makeWebSocketTask("ws://" + deaf.server.authority() + "/ws");
    }
    task->resume();
    task->receive(outcomes.message());
    task->sendPing(outcomes.pong());
    task->cancel(1000);
    task.reset();
    EXPECT_THAT(outcomes.lines().all(), IsEmpty());
    EXPECT_THAT(deaf.frames.all(), IsEmpty());
}

TEST(SessionEnd, LeavesNoFileOpenAndLetsNoChildInheritOne) {
    const auto before = openFiles();
    {
        DeafServer deaf;
        SilentServer silent;
        BeastUrlSession session;
        Outcomes outcomes;
        const auto task = session.makeWebSocketTask("ws://" + deaf.server.authority() + "/ws");
        task->resume();
        task->receive(outcomes.message());
        session.startDataTask("http://" + silent.server.authority() + "/", outcomes.data());
        ASSERT_TRUE(outcomes.lines().await(1));
        ASSERT_TRUE(silent.asked.await(1));
        for (const int number : openFiles()) {
            if (before.contains(number)) continue;
            EXPECT_NE(::fcntl(number, F_GETFD) & FD_CLOEXEC, 0) << number;
        }
    }
    // A look-up of a host by another test may still have a file open for a moment.
    EXPECT_TRUE(desktop::waitFor([&] { return std::ranges::includes(before, openFiles()); }, 10s));
}

TEST(SessionEnd, MayFollowTheFirstUseAtOnce) {
    DeafServer deaf;
    // Each time at another point of the connection's beginning.
    for (int i = 0; i < 200; ++i) {
        BeastUrlSession session;
        Outcomes outcomes;
        const auto task = session.makeWebSocketTask("ws://" + deaf.server.authority() + "/ws");
        task->resume();
        task->receive(outcomes.message());
        task->sendPing(outcomes.pong());
        if (i % 4 == 1) task->cancel(1001);
        if (i % 4 >= 2) {
            ASSERT_TRUE(outcomes.lines().await(1));
        }
        if (i % 4 == 3) task->cancel(1001);
        session.startDataTask("http://" + deaf.server.authority() + "/", outcomes.data());
    }
}

TEST(SessionEndDeathTest, AnExceptionFromACompletionEndsTheProgramWithItsMessage) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            BeastUrlSession session;
            session.startDataTask("no address", [](const platform::DataResult&) {
                throw std::runtime_error("out of paper");
            });
            Collected<int> never;
            (void)never.await(1);
        },
        "out of paper");
}

}  // namespace
}  // namespace stagehopper
