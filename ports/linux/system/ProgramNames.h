#pragma once

namespace stagehopper::linux_port {

/// The names by which desktops, session buses and users know this program. The desktop entry and
/// the icon carry the same ones.
inline constexpr const char* applicationId = "org.stagehopper.Stagehopper";
/// Of the executable, its windows' class and its resource directory.
inline constexpr const char* programName = "stagehopper";
inline constexpr const char* displayName = "Stagehopper";

}  // namespace stagehopper::linux_port
