#pragma once

#include <string>
#include <string_view>

namespace stagehopper {

/// The identity under which this program joins a room, made from a fresh UUID:
/// "overlay-native-1F3A9C0B". It begins with "overlay", so it is not mistaken for a remote.
std::string slideSocketUserId(std::string_view uuid);

}  // namespace stagehopper
