// The ping that keeps the Wi-Fi link awake.

#include <gmock/gmock.h>

#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::SizeIs;

constexpr auto* ping = "/sbin/ping";
constexpr auto* netstat = "/usr/sbin/netstat";

class KeepAlive : public testing::Test {
protected:
    void routesAre(std::string table) {
        stage.desktop.processes.programs[netstat] = {.output = std::move(table),
                                                     .exitsAfter = platform::Duration{0.01}};
    }
    std::vector<std::string> pingArguments() {
        return stage.desktop.processes.last(ping).options.arguments;
    }

    Stage stage;
};

TEST_F(KeepAlive, PingsTheDefaultGatewayOnceASecondWithOneByte) {
    routesAre(
        "Routing tables\n\nInternet:\nDestination  Gateway  Flags  Netif\n"
        "default            10.0.0.1           UGScg                 en0\n"
        "default            10.0.0.9           UGScg                 en1\n");
    stage.launch();
    EXPECT_THAT(pingArguments(), ElementsAre("-i", "1", "-s", "1", "10.0.0.1"));
    EXPECT_FALSE(stage.desktop.processes.last(ping).options.capturesOutput);
    EXPECT_THAT(stage.desktop.processes.last(netstat).options.arguments, ElementsAre("-rn"));
}

TEST_F(KeepAlive, PingsTheUsualAddressWithoutADefaultRoute) {
    routesAre("10.0.0.0/8 link#4 UCS en0\n");
    stage.launch();
    EXPECT_EQ(pingArguments().back(), "192.168.0.1");
}

TEST_F(KeepAlive, PingsTheUsualAddressIfTheTableCannotBeRead) {
    stage.desktop.processes.programs.erase(netstat);
    stage.launch();
    EXPECT_EQ(pingArguments().back(), "192.168.0.1");
}

TEST_F(KeepAlive, TheProgramStartsAndQuitsWithoutPing) {
    stage.desktop.processes.programs.erase(ping);
    stage.launch();
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_TRUE(stage.desktop.application.terminated());
}

TEST_F(KeepAlive, IsStartedOnceAndNotAgainWhenPingEnds) {
    stage.launch();
    stage.desktop.processes.exits(stage.desktop.processes.last(ping), 2);
    stage.desktop.advance(60s);
    EXPECT_THAT(stage.desktop.processes.started(ping), SizeIs(1));
}

TEST_F(KeepAlive, IsAskedToEndAtQuitWithoutAWait) {
    stage.desktop.processes.programs[ping] = {.endsWithin = platform::Duration{9}};
    stage.launch();
    const auto before = stage.desktop.clock.elapsed();
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_TRUE(stage.desktop.processes.last(ping).askedToEnd);
    EXPECT_EQ(stage.desktop.clock.elapsed(), before);
}

TEST_F(KeepAlive, EndsWithACrashedProgramUnlikeTheOtherProcesses) {
    stage.installServingBackend(3000);
    stage.launch();
    EXPECT_TRUE(stage.desktop.processes.last(ping).options.endsWithUs);
    EXPECT_FALSE(stage.desktop.processes.last(Stage::backendPath).options.endsWithUs)
        << "it watches this program itself";
}

TEST_F(KeepAlive, WritesNothingToAnyLog) {
    stage.desktop.processes.programs.clear();
    stage.installServingBackend(3000);
    stage.desktop.launch(stage.app);
    EXPECT_THAT(stage.systemLines(), SizeIs(1));  // the backend's start
}

}  // namespace
}  // namespace stagehopper
