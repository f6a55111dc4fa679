#include "tests/macos/recording/runtime/Memory.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Blocks.h"
#include "tests/macos/recording/runtime/Heap.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording::memory {

namespace {

using macos_facts::Kind;

/// An initializer consumes the reference from alloc and returns a reference to its result.
void handInitializedOver(cocoa::id receiver, cocoa::id answer) {
    if (auto* object = heap::find(answer)) object->raw = false;
    if (answer == receiver) return;
    if (answer != nullptr) heap::retain(answer, Holder::port);
    heap::release(receiver, Holder::port);
}

}  // namespace

bool isReferenceMessage(std::string_view selector) {
    return selector == "retain" || selector == "release" || selector == "autorelease";
}

bool isMemoryMessage(std::string_view selector) {
    return isReferenceMessage(selector) || selector == "alloc";
}

Value countReference(std::string_view referenceMessage, cocoa::id receiver) {
    // References to classes are not counted.
    const auto* object = heap::find(receiver);
    if (object == nullptr) return receiver;
    if (referenceMessage == "retain") {
        heap::retain(receiver, Holder::port);
        return receiver;
    }
    if (referenceMessage == "release") {
        heap::release(receiver, Holder::port);
        return {};
    }
    if (object->heldByPort == 0) {
        noteProblem(describe(receiver) + " was autoreleased by the port, which holds no reference");
        return receiver;
    }
    heap::handOver(receiver, Holder::port, Holder::system);
    autorelease(Retained::adopt(receiver), true);
    return receiver;
}

Value performOnBlock(std::string_view message, cocoa::id block) {
    if (message == "retain" || message == "copy") {
        blocks::copy(block, Holder::port);
        return block;
    }
    if (message == "release") {
        blocks::release(block, Holder::port);
        return {};
    }
    noteProblem("a block got the message " + std::string(message));
    return {};
}

void handAnswerOver(const macos_facts::MethodFact& fact, cocoa::id receiver, cocoa::id answer,
                    bool isNew) {
    const bool isInitializer = fact.kind == Kind::instance && fact.selector.starts_with("init");
    if (isInitializer) {
        handInitializedOver(receiver, answer);
    } else if (answer != nullptr && fact.returns == macos_facts::Returns::retained) {
        heap::retain(answer, Holder::port);
    } else if (answer != nullptr) {
        autorelease(Retained(answer), isNew);
    }
}

void autorelease(Retained reference, bool needsPool) {
    if (needsPool && !pools::exists()) {
        noteProblem(describe(reference.get()) + " was autoreleased on queue \"" +
                    queues::current() + "\" without a pool");
    }
    pools::add(std::move(reference));
}

}  // namespace stagehopper::recording::memory

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
