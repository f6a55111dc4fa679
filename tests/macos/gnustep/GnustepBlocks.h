#pragma once

#include "ports/macos/cocoa/objc/Encoding.h"

namespace stagehopper::cocoa::gnustep {

/// Calls a block that takes objects and returns nothing.
template <class... Objects>
void callBlock(void* block, Objects... objects) {
    struct Layout {
        void* isa;
        int flags;
        int reserved;
        void (*invoke)(void* self, Abi<Objects>... objects);
    };
    static_cast<Layout*>(block)->invoke(block, objects.pointer()...);
}

}  // namespace stagehopper::cocoa::gnustep
