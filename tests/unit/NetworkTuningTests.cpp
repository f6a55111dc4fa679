#include <gtest/gtest.h>

#include "network/AwdlScripts.h"
#include "network/DefaultRoute.h"
#include "network/InterfaceState.h"

namespace stagehopper {
namespace {

TEST(DefaultRoute, IsTheSecondFieldOfTheFirstDefaultRow) {
    EXPECT_EQ(defaultGateway("Routing tables\n\n"
                             "default            10.0.0.1           UGScg       en0\n"
                             "default            10.0.0.2           UGScg       en1\n"),
              "10.0.0.1");
}

TEST(DefaultRoute, IsFoundInARowWithoutALineBreakAndAfterBlanks) {
    EXPECT_EQ(defaultGateway("  default  10.0.0.1"), "10.0.0.1");
}

TEST(DefaultRoute, MayBeOfAnyAddressFamily) {
    EXPECT_EQ(defaultGateway("default fe80::1%en0 UGcg en0\n"), "fe80::1%en0");
}

TEST(DefaultRoute, IsNotInARowThatOnlyBeginsWithTheWord) {
    EXPECT_EQ(defaultGateway("defaultx 10.0.0.1\nx default 10.0.0.2\nDefault 10.0.0.3\n"),
              std::nullopt);
}

TEST(DefaultRoute, IsNotInARowWithoutASecondField) {
    EXPECT_EQ(defaultGateway("default\ndefault   \ndefault 10.0.0.1"), "10.0.0.1");
}

TEST(DefaultRoute, TabsDoNotSeparateFields) {
    EXPECT_EQ(defaultGateway("default\t10.0.0.1\n"), std::nullopt);
    EXPECT_EQ(defaultGateway("default 10.0.0.1\tUG\n"), "10.0.0.1\tUG");
}

TEST(DefaultRoute, IsAbsentFromATableThatIsNotUtf8) {
    EXPECT_EQ(defaultGateway("default 10.0.0.1\n\xFF"), std::nullopt);
    EXPECT_EQ(defaultGateway(""), std::nullopt);
}

TEST(InterfaceState, IsUpByItsStatusOrByItsFlags) {
    EXPECT_TRUE(isInterfaceUp("awdl0: flags=8<BROADCAST>\n\tstatus: active\n"));
    EXPECT_TRUE(isInterfaceUp("awdl0: flags=8943<UP,BROADCAST> mtu 1500\n\tstatus: inactive\n"));
}

TEST(InterfaceState, IsDownOtherwise) {
    EXPECT_FALSE(isInterfaceUp("awdl0: flags=8902<BROADCAST,UP> mtu 1500\n\tstatus: inactive\n"));
    EXPECT_FALSE(isInterfaceUp(""));
}

TEST(InterfaceState, IsUpIfTheAnswerIsNotUtf8) {
    EXPECT_TRUE(isInterfaceUp("\xFF"));
}

TEST(AwdlScripts, RunOneCommandEachWithWordsForTheUser) {
    EXPECT_EQ(disableAwdlScript,
              "do shell script \"ifconfig awdl0 down\" with administrator privileges with prompt "
              "\"Stagehopper 需要暂时关闭 AWDL 无线直连（Apple "
              "设备互联功能），以优化局域网信号，确保手机遥控光标与翻页流畅运行。退出 App "
              "时将自动恢复，届时会再次弹出此密码框。\"");
    EXPECT_EQ(
        restoreAwdlScript,
        "do shell script \"ifconfig awdl0 up\" with administrator privileges with prompt "
        "\"Stagehopper 退出，正在恢复 AWDL 无线直连。\n\n开会时曾暂时关闭该功能以优化局域网"
        "手机遥控信号（光标 & 翻页），现已不再需要。恢复后 AirDrop、隔空播放等功能恢复正常。\"");
}

}  // namespace
}  // namespace stagehopper
