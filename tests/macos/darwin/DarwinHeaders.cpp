// Our declarations of C functions beside the headers of Darwin itself: a function or variable that
// is declared twice with different types does not compile. Only compiled, never linked.
//
// check-darwin-headers includes all of ours before this file, because the headers of Darwin define
// some of the names as macros; and it empties __nothrow__, since ours do not promise that a
// function never throws.

// C knows one type of queue; for C++ these headers derive a type for the global queues, under the
// same address. Take C's view, which is ours.
#include <os/availability.h>
#include <os/base.h>
#include <os/object.h>
#include <sys/cdefs.h>

// object.h uses time.h without including it.
// clang-format off
#define __DISPATCH_INDIRECT__
#include <dispatch/base.h>
#include <dispatch/time.h>
#include <dispatch/object.h>
// clang-format on
#undef __DISPATCH_INDIRECT__
#undef DISPATCH_DECL_SUBCLASS
#define DISPATCH_DECL_SUBCLASS(name, base) typedef base##_t name##_t

#include <Block.h>
#include <dispatch/dispatch.h>
#include <objc/message.h>
#include <objc/runtime.h>

#include <type_traits>

// Same names, same types, where nothing but a name is declared twice.
static_assert(std::is_same_v<stagehopper::cocoa::BOOL, BOOL>);
static_assert(std::is_same_v<stagehopper::cocoa::Class, Class>);
static_assert(std::is_same_v<stagehopper::cocoa::id, id>);
static_assert(std::is_same_v<stagehopper::cocoa::Ivar, Ivar>);
static_assert(std::is_same_v<stagehopper::cocoa::SEL, SEL>);
static_assert(std::is_same_v<stagehopper::cocoa::dispatch_queue_t, dispatch_queue_t>);
static_assert(std::is_same_v<stagehopper::cocoa::dispatch_semaphore_t, dispatch_semaphore_t>);
static_assert(std::is_same_v<stagehopper::cocoa::dispatch_time_t, dispatch_time_t>);
static_assert(stagehopper::cocoa::QOS_CLASS_DEFAULT == QOS_CLASS_DEFAULT);
static_assert(stagehopper::cocoa::QOS_CLASS_USER_INITIATED == QOS_CLASS_USER_INITIATED);

#if defined(WRONG_FUNCTION)
// None of these three may compile.
extern "C" int dispatch_semaphore_wait(dispatch_semaphore_t, dispatch_time_t);
#elif defined(WRONG_ARGUMENT)
namespace elsewhere {
extern "C" void dispatch_async_f(void*, void*, void (*)(void*));
}
#elif defined(WRONG_VARIABLE)
extern "C" void* _NSConcreteStackBlock[16];
#endif
