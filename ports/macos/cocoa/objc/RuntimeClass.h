#pragma once

#include <algorithm>
#include <concepts>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

namespace detail {

/// Ends the program with the name if another part of the process already uses it: that class would
/// lack our methods.
inline Class newClass(const char* name) {
    if (Class made = objc_allocateClassPair(classOf<NSObject>(), name, 0)) return made;
    std::fprintf(stderr, "Stagehopper: a class %s is there already\n", name);
    std::abort();
}

}  // namespace detail

/// A class that we register with the runtime. Its methods call a C++ object of type `Target`, which
/// each instance holds weakly: once the target is gone, they do nothing and return zero.
///
/// Created once for each class name, and never destroyed. Main thread. Methods run in an
/// autorelease pool on the thread that sends the message; an exception that leaves one ends the
/// program.
template <class Target>
class RuntimeClass {
public:
    explicit RuntimeClass(const char* name) : class_(detail::newClass(name)) {
        constexpr std::uint8_t alignment = 3;  // as a power of two
        class_addIvar(class_, targetVariable, sizeof(std::weak_ptr<Target>*), alignment, "^v");
        class_addMethod(class_, selector<"dealloc">(), reinterpret_cast<IMP>(&dealloc),
                        methodEncoding<void>);
    }

    /// Adds a protocol by name. Skips a protocol that the runtime does not know: the system asks
    /// for methods, not for protocols.
    RuntimeClass& conformsTo(const char* protocol) {
        if (auto* found = objc_getProtocol(protocol)) class_addProtocol(class_, found);
        return *this;
    }

    /// `member` is a member function of `Target`; its parameters are handles, numbers or selectors.
    template <FixedString name, auto member>
    RuntimeClass& method() {
        using Trampoline = MethodOf<decltype(member), member>;
        static_assert(std::ranges::count(name.view(), ':') == Trampoline::arity,
                      "a selector has one colon for each argument");
        class_addMethod(class_, selector<name>(), reinterpret_cast<IMP>(&Trampoline::call),
                        Trampoline::types);
        return *this;
    }

    /// No methods can be added afterwards.
    RuntimeClass& registerClass() {
        objc_registerClassPair(class_);
        return *this;
    }

    [[nodiscard]] Owned<NSObject> makeInstance(std::weak_ptr<Target> target) const {
        using Alloc = Message<NSObject, MessageKind::classLevel, "alloc", Object()>;
        using Init = Message<NSObject, MessageKind::instance, "init", NSObject()>;
        auto made =
            Owned<NSObject>::adopt(Init::send(Alloc::send(reinterpret_cast<id>(class_)).pointer()));
        targetOf(made.get().pointer(), class_) = new std::weak_ptr<Target>(std::move(target));
        return made;
    }

private:
    static constexpr const char* targetVariable = "target";

    static std::weak_ptr<Target>*& targetOf(id object, Class itsClass) {
        // Looked up each time: the offset belongs to the class, and several classes may share a
        // target type.
        const auto offset = ivar_getOffset(class_getInstanceVariable(itsClass, targetVariable));
        return *reinterpret_cast<std::weak_ptr<Target>**>(reinterpret_cast<char*>(object) + offset);
    }

    template <class Member, auto member>
    struct MethodOf;
    template <class Result, class... Arguments, Result (Target::*member)(Arguments...)>
    struct MethodOf<Result (Target::*)(Arguments...), member> {
        static_assert(!std::derived_from<Result, Object>,
                      "the pool around the method would take the answer with it");
        static constexpr std::size_t arity = sizeof...(Arguments);
        static constexpr const char* types = methodEncoding<Result, Arguments...>;

        static Abi<Result> call(id self, SEL /*name*/, Abi<Arguments>... arguments) noexcept {
            const AutoreleasePool pool;
            const auto* target = targetOf(self, object_getClass(self));
            if (const auto alive = target == nullptr ? nullptr : target->lock()) {
                return (alive.get()->*member)(Arguments(arguments)...);
            }
            return Abi<Result>();
        }
    };

    static void dealloc(id self, SEL name) noexcept {
        delete std::exchange(targetOf(self, object_getClass(self)), nullptr);
        // [super dealloc]
        const auto inherited = class_getMethodImplementation(classOf<NSObject>(), name);
        reinterpret_cast<void (*)(id, SEL)>(inherited)(self, name);
    }

    Class class_;
};

}  // namespace stagehopper::cocoa
