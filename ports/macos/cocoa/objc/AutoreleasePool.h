#pragma once

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::cocoa {

/// Keeps objects that are autoreleased during its lifetime until its end. One thread; pools end in
/// the reverse order of their creation.
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
