#include "app/SlideSocketIdentity.h"

namespace stagehopper {

std::string slideSocketUserId(std::string_view uuid) {
    return "overlay-native-" + std::string(uuid.substr(0, 8));
}

}  // namespace stagehopper
