#include "tests/macos/recording/MessageTally.h"

namespace stagehopper::recording {

MessageTally& messageTally() {
    static MessageTally all;
    return all;
}

}  // namespace stagehopper::recording
