#include "ports/linux/processes/RouteTable.h"

#include <gmock/gmock.h>

#include <bit>

namespace stagehopper::linux_port {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// As the kernel of a little-endian machine writes them.
constexpr const char* header =
    "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT      \n";
constexpr const char* byCable =
    "eth0\t00000000\t0101A8C0\t0003\t0\t0\t100\t00000000\t0\t0\t0                            \n";
constexpr const char* byRadio =
    "wlan0\t00000000\tFE00000A\t0003\t0\t0\t600\t00000000\t0\t0\t0                           \n";
constexpr const char* neighbors =
    "eth0\t0001A8C0\t00000000\t0001\t0\t0\t100\t00FFFFFF\t0\t0\t0                            \n";

class RouteTable : public testing::Test {
protected:
    void SetUp() override {
        if (std::endian::native != std::endian::little) GTEST_SKIP() << "tables of another kernel";
    }
};

TEST_F(RouteTable, ADefaultRouteNamesItsGateway) {
    EXPECT_THAT(defaultRoutes(std::string(header) + byCable + neighbors),
                ElementsAre(DefaultRoute{"192.168.1.1", "eth0", 100}));
}

TEST_F(RouteTable, TheLowestMetricComesFirst) {
    EXPECT_THAT(defaultRoutes(std::string(header) + byRadio + byCable),
                ElementsAre(DefaultRoute{"192.168.1.1", "eth0", 100},
                            DefaultRoute{"10.0.0.254", "wlan0", 600}));
}

TEST_F(RouteTable, RoutesOfTheSameMetricKeepTheirOrder) {
    const auto routes = defaultRoutes(
        "b\t0\t0101A8C0\t0003\t0\t0\t0\t0\t0\t0\t0\na\t0\t0201A8C0\t0003\t0\t0\t0\t0\t0\t0\t0\n");
    EXPECT_THAT(routes, ElementsAre(DefaultRoute{"192.168.1.1", "b", 0},
                                    DefaultRoute{"192.168.1.2", "a", 0}));
}

TEST_F(RouteTable, ARouteThatIsDownOrRejectsOrHasNoGatewayIsSkipped) {
    EXPECT_THAT(defaultRoutes("eth0\t0\t0101A8C0\t0002\t0\t0\t0\t0\t0\t0\t0\n"), IsEmpty());
    EXPECT_THAT(defaultRoutes("lo\t0\t0101A8C0\t0203\t0\t0\t0\t0\t0\t0\t0\n"), IsEmpty());
    EXPECT_THAT(defaultRoutes("tun0\t0\t00000000\t0001\t0\t0\t0\t0\t0\t0\t0\n"), IsEmpty());
}

TEST_F(RouteTable, ARouteToHalfOfTheAddressesIsNotADefaultRoute) {
    EXPECT_THAT(defaultRoutes("tun0\t00000000\t0101A8C0\t0003\t0\t0\t0\t00000080\t0\t0\t0\n"),
                IsEmpty());
}

TEST_F(RouteTable, InvalidLinesAreSkipped) {
    EXPECT_THAT(defaultRoutes(""), IsEmpty());
    EXPECT_THAT(defaultRoutes(header), IsEmpty());
    EXPECT_THAT(defaultRoutes("eth0\t00000000\t0101A8C0\n\n\xFF\t\t\neth0\t00000000\txyz\t0003"),
                IsEmpty());
    EXPECT_THAT(defaultRoutes("eth0\t0\tFFFFFFFFFFFF\t0003\t0\t0\t0\t0\n"), IsEmpty());
}

TEST_F(RouteTable, TheListingHasOneLineARoute) {
    EXPECT_EQ(routeListing({{"192.168.1.1", "eth0", 100}, {"10.0.0.254", "wlan0", 600}}),
              "default 192.168.1.1 UG eth0\ndefault 10.0.0.254 UG wlan0\n");
    EXPECT_EQ(routeListing({}), "");
}

}  // namespace
}  // namespace stagehopper::linux_port
