#include <unistd.h>

#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <sstream>
#include <string>

#include "ports/macos/cocoa/darwin/GrandCentralDispatch.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"

// Grand Central Dispatch in virtual time.

struct dispatch_queue_s {
    std::string name;
};
struct dispatch_semaphore_s {
    std::intptr_t value = 0;
    std::intptr_t original = 0;
};
dispatch_queue_s _dispatch_main_q{"main"};

namespace stagehopper::recording::dispatch {

namespace {

/// What the port has made and not released yet.
struct Made {
    std::map<const void*, std::unique_ptr<dispatch_queue_s>> queues;
    std::map<const void*, std::unique_ptr<dispatch_semaphore_s>> semaphores;
};

Made& made() {
    static auto* const all = new Made;
    return *all;
}

std::string seconds(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

bool isLive(cocoa::dispatch_semaphore_t semaphore) {
    if (made().semaphores.contains(semaphore)) return true;
    noteProblem("a semaphore was used after it was released");
    return false;
}

/// Zero is "now": virtual time begins a little later.
constexpr double epoch = 1;
constexpr cocoa::dispatch_time_t timeForever = std::numeric_limits<std::uint64_t>::max();

double secondsUntil(cocoa::dispatch_time_t time) {
    if (time == cocoa::DISPATCH_TIME_NOW) return 0;
    if (time == timeForever) return queues::forever;
    return std::max(0.0, static_cast<double>(time) / 1e9 - epoch - queues::now());
}

}  // namespace

std::vector<std::string> held() {
    std::vector<std::string> lines;
    for (const auto& [address, queue] : made().queues) lines.push_back("queue " + queue->name);
    lines.insert(lines.end(), made().semaphores.size(), "a semaphore");
    return lines;
}

void clear() {
    made().queues.clear();
    made().semaphores.clear();
}

}  // namespace stagehopper::recording::dispatch

namespace stagehopper::cocoa {

using recording::noteProblem;
using recording::recordFunction;
namespace dispatch = recording::dispatch;
namespace queues = recording::queues;

extern "C" {

void dispatch_release(dispatch_object_t object) {
    if (dispatch::made().queues.erase(object) == 1) return;
    const auto semaphore = dispatch::made().semaphores.find(object);
    if (semaphore == dispatch::made().semaphores.end()) {
        noteProblem("dispatch_release of something that is not there");
        return;
    }
    if (semaphore->second->value < semaphore->second->original) {
        noteProblem(
            "a semaphore was released during a wait for it: the system ends "
            "the program");
    }
    dispatch::made().semaphores.erase(semaphore);
}

dispatch_queue_t dispatch_queue_create(const char* label, dispatch_queue_attr_t attributes) {
    if (attributes != nullptr) noteProblem("a queue with attributes");
    auto queue = std::make_unique<dispatch_queue_s>(dispatch_queue_s{label});
    auto* const address = queue.get();
    dispatch::made().queues[address] = std::move(queue);
    return address;
}

dispatch_queue_t dispatch_get_global_queue(std::intptr_t identifier, std::uintptr_t flags) {
    static std::map<std::intptr_t, dispatch_queue_s> all{
        {QOS_CLASS_USER_INITIATED, {"global user-initiated"}},
        {QOS_CLASS_DEFAULT, {"global default"}}};
    const auto found = all.find(identifier);
    if (found == all.end() || flags != 0) {
        noteProblem("no global queue " + std::to_string(identifier));
        return nullptr;
    }
    return &found->second;
}

void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work) {
    recordFunction("dispatch_async_f", {queue->name});
    queues::async(queue->name, [context, work] { work(context); });
}

void dispatch_after_f(dispatch_time_t when, dispatch_queue_t queue, void* context,
                      dispatch_function_t work) {
    const auto delay = dispatch::secondsUntil(when);
    recordFunction("dispatch_after_f", {dispatch::seconds(delay) + " s", queue->name});
    queues::after(delay, queue->name, [context, work] { work(context); });
}

dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t delta) {
    if (when == dispatch::timeForever) return when;
    const auto now =
        static_cast<dispatch_time_t>(std::llround((queues::now() + dispatch::epoch) * 1e9));
    const auto base = when == DISPATCH_TIME_NOW ? now : when;
    return base + static_cast<dispatch_time_t>(delta);
}

dispatch_semaphore_t dispatch_semaphore_create(std::intptr_t value) {
    auto semaphore = std::make_unique<dispatch_semaphore_s>(dispatch_semaphore_s{value, value});
    auto* const address = semaphore.get();
    dispatch::made().semaphores[address] = std::move(semaphore);
    return address;
}

std::intptr_t dispatch_semaphore_signal(dispatch_semaphore_t semaphore) {
    if (dispatch::isLive(semaphore)) ++semaphore->value;
    return 0;
}

std::intptr_t dispatch_semaphore_wait(dispatch_semaphore_t semaphore, dispatch_time_t timeout) {
    if (!dispatch::isLive(semaphore)) return 1;
    const auto isSignaled = [semaphore] { return semaphore->value > 0; };
    const bool came = timeout == DISPATCH_TIME_NOW
                          ? isSignaled()
                          : queues::waitUntil(isSignaled, dispatch::secondsUntil(timeout));
    if (!came) return 1;
    --semaphore->value;
    return 0;
}
}

}  // namespace stagehopper::cocoa

// The system's header has a reserved name for the parameter.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int usleep(useconds_t duration) {
    using namespace stagehopper::recording;
    recordFunction("usleep", {std::to_string(duration)});
    queues::waitUntil([] { return false; }, duration / 1e6);
    return 0;
}
