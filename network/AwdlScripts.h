#pragma once

#include <string_view>

namespace stagehopper {

// AppleScript makes the system show its own password dialog with our text.

inline constexpr std::string_view disableAwdlScript =
    R"(do shell script "ifconfig awdl0 down" with administrator privileges with prompt "Stagehopper 需要暂时关闭 AWDL 无线直连（Apple 设备互联功能），以优化局域网信号，确保手机遥控光标与翻页流畅运行。退出 App 时将自动恢复，届时会再次弹出此密码框。")";

inline constexpr std::string_view restoreAwdlScript =
    R"(do shell script "ifconfig awdl0 up" with administrator privileges with prompt "Stagehopper 退出，正在恢复 AWDL 无线直连。)"
    "\n\n"
    R"(开会时曾暂时关闭该功能以优化局域网手机遥控信号（光标 & 翻页），现已不再需要。恢复后 AirDrop、隔空播放等功能恢复正常。")";

}  // namespace stagehopper
