#include "tests/macos/recording/runtime/MessageTally.h"

namespace stagehopper::recording {

MessageTally& messageTally() {
    static MessageTally all;
    return all;
}

}  // namespace stagehopper::recording
