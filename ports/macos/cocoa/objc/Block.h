#pragma once

#include <cstddef>
#include <functional>
#include <memory>

#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/macos/cocoa/objc/Encoding.h"

extern "C" {
extern void* _NSConcreteStackBlock[32];
void* _Block_copy(const void* block);
void _Block_release(const void* block);
}

namespace stagehopper::cocoa {

template <class Signature>
class Block;

/// An Objective-C block made from a C++ callable, with the layout of clang's page
/// "Block-ABI-Apple". Its receiver copies or retains it as long as needed, and may call it on any
/// thread, more than once; the callable is destroyed with the last reference.
///
/// The callable gets handles that live during the call, and runs in an autorelease pool. An
/// exception that leaves it ends the program: nothing unwinds into the system's frames.
template <class... Arguments>
class Block<void(Arguments...)> {
public:
    using Function = std::function<void(Arguments...)>;

    explicit Block(Function function) {
        // 1 << 25: has copy and dispose functions. 1 << 26: they are C++. 1 << 30: has a signature.
        static constexpr int flags = (1 << 25) | (1 << 26) | (1 << 30);
        static constexpr Descriptor descriptor{0,
                                               sizeof(Literal),
                                               &copyFunction,
                                               &deleteFunction,
                                               blockEncoding<void, Arguments...>,
                                               nullptr};
        const Literal onStack{&_NSConcreteStackBlock[0], flags, 0, &invoke, &descriptor, &function};
        pointer_ = _Block_copy(&onStack);
    }
    ~Block() { _Block_release(pointer_); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    [[nodiscard]] BlockPointer get() const { return {pointer_}; }

private:
    struct Descriptor {
        unsigned long reserved;
        unsigned long size;
        void (*copy)(void* copied, const void* original);
        void (*dispose)(const void* block);
        const char* signature;
        /// The position of captured objects; we capture none.
        const void* layout;
    };
    struct Literal {
        void* isa;
        int flags;
        int reserved;
        void (*invoke)(Literal* self, Abi<Arguments>... arguments);
        const Descriptor* descriptor;
        Function* function;
    };
    static_assert(offsetof(Literal, invoke) == 16 && offsetof(Literal, descriptor) == 24 &&
                  sizeof(Literal) == 40 && sizeof(Descriptor) == 48);

    static void invoke(Literal* self, Abi<Arguments>... arguments) noexcept {
        const AutoreleasePool pool;
        (*self->function)(Arguments(arguments)...);
    }
    static void copyFunction(void* copied, const void* original) noexcept {
        static_cast<Literal*>(copied)->function =
            std::make_unique<Function>(*static_cast<const Literal*>(original)->function).release();
    }
    static void deleteFunction(const void* block) noexcept {
        delete static_cast<const Literal*>(block)->function;
    }

    void* pointer_;
};

/// Calls a block that the system passed to us.
template <class... Arguments>
void callBlock(BlockPointer block, Arguments... arguments) {
    struct Beginning {
        void* isa;
        int flags;
        int reserved;
        void (*invoke)(void* self, Abi<Arguments>... arguments);
    };
    static_cast<const Beginning*>(block.pointer)->invoke(block.pointer, arguments...);
}

}  // namespace stagehopper::cocoa
