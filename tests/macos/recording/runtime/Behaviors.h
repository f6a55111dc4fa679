#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeindex>
#include <utility>
#include <vector>

#include "ports/macos/cocoa/objc/MessageDispatch.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Retained.h"
#include "tests/macos/recording/runtime/Value.h"

// Defines what the stand-ins for the system's classes do.

namespace stagehopper::recording {

using cocoa::MessageKind;

/// A new object that the system owns.
[[nodiscard]] Retained makeObject(std::string_view className);

/// The state that an object carries, one value of each type: created at the first use, destroyed
/// with the object.
template <class T>
[[nodiscard]] T& stateOf(cocoa::id object);

/// A message during its handling.
class Call {
public:
    Call(cocoa::id receiver, MessageKind kind, std::string_view selector,
         std::span<const Value> arguments)
        : receiver_(receiver), kind_(kind), selector_(selector), arguments_(arguments) {}

    /// The object, or the class as an object.
    [[nodiscard]] cocoa::id receiver() const { return receiver_; }
    [[nodiscard]] MessageKind kind() const { return kind_; }
    [[nodiscard]] std::string_view selector() const { return selector_; }
    /// For a class message, the receiving class, which may be a subclass of the one with the
    /// behavior; else the receiver's class.
    [[nodiscard]] std::string className() const;

    template <class T>
    [[nodiscard]] T& state() const {
        return stateOf<T>(receiver_);
    }
    template <class T>
    [[nodiscard]] T argument(std::size_t index) const {
        return arguments_[index].as<T>();
    }
    [[nodiscard]] const Value& value(std::size_t index) const { return arguments_[index]; }

    /// A new object of that class, kept until the message is handled. If it is returned, it is
    /// autoreleased, or retained for the sender in the families alloc, new, copy and init:
    /// behaviors return plain pointers and need not count references.
    cocoa::id make(std::string_view className) { return made(makeObject(className)); }
    /// The same for an object that was created for this message.
    cocoa::id made(Retained object) { return made_.emplace_back(std::move(object)).get(); }
    [[nodiscard]] bool hasMade(cocoa::id object) const;

private:
    cocoa::id receiver_;
    MessageKind kind_;
    std::string_view selector_;
    std::span<const Value> arguments_;
    std::vector<Retained> made_;
};

using Behavior = std::function<Value(Call&)>;

/// Defines how a class and its subclasses handle a message. Once for each message and for the whole
/// program, from a function that runs before the first test. The message must be in the table of
/// facts.
///
/// Without a behavior a message with a setter's name (`setTitle:`) stores its argument, where the
/// getter's name (`title`) finds it; objects are kept, blocks copied, delegates and targets held
/// weakly. Every other message returns zero; one that should return an object is noted as a
/// problem.
///
/// An initializer returns its receiver, another object, or nil.
void define(std::string_view className, MessageKind kind, std::string_view selector,
            Behavior behavior);

/// Messages to this class and its subclasses do not appear in the journal: strings, collections.
void keepOutOfJournal(std::string_view className);

/// How objects of a class appear in the journal instead of `<NSURL 1>`.
void describeAs(std::string_view className, std::function<std::string(cocoa::id)> description);

/// The messages of one class, defined in a chain.
class MessagesOf {
public:
    explicit MessagesOf(std::string_view className) : className_(className) {}
    /// A message to an instance. The behavior may return nothing.
    template <class Handler>
    MessagesOf& on(std::string_view selector, Handler handler) {
        return add(MessageKind::instance, selector, std::move(handler));
    }
    /// A message to the class.
    template <class Handler>
    MessagesOf& onClass(std::string_view selector, Handler handler) {
        return add(MessageKind::classLevel, selector, std::move(handler));
    }
    /// A message to the class that returns the shared instance.
    MessagesOf& shared(std::string_view selector);
    MessagesOf& describedBy(std::function<std::string(cocoa::id)> description) {
        describeAs(className_, std::move(description));
        return *this;
    }
    MessagesOf& notInJournal() {
        keepOutOfJournal(className_);
        return *this;
    }

private:
    template <class Handler>
    MessagesOf& add(MessageKind kind, std::string_view selector, Handler handler) {
        if constexpr (std::is_void_v<std::invoke_result_t<Handler, Call&>>) {
            define(className_, kind, selector, [handler](Call& call) -> Value {
                handler(call);
                return {};
            });
        } else {
            define(className_, kind, selector, std::move(handler));
        }
        return *this;
    }

    std::string className_;
};

/// An object that outlives every test, such as the system's exported constants.
[[nodiscard]] cocoa::id makeConstant(std::string_view className);

/// "nil" for nil, the name for a class object.
[[nodiscard]] std::string classNameOf(cocoa::id object);
[[nodiscard]] bool isKindOf(cocoa::id object, std::string_view className);
/// Whether an object, usually of one of the port's classes, has that method. False for nil.
[[nodiscard]] bool responds(cocoa::id object, std::string_view selector);

/// The shared instance of a class, as returned by `sharedWorkspace`; created at the first use.
/// `which` distinguishes several instances of one class. Any queue.
[[nodiscard]] cocoa::id sharedInstance(std::string_view className, std::string_view which = "");
/// At the end of a test: the next one gets new instances.
void forgetSharedInstances();

/// The value stored by a setter without a behavior, or by `setProperty`; empty if never set.
[[nodiscard]] Value property(cocoa::id object, std::string_view name);
/// Nil unless it is an object.
[[nodiscard]] inline cocoa::id propertyObject(cocoa::id object, std::string_view name) {
    return property(object, name).object();
}
void setProperty(cocoa::id object, std::string_view name, Value value);

/// Sends a message as the system does between its own objects, from a behavior or a test: without
/// checks and without a journal entry. The result lives as long as the current pool.
Value answer(cocoa::id receiver, std::string_view selector, std::vector<Value> arguments = {});

namespace behaviors {
/// The class's own behavior, or the inherited one; null if there is none.
[[nodiscard]] const Behavior* find(cocoa::Class ofClass, MessageKind kind,
                                   const std::string& selector);
[[nodiscard]] bool isQuiet(cocoa::Class ofClass);
}  // namespace behaviors

/// "title" for "setTitle:"; empty for other names.
[[nodiscard]] std::string propertyOfSetter(std::string_view selector);

namespace detail {
/// The slot for one type; created empty.
std::shared_ptr<void>& slot(cocoa::id object, std::type_index type);
}  // namespace detail

template <class T>
T& stateOf(cocoa::id object) {
    auto& slot = detail::slot(object, typeid(T));
    if (!slot) slot = std::make_shared<T>();
    return *static_cast<T*>(slot.get());
}

}  // namespace stagehopper::recording
