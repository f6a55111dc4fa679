#include "tests/macos/recording/runtime/Blocks.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <map>
#include <set>

#include "ports/macos/cocoa/objc/Block.h"
#include "tests/macos/recording/runtime/Journal.h"

extern "C" {
void* _NSConcreteStackBlock[32] = {};
}

namespace stagehopper::recording::blocks {

namespace {

void* heapBlockClass[32] = {};

constexpr int hasCopyAndDispose = 1 << 25;
constexpr int hasSignature = 1 << 30;

struct Descriptor {
    unsigned long reserved;
    unsigned long size;
    // Only with hasCopyAndDispose.
    void (*copy)(void* copied, const void* original);
    void (*dispose)(const void* block);
    const char* signature;
    /// Always present; gives the position of captured objects to leak detectors.
    const void* layout;
};

struct Layout {
    void* isa;
    int flags;
    int reserved;
    void* invoke;
    const Descriptor* descriptor;
};

struct Counts {
    long references = 0;
    long heldByPort = 0;
};

struct Blocks {
    std::map<const void*, Counts> live;
    std::set<const void*> freed;
};

Blocks& all() {
    // Never unmade: whatever ends with the program may still ask.
    static auto* const blocks = new Blocks;
    return *blocks;
}

const Layout& layoutOf(const void* block) {
    return *static_cast<const Layout*>(block);
}

bool isOnStack(const void* block) {
    return layoutOf(block).isa == &_NSConcreteStackBlock[0];
}

void dispose(const void* block) {
    const auto& layout = layoutOf(block);
    all().live.erase(block);
    all().freed.insert(block);
    if ((layout.flags & hasCopyAndDispose) != 0) layout.descriptor->dispose(block);
    std::free(const_cast<void*>(block));
}

}  // namespace

bool isLive(const void* block) {
    return all().live.contains(block);
}

bool wasFreed(const void* block) {
    return all().freed.contains(block);
}

std::string_view signatureOf(const void* block) {
    const auto& layout = layoutOf(block);
    if ((layout.flags & hasSignature) == 0) return {};
    if ((layout.flags & hasCopyAndDispose) != 0) return layout.descriptor->signature;
    // Without the two functions the signature is in their place.
    const char* signature = nullptr;
    std::memcpy(&signature,
                reinterpret_cast<const char*>(layout.descriptor) + offsetof(Descriptor, copy),
                sizeof signature);
    return signature;
}

void* invokeFunctionOf(const void* block) {
    return layoutOf(block).invoke;
}

void* copy(const void* block, Holder holder) {
    if (block == nullptr) return nullptr;
    if (wasFreed(block)) {
        noteProblem("a block was copied after it was freed");
        return nullptr;
    }
    void* kept = const_cast<void*>(block);
    if (!isLive(block)) {
        if (!isOnStack(block)) {
            noteProblem("something that is no block was copied as one");
            return nullptr;
        }
        const auto& original = layoutOf(block);
        if ((original.flags & hasCopyAndDispose) != 0 && original.descriptor->layout != nullptr) {
            noteProblem("a block says where its captured objects are, and has none");
        }
        kept = std::malloc(original.descriptor->size);
        std::memcpy(kept, block, original.descriptor->size);
        static_cast<Layout*>(kept)->isa = &heapBlockClass[0];
        all().freed.erase(kept);
        all().live[kept] = {};
        if ((original.flags & hasCopyAndDispose) != 0) original.descriptor->copy(kept, block);
    }
    auto& counts = all().live[kept];
    ++counts.references;
    if (holder == Holder::port) ++counts.heldByPort;
    return kept;
}

void release(const void* block, Holder holder) {
    if (block == nullptr) return;
    const auto found = all().live.find(block);
    if (found == all().live.end()) {
        noteProblem(wasFreed(block) ? "a block was released after it was freed"
                                    : "something that is no block was released as one");
        return;
    }
    auto& counts = found->second;
    if (holder == Holder::port) {
        if (counts.heldByPort == 0) {
            noteProblem("a block was released by the port, which holds no reference");
            return;
        }
        --counts.heldByPort;
    }
    if (--counts.references == 0) dispose(block);
}

std::vector<std::string> heldByPort() {
    std::vector<std::string> held;
    for (const auto& [block, counts] : all().live) {
        if (counts.heldByPort == 0) continue;
        held.push_back("^block " + std::string(signatureOf(block)) + ": " +
                       std::to_string(counts.heldByPort) + " references");
    }
    return held;
}

void clear() {
    while (!all().live.empty()) dispose(all().live.begin()->first);
    all().freed.clear();
}

}  // namespace stagehopper::recording::blocks

extern "C" {
void* _Block_copy(const void* block) {
    using namespace stagehopper::recording;
    return blocks::copy(block, Holder::port);
}
void _Block_release(const void* block) {
    using namespace stagehopper::recording;
    blocks::release(block, Holder::port);
}
}
