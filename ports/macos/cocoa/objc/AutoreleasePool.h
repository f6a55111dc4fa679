#pragma once

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::cocoa {

/// Objects that are autoreleased while it stands live as long as it does. One thread; pools end in
/// the opposite order of their making.
class AutoreleasePool {
public:
    AutoreleasePool() : pool_(objc_autoreleasePoolPush()) {}
    ~AutoreleasePool() { objc_autoreleasePoolPop(pool_); }
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

private:
    void* pool_;
};

}  // namespace stagehopper::cocoa
