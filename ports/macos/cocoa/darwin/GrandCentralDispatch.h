#pragma once

#include <cstdint>

// Grand Central Dispatch, as <dispatch/*.h> declare it. Any thread. The functions that take a
// function and a context spare us the blocks.

extern "C" {
struct dispatch_object_s;
struct dispatch_queue_s;
struct dispatch_queue_attr_s;
struct dispatch_semaphore_s;
extern struct dispatch_queue_s _dispatch_main_q;
}

namespace stagehopper::cocoa {

using dispatch_object_t = ::dispatch_object_s*;
using dispatch_queue_t = ::dispatch_queue_s*;
using dispatch_queue_attr_t = ::dispatch_queue_attr_s*;
using dispatch_semaphore_t = ::dispatch_semaphore_s*;
using dispatch_time_t = std::uint64_t;
using dispatch_function_t = void (*)(void* context);

inline constexpr dispatch_time_t DISPATCH_TIME_NOW = 0;
inline constexpr dispatch_time_t DISPATCH_TIME_FOREVER = ~0ULL;

/// <sys/qos.h>; the identifiers of the global queues.
inline constexpr std::intptr_t QOS_CLASS_USER_INITIATED = 0x19;
inline constexpr std::intptr_t QOS_CLASS_DEFAULT = 0x15;

extern "C" {
/// Of a queue or a semaphore.
void dispatch_release(dispatch_object_t object);
/// One task at a time when there are no attributes.
dispatch_queue_t dispatch_queue_create(const char* label, dispatch_queue_attr_t attributes);
dispatch_queue_t dispatch_get_global_queue(std::intptr_t identifier, std::uintptr_t flags);
void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work);
void dispatch_after_f(dispatch_time_t when, dispatch_queue_t queue, void* context,
                      dispatch_function_t work);
/// `delta` is nanoseconds.
dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t delta);
dispatch_semaphore_t dispatch_semaphore_create(std::intptr_t value);
std::intptr_t dispatch_semaphore_signal(dispatch_semaphore_t semaphore);
/// Zero when a signal came in time.
std::intptr_t dispatch_semaphore_wait(dispatch_semaphore_t semaphore, dispatch_time_t timeout);
}

}  // namespace stagehopper::cocoa
