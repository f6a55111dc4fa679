// The real program and its backend: found, started, kept running, stopped, and gone at the end.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>

#include "tests/desktop/FaultyBackend.h"
#include "tests/desktop/KeptDebugLog.h"
#include "tests/desktop/RemotePanel.h"
#include "tests/drivers/desktop/Processes.h"

namespace stagehopper::desktop {
namespace {

using namespace std::chrono_literals;

constexpr const char* backendName = "StagehopperBackend-arm64";
constexpr std::chrono::seconds limit{15};

/// A program that answers /health takes the place of the backend: no other is started.
class Backend : public testing::Test {
protected:
    std::filesystem::path pages() {
        if (pages_.empty()) pages_ = writeRemotePage(desktop_);
        return pages_;
    }
    /// Puts a script in the backend's place.
    void installScript(const std::string& script) {
        const auto file = pages() / backendName;
        std::ofstream(file) << "#!/bin/sh\n" << script << '\n';
        chmod(file.c_str(), 0755);
    }
    void installRealBackend() {
        std::filesystem::copy_file(programFolder() / "Resources" / backendName,
                                   pages() / backendName);
    }
    std::unique_ptr<DrivenProgram> start() {
        return std::make_unique<DrivenProgram>(desktop_, pages());
    }
    /// The backends that were started on this desktop and still run. One that was started this
    /// moment may not be among them yet: the system names a program a little after it starts it.
    std::vector<pid_t> backends() {
        std::vector<pid_t> found;
        for (const auto process : processesWithEnvironment(desktop_.folder().native())) {
            if (programName(process).starts_with("StagehopperBack")) found.push_back(process);
        }
        return found;
    }
    /// Waits until there is one backend, and no other; 0 when that does not come.
    pid_t onlyBackend() {
        std::vector<pid_t> found;
        const auto isOne = [&] { return (found = backends()).size() == 1; };
        return waitFor(isOne, limit) ? found.front() : 0;
    }
    void expectGoodEnd(DrivenProgram& driven) {
        desktop_.windows().requestClose(driven.panel());
        EXPECT_EQ(driven.program().waitForExit(limit), 0) << driven.output();
        EXPECT_TRUE(backends().empty());
    }

    KeptDebugLog keptLog_;
    VirtualDesktop desktop_;
    std::filesystem::path pages_;
};

TEST_F(Backend, OneThatHangsBlocksNothingAndIsEndedAtQuit) {
    installScript("exec sleep 1000");
    const auto driven = start();
    ASSERT_TRUE(driven->logs("(attempt 1/3)", 0, limit));
    ASSERT_TRUE(driven->logs("no_auto_prompts", 0, limit));
    EXPECT_TRUE(driven->logs("the page listens", 0, limit));
    expectGoodEnd(*driven);
    for (const auto process : processesWithEnvironment(desktop_.folder().native())) {
        EXPECT_NE(programName(process), "sleep");
    }
}

TEST_F(Backend, AHealthyServerElsewhereInTheRangeIsUsedInstead) {
    const FaultyBackend other(3007);
    installRealBackend();
    const auto driven = start();
    ASSERT_TRUE(driven->logs("no_auto_prompts", 0, limit));
    EXPECT_TRUE(driven->logs("native_ws_connecting room=AB12CD reason=active_discovery", 0, limit));
    EXPECT_EQ(driven->program().output().count("bundled backend"), 0U) << driven->output();
    EXPECT_TRUE(backends().empty());
    expectGoodEnd(*driven);
}

TEST_F(Backend, AKilledOneIsStartedAgain) {
    installRealBackend();
    const auto driven = start();
    ASSERT_TRUE(driven->logs("(attempt 1/3)", 0, limit)) << driven->output();
    const auto killed = onlyBackend();
    ASSERT_NE(killed, 0);
    kill(killed, SIGKILL);
    EXPECT_TRUE(driven->logs("bundled backend exited (status 9), will retry (1/3)", 0, limit))
        << driven->output();
    EXPECT_TRUE(driven->logs("(attempt 2/3)", 0, limit)) << driven->output();
    const auto next = onlyBackend();
    EXPECT_NE(next, 0);
    EXPECT_NE(next, killed);
    expectGoodEnd(*driven);
}

TEST_F(Backend, TheBackendEndsAlsoWhenTheProgramIsKilled) {
    installRealBackend();
    const auto driven = start();
    ASSERT_TRUE(driven->logs("(attempt 1/3)", 0, limit)) << driven->output();
    ASSERT_NE(onlyBackend(), 0);
    driven->program().signal(SIGKILL);
    EXPECT_TRUE(waitFor([this] { return backends().empty(); }, limit));
}

/// Accepts connections on a port and sends nothing.
struct SilentPort {
    explicit SilentPort(int port) : server([](Peer& peer) { peer.readUntilGone(); }, port) {}
    LoopbackServer server;
};

TEST_F(Backend, QuittingDuringTheScanOfSilentPortsIsClean) {
    const SilentPort first(3000);
    const SilentPort second(3001);
    const SilentPort third(3002);
    installRealBackend();
    const auto driven = start();
    driven->program().signal(SIGTERM);
    EXPECT_EQ(driven->program().output().count("backend auto-start requested"), 0U)
        << "the scan was over already";
    // The scan ends first, one third of a second for each of these ports.
    EXPECT_EQ(driven->program().waitForExit(limit), 0) << driven->output();
    EXPECT_TRUE(backends().empty());
}

TEST_F(Backend, StopAndStartFromThePanelEndAndStartIt) {
    pages_ = writeRemotePage(desktop_);
    installRealBackend();
    RemotePanel panel(desktop_, pages_);
    ASSERT_TRUE(panel->logs("(attempt 1/3)", 0, limit)) << panel->output();
    panel.run("electronAPI.stopBundledBackend()");
    EXPECT_TRUE(waitFor([this] { return backends().empty(); }, limit));
    const auto mark = panel->mark();
    panel.run("electronAPI.startBundledBackend()");
    EXPECT_TRUE(panel->logs("(attempt 1/3)", mark, limit)) << panel->output();
    EXPECT_NE(onlyBackend(), 0);
    EXPECT_EQ(panel->program().output().count("will retry"), 0U);
    desktop_.windows().requestClose(panel->panel());
    EXPECT_EQ(panel->program().waitForExit(limit), 0) << panel->output();
    EXPECT_TRUE(backends().empty());
}

}  // namespace
}  // namespace stagehopper::desktop
