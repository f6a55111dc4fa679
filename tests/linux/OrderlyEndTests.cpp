// Which objects are destroyed when the program ends, and which are kept while they are in use.

#include "ports/linux/system/OrderlyEnd.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <latch>
#include <utility>

#include "ports/linux/glib/GlibDispatch.h"
#include "ports/linux/processes/LinuxChildProcesses.h"

namespace stagehopper::linux_port {
namespace {

constexpr int asAsked = 7;
constexpr int sessionWentFirst = 8;

/// A session whose end is seen.
class Session final : public platform::UrlSession {
public:
    explicit Session(std::function<void()> atEnd) : atEnd_(std::move(atEnd)) {}
    ~Session() override { atEnd_(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    void startDataTask(const std::string& /*url*/,
                       std::function<void(platform::DataResult)> /*completion*/) override {}
    std::shared_ptr<platform::WebSocketTask> makeWebSocketTask(
        const std::string& /*url*/) override {
        return nullptr;
    }

private:
    std::function<void()> atEnd_;
};

/// As when the wait for a backend is between two probes: it will use the session again.
[[noreturn]] void endWhileAGlobalTaskRuns() {
    GlibDispatch dispatch;
    LinuxChildProcesses processes;
    std::latch running(1);
    std::latch never(1);
    dispatch.asyncGlobal(platform::QualityOfService::userInitiated, [&] {
        running.count_down();
        never.wait();
    });
    running.wait();
    dispatch.close();
    std::unique_ptr<platform::KeyboardEvents> keyboard;
    endOrderly(dispatch, processes, std::make_unique<Session>([] { std::_Exit(sessionWentFirst); }),
               keyboard, asAsked);
    std::abort();
}

TEST(OrderlyEnd, LeavesTheSessionInItsPlaceWhileAGlobalTaskRuns) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(endWhileAGlobalTaskRuns(), testing::ExitedWithCode(asAsked), "");
}

TEST(OrderlyEnd, TakesTheSessionAwayWhenNothingRuns) {
    GlibDispatch dispatch;
    LinuxChildProcesses processes;
    dispatch.close();
    bool sessionIsGone = false;
    std::unique_ptr<platform::KeyboardEvents> keyboard;
    endOrderly(dispatch, processes,
               std::make_unique<Session>([&sessionIsGone] { sessionIsGone = true; }), keyboard,
               asAsked);
    EXPECT_TRUE(sessionIsGone);
}

}  // namespace
}  // namespace stagehopper::linux_port
