#include "tests/macos/recording/runtime/Callbacks.h"

#include "tests/macos/facts/Agreement.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Blocks.h"
#include "tests/macos/recording/runtime/Heap.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace detail {

cocoa::IMP implementationFor(cocoa::id object, std::string_view selector, std::string_view types) {
    const auto* record = heap::find(object);
    const auto* method =
        record == nullptr ? nullptr : classes::methodOf(record->itsClass, selector);
    if (method == nullptr) {
        noteProblem(describe(object) + " has no method of its own for " + std::string(selector));
        return nullptr;
    }
    if (!macos_facts::agrees(method->types, types)) {
        noteProblem(describe(object) + " answers " + std::string(selector) + " as " +
                    method->types + ", the system asks " + std::string(types));
        return nullptr;
    }
    return method->implementation;
}

void* invokeFunctionOf(cocoa::id block, std::string_view types) {
    if (!blocks::isLive(block)) {
        noteProblem("the system was to call " + describe(block));
        return nullptr;
    }
    if (!macos_facts::agrees(blocks::signatureOf(block), types)) {
        noteProblem("a block " + std::string(blocks::signatureOf(block)) + " was to be called as " +
                    std::string(types));
        return nullptr;
    }
    return blocks::invokeFunctionOf(block);
}

void journalCallback(cocoa::id object, std::string_view selector,
                     std::span<const Value> arguments) {
    JournalEntry entry;
    entry.kind = JournalEntry::Kind::callback;
    entry.queue = queues::current();
    entry.seconds = queues::now();
    entry.receiver = describe(object);
    entry.selector = selector;
    for (const auto& argument : arguments) entry.arguments.push_back(argument.describe());
    journal().add(std::move(entry));
}

}  // namespace detail
}  // namespace stagehopper::recording
