#include "tests/macos/recording/runtime/Pools.h"

#include <memory>
#include <utility>
#include <vector>

#include "tests/macos/recording/runtime/Behaviors.h"

namespace stagehopper::recording::pools {

namespace {

using Pool = std::vector<Retained>;

std::vector<std::unique_ptr<Pool>>& stack() {
    static thread_local std::vector<std::unique_ptr<Pool>> pools;
    return pools;
}

Pool& withoutPool() {
    static auto* const kept = new Pool;
    return *kept;
}

}  // namespace

bool exists() {
    return !stack().empty();
}

void add(Retained reference) {
    auto& pool = exists() ? *stack().back() : withoutPool();
    pool.push_back(std::move(reference));
}

void clear() {
    while (!withoutPool().empty()) const auto gone = std::exchange(withoutPool(), {});
}

}  // namespace stagehopper::recording::pools

namespace stagehopper::cocoa {

extern "C" {
void* objc_autoreleasePoolPush(void) {
    auto& pools = recording::pools::stack();
    return pools.emplace_back(std::make_unique<recording::pools::Pool>()).get();
}

void objc_autoreleasePoolPop(void* pool) {
    auto& pools = recording::pools::stack();
    if (pools.empty() || pools.back().get() != pool) {
        recording::noteProblem("a pool was ended that is not the innermost one of its thread");
        return;
    }
    // Destroyed objects may autorelease others: the pool is drained until it stays empty.
    while (!pools.back()->empty()) const auto gone = std::exchange(*pools.back(), {});
    pools.pop_back();
}
}

}  // namespace stagehopper::cocoa
