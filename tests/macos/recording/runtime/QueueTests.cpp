#include <unistd.h>

#include "ports/macos/cocoa/darwin/GrandCentralDispatch.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/runtime/RuntimeTest.h"

namespace stagehopper::recording {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Queues : public RuntimeTest {
protected:
    std::vector<std::string> happened_;
    void note(const std::string& what) { happened_.push_back(what + " on " + queues::current()); }
};

class Semaphore {
public:
    Semaphore() : semaphore_(cocoa::dispatch_semaphore_create(0)) {}
    ~Semaphore() {
        cocoa::dispatch_release(reinterpret_cast<cocoa::dispatch_object_t>(semaphore_));
    }
    Semaphore(const Semaphore&) = delete;
    Semaphore& operator=(const Semaphore&) = delete;

    void signal() { cocoa::dispatch_semaphore_signal(semaphore_); }
    bool wait(double seconds) {
        const auto nanoseconds = static_cast<std::int64_t>(seconds * 1e9);
        const auto until = cocoa::dispatch_time(cocoa::DISPATCH_TIME_NOW, nanoseconds);
        return cocoa::dispatch_semaphore_wait(semaphore_, until) == 0;
    }
    bool waitForever() { return cocoa::dispatch_semaphore_wait(semaphore_, ~0UL) == 0; }

private:
    cocoa::dispatch_semaphore_t semaphore_;
};

TEST_F(Queues, WorkRunsInTheOrderOfItsTimesAndOnItsQueue) {
    queues::after(2, "main", [this] { note("late"); });
    queues::after(1, "global default", [this] { note("early"); });
    queues::async("main", [this] { note("at once"); });
    queues::advance(1.5);
    EXPECT_THAT(happened_, ElementsAre("at once on main", "early on global default"));
    EXPECT_DOUBLE_EQ(queues::now(), 1.5);
    queues::advance(1);
    EXPECT_EQ(happened_.back(), "late on main");
}

TEST_F(Queues, DelayedWorkDoesNotRunWithoutTheClock) {
    queues::after(0.001, "main", [this] { note("later"); });
    queues::runUntilIdle();
    EXPECT_THAT(happened_, testing::IsEmpty());
}

TEST_F(Queues, CanceledWorkDoesNotRun) {
    queues::cancel(queues::after(1, "main", [this] { note("never"); }));
    queues::advance(2);
    EXPECT_THAT(happened_, testing::IsEmpty());
}

TEST_F(Queues, TheMainQueueGoesOnWhileAGlobalOneSleeps) {
    queues::async("global default", [this] {
        note("begins");
        usleep(500'000);
        note("wakes up");
    });
    queues::after(0.2, "main", [this] { note("meanwhile"); });
    queues::advance(1);
    EXPECT_THAT(happened_, ElementsAre("begins on global default", "meanwhile on main",
                                       "wakes up on global default"));
}

TEST_F(Queues, ASleepBeyondTheEndOfAnAdvanceContinuesLater) {
    queues::async("global default", [this] {
        usleep(900'000);
        note("wakes up");
    });
    queues::advance(0.5);
    EXPECT_THAT(happened_, testing::IsEmpty());
    queues::advance(0.5);
    EXPECT_THAT(happened_, ElementsAre("wakes up on global default"));
}

TEST_F(Queues, TheMainQueueRunsNothingDuringAWait) {
    Semaphore semaphore;
    queues::async("main", [this] { note("after the wait"); });
    queues::after(0.3, "session", [&] {
        note("answer");
        semaphore.signal();
    });
    EXPECT_TRUE(semaphore.wait(1));
    EXPECT_DOUBLE_EQ(queues::now(), 0.3);
    EXPECT_THAT(happened_, ElementsAre("answer on session"));
    queues::runUntilIdle();
    EXPECT_EQ(happened_.back(), "after the wait on main");
}

TEST_F(Queues, AWaitEndsBeforeALateSignal) {
    Semaphore semaphore;
    queues::inTheWorld(2, [&] { semaphore.signal(); });
    EXPECT_FALSE(semaphore.wait(1));
    EXPECT_DOUBLE_EQ(queues::now(), 1);
    EXPECT_TRUE(semaphore.wait(5));
    EXPECT_DOUBLE_EQ(queues::now(), 2);
}

TEST_F(Queues, AWaitOfTheMainThreadThatCanNeverEndIsAProblem) {
    Semaphore semaphore;
    EXPECT_FALSE(semaphore.waitForever());
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("can never come")));
}

TEST_F(Queues, ASerialQueueRunsOnePieceOfWorkAtATime) {
    queues::async("session", [this] {
        usleep(100'000);
        note("first");
    });
    queues::async("session", [this] { note("second"); });
    queues::async("global default", [] { usleep(100'000); });
    queues::advance(1);
    EXPECT_THAT(happened_, ElementsAre("first on session", "second on session"));
}

TEST_F(Queues, WorkOfAGlobalQueueHasNoPoolOfItsOwn) {
    queues::async("session", [] { static_cast<void>(Thing::make().detach().autorelease()); });
    queues::runUntilIdle();
    EXPECT_THAT(problems(), testing::IsEmpty());
    queues::async("global default",
                  [] { static_cast<void>(Thing::make().detach().autorelease()); });
    queues::runUntilIdle();
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("on queue \"global default\" without")));
}

TEST_F(Queues, RepeatedWorkMayCancelItself) {
    int rounds = 0;
    queues::Token token = 0;
    token = queues::repeat(1, [&] {
        if (++rounds == 3) queues::cancel(token);
    });
    queues::advance(10);
    EXPECT_EQ(rounds, 3);
}

TEST_F(Queues, RepeatedWorkLongerThanItsIntervalSkipsTimes) {
    std::vector<double> times;
    const auto token = queues::repeat(4, [&times] {
        times.push_back(queues::now());
        queues::waitUntil([] { return false; }, 18);
    });
    queues::advance(50);
    EXPECT_THAT(times, ElementsAre(4, 24, 44));
    queues::cancel(token);
}

TEST_F(Queues, TheSystemsFunctionsUseTheSameQueues) {
    static std::vector<std::string> where;
    where.clear();
    const auto work = [](void*) { where.push_back(queues::current()); };
    const auto soon = cocoa::dispatch_time(cocoa::DISPATCH_TIME_NOW, 350'000'000);
    cocoa::dispatch_after_f(soon, &_dispatch_main_q, nullptr, work);
    cocoa::dispatch_async_f(cocoa::dispatch_get_global_queue(cocoa::QOS_CLASS_USER_INITIATED, 0),
                            nullptr, work);
    queues::advance(1);
    EXPECT_THAT(where, ElementsAre("global user-initiated", "main"));
    EXPECT_THAT(journal().lines(), ElementsAre("dispatch_after_f(0.35 s, main)",
                                               "dispatch_async_f(global user-initiated)"));
}

TEST_F(Queues, AResetEndsWaitsAndDropsPendingWork) {
    queues::async("global default", [this] {
        usleep(900'000);
        note("ended");
    });
    queues::after(5, "main", [this] { note("never"); });
    queues::advance(0.1);
    queues::reset();
    EXPECT_THAT(happened_, ElementsAre("ended on global default"));
    queues::advance(10);
    EXPECT_EQ(happened_.size(), 1U);
}

TEST_F(Queues, ASemaphoreThatIsNotReleasedIsALeak) {
    const auto semaphore = cocoa::dispatch_semaphore_create(0);
    EXPECT_THAT(leaked(), ElementsAre("a semaphore"));
    cocoa::dispatch_release(reinterpret_cast<cocoa::dispatch_object_t>(semaphore));
}

}  // namespace
}  // namespace stagehopper::recording
