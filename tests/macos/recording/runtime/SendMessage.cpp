#include "tests/macos/recording/runtime/SendMessage.h"

#include <string>
#include <utility>

#include "tests/macos/facts/Agreement.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Blocks.h"
#include "tests/macos/recording/runtime/Heap.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Memory.h"
#include "tests/macos/recording/runtime/MessageTally.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

using macos_facts::Kind;
using macos_facts::MethodFact;

std::string lineOf(const DeclaredMessage& message, cocoa::id receiver) {
    const auto* sign = message.kind == Kind::classLevel ? "+[" : "-[";
    return sign + describe(receiver) + " " + std::string(message.selector) + "]";
}

/// Whether the argument may cross; notes a problem when not.
bool checkArgument(const Value& argument, const MethodFact& fact, const std::string& line) {
    auto* object = argument.object();
    if (object == nullptr) return true;
    const bool lives = heap::find(object) != nullptr || blocks::isLive(object) ||
                       classes::asClass(object) != nullptr;
    if (!lives) {
        noteProblem(line + " got " + describe(object));
    } else if (argument.encoding() == "@?" && !blocks::isLive(object)) {
        noteProblem(line + " got " + describe(object) + " for a block");
        return false;
    } else if (argument.encoding() == "@?" && !fact.block.empty() &&
               !macos_facts::agrees(blocks::signatureOf(object), fact.block)) {
        noteProblem(line + " got a block " + std::string(blocks::signatureOf(object)) + ", not " +
                    std::string(fact.block));
        return false;
    }
    return lives;
}

/// The fact for what is really there, which may be of another class than its handle. Null, and a
/// problem noted, when the message must not be sent.
const MethodFact* check(const DeclaredMessage& message, cocoa::id receiver,
                        std::span<const Value> arguments) {
    const auto line = lineOf(message, receiver);
    const auto* object = heap::find(receiver);
    auto* itsClass = object != nullptr ? object->itsClass : classes::asClass(receiver);
    if (itsClass == nullptr) {
        noteProblem(line + ": not a message for that");
        return nullptr;
    }
    if ((object == nullptr) != (message.kind == Kind::classLevel)) {
        noteProblem(line + ": classes and objects are mixed up");
        return nullptr;
    }
    const auto* fact = classes::factFor(itsClass, message.kind, message.selector);
    if (fact == nullptr) {
        noteProblem(line + ": its class has no such message");
        return nullptr;
    }
    if (!macos_facts::agrees(message.types, fact->encoding)) {
        noteProblem(line + " was sent as " + std::string(message.types) + ", not " +
                    std::string(fact->encoding));
        return nullptr;
    }
    if (object != nullptr && object->raw && !message.selector.starts_with("init") &&
        !memory::isMemoryMessage(message.selector)) {
        noteProblem(line + " before it was initialized");
    }
    if (object != nullptr && !object->raw && message.selector.starts_with("init")) {
        noteProblem(line + " a second time");
    }
    for (const auto& argument : arguments) {
        if (!checkArgument(argument, *fact, line)) return nullptr;
    }
    if (classes::isForMainThread(itsClass) && queues::current() != "main" &&
        !memory::isMemoryMessage(message.selector)) {
        noteProblem(line + " on queue \"" + queues::current() +
                    "\": its class is for the main thread");
    }
    return fact;
}

void record(const DeclaredMessage& message, cocoa::id receiver, std::span<const Value> arguments) {
    const auto* object = heap::find(receiver);
    auto* itsClass = object != nullptr ? object->itsClass : classes::asClass(receiver);
    if (memory::isMemoryMessage(message.selector) || behaviors::isQuiet(itsClass)) return;
    JournalEntry entry;
    entry.queue = queues::current();
    entry.seconds = queues::now();
    entry.receiver = object != nullptr && object->raw ? heap::nameOf(*object) : describe(receiver);
    entry.selector = message.selector;
    for (const auto& argument : arguments) entry.arguments.push_back(argument.describe());
    journal().add(std::move(entry));
}

/// What a message without a behavior does.
Value answerWithout(const DeclaredMessage& message, cocoa::id receiver,
                    std::span<const Value> arguments) {
    const auto name = propertyOfSetter(message.selector);
    if (message.result == "v" && !name.empty()) {
        setProperty(receiver, name, arguments[0]);
        return {};
    }
    if (arguments.empty()) {
        const auto stored = property(receiver, message.selector);
        if (stored.encoding() != "v") return stored;
    }
    if (message.result == "@") noteProblem("no behavior for " + lineOf(message, receiver));
    return {};
}

}  // namespace

Value sendMessage(const DeclaredMessage& message, cocoa::id receiver,
                  std::span<const Value> arguments) {
    if (receiver == nullptr) return {};
    if (blocks::isLive(receiver)) return memory::performOnBlock(message.selector, receiver);
    const auto* fact = check(message, receiver, arguments);
    if (fact == nullptr) return {};
    messageTally().add(*fact);
    record(message, receiver, arguments);
    if (memory::isReferenceMessage(message.selector)) {
        return memory::countReference(message.selector, receiver);
    }
    const Retained alive(receiver);
    const auto kind =
        message.kind == Kind::classLevel ? MessageKind::classLevel : MessageKind::instance;
    const auto* object = heap::find(receiver);
    auto* itsClass = object != nullptr ? object->itsClass : classes::asClass(receiver);
    const auto* behavior = behaviors::find(itsClass, kind, std::string(message.selector));
    Call call(receiver, kind, message.selector, arguments);
    auto answer =
        behavior != nullptr ? (*behavior)(call) : answerWithout(message, receiver, arguments);
    if (!answer.agreesWith(message.result)) {
        noteProblem(lineOf(message, receiver) + " was answered with " +
                    std::string(answer.encoding()) + " instead of " + std::string(message.result));
        return {};
    }
    if (message.result == "@") {
        auto* answered = answer.object();
        memory::handAnswerOver(*fact, receiver, answered, call.hasMade(answered));
    }
    return answer;
}

Value answer(cocoa::id receiver, std::string_view selector, std::vector<Value> arguments) {
    if (receiver == nullptr) return {};
    const auto* object = heap::find(receiver);
    const auto kind = object != nullptr ? MessageKind::instance : MessageKind::classLevel;
    auto* itsClass = object != nullptr ? object->itsClass : classes::asClass(receiver);
    if (const auto* behavior = behaviors::find(itsClass, kind, std::string(selector))) {
        Call call(receiver, kind, selector, arguments);
        const auto given = (*behavior)(call);
        if (given.object() != nullptr) memory::autorelease(Retained(given.object()), false);
        return given;
    }
    const auto name = propertyOfSetter(selector);
    if (!name.empty() && arguments.size() == 1) {
        setProperty(receiver, name, arguments[0]);
        return {};
    }
    return arguments.empty() ? property(receiver, selector) : Value();
}

}  // namespace stagehopper::recording
