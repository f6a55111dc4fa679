#include "tests/macos/recording/runtime/Heap.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <unordered_map>
#include <utility>

#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/runtime/Value.h"

namespace stagehopper::recording::heap {

namespace {

struct Heap {
    std::unordered_map<cocoa::id, std::unique_ptr<Object>> objects;
    std::unordered_map<cocoa::id, std::string> freed;
    std::uint64_t made = 0;
};

Heap& all() {
    // Never destroyed: code that runs at exit may still use it.
    static auto* const heap = new Heap;
    return *heap;
}

/// Its own `dealloc`, when the port's class has one, is to end in the root class's.
void end(cocoa::id object, Object& record) {
    record.beingFreed = true;
    const auto name = nameOf(record);
    if (classes::isForMainThread(record.itsClass) && queues::current() != "main") {
        noteProblem(name + " was freed on queue \"" + queues::current() +
                    "\": its class is for the main thread");
    }
    if (const auto* own = classes::methodOf(record.itsClass, "dealloc")) {
        const auto selector = cocoa::sel_registerName("dealloc");
        reinterpret_cast<void (*)(cocoa::id, cocoa::SEL)>(own->implementation)(object, selector);
        if (find(object) == nullptr) return;
        noteProblem("the dealloc of " + name + " does not call its superclass's");
    }
    free(object);
}

}  // namespace

cocoa::id make(cocoa::Class ofClass) {
    auto& heap = all();
    // Every object begins with its class; zeros follow.
    void* memory = std::calloc(1, ofClass->instanceSize);
    *static_cast<cocoa::Class*>(memory) = ofClass;
    auto* object = static_cast<cocoa::id>(memory);
    auto record = std::make_unique<Object>();
    record->itsClass = ofClass;
    record->serial = ++ofClass->objects;
    record->number = ++heap.made;
    record->references = 1;
    heap.freed.erase(object);
    heap.objects[object] = std::move(record);
    return object;
}

Object* find(cocoa::id object) {
    const auto found = all().objects.find(object);
    return found == all().objects.end() ? nullptr : found->second.get();
}

std::string nameOfFreed(cocoa::id object) {
    const auto found = all().freed.find(object);
    return found == all().freed.end() ? std::string() : found->second;
}

std::string nameOf(const Object& object) {
    return "<" + object.itsClass->name + " " + std::to_string(object.serial) + ">";
}

void retain(cocoa::id object, Holder holder) {
    auto* record = find(object);
    if (record == nullptr) return;
    if (record->beingFreed) noteProblem(nameOf(*record) + " was retained while it was being freed");
    ++record->references;
    if (holder == Holder::port) ++record->heldByPort;
}

void release(cocoa::id object, Holder holder) {
    auto* record = find(object);
    if (record == nullptr) return;
    if (holder == Holder::port) {
        if (record->heldByPort == 0) {
            noteProblem(nameOf(*record) + " was released by the port, which holds no reference");
            return;
        }
        --record->heldByPort;
    }
    if (--record->references == 0 && !record->constant && !record->beingFreed) end(object, *record);
}

void handOver(cocoa::id object, Holder from, Holder to) {
    retain(object, to);
    release(object, from);
}

void free(cocoa::id object) {
    auto& heap = all();
    const auto found = heap.objects.find(object);
    if (found == heap.objects.end()) return;
    // Its state may hold the last references to other objects, and look this one up.
    const auto record = std::move(found->second);
    heap.objects.erase(found);
    heap.freed[object] = nameOf(*record);
    record->state.clear();
    std::free(object);
}

std::vector<std::string> heldByPort() {
    std::vector<std::string> held;
    for (const auto& [object, record] : all().objects) {
        if (record->heldByPort == 0) continue;
        held.push_back(nameOf(*record) + " " + describe(object) + ": " +
                       std::to_string(record->heldByPort) + " references");
    }
    return held;
}

std::size_t living(std::string_view className) {
    return static_cast<std::size_t>(std::ranges::count_if(all().objects, [&](const auto& entry) {
        return entry.second->itsClass->name == className;
    }));
}

void clear() {
    auto& heap = all();
    std::vector<cocoa::id> rest;
    for (const auto& [object, record] : heap.objects) {
        record->heldByPort = 0;
        if (!record->constant) rest.push_back(object);
    }
    for (auto* object : rest) {
        if (auto* record = find(object); record != nullptr && !record->beingFreed) {
            end(object, *record);
        }
    }
    heap.freed.clear();
}

}  // namespace stagehopper::recording::heap
