#include <algorithm>
#include <string>
#include <vector>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Classes.h"

namespace stagehopper::recording {

namespace {

struct Observation {
    Weak observer;
    std::string selector;
    /// Empty: every name.
    std::string name;
    /// Nil: every object.
    cocoa::id object = nullptr;
};

struct CenterState {
    std::vector<Observation> observations;
};

/// Selectors of methods without an argument are called without the notification.
void notify(const Observation& observation, const Retained& notification) {
    const auto observer = observation.observer.get();
    if (observer == nullptr) return;
    if (!responds(observer, observation.selector)) {
        noteProblem("an observer of " + observation.name + " has no method " +
                    observation.selector);
    } else if (observation.selector.ends_with(':')) {
        sendToPort(observer, observation.selector, notification.get());
    } else {
        sendToPort(observer, observation.selector);
    }
}

void addObserver(Call& call) {
    const auto selector = call.argument<cocoa::SEL>(1);
    call.state<CenterState>().observations.push_back(
        {Weak(call.argument<cocoa::id>(0)), selector->name, textOf(call.argument<cocoa::id>(2)),
         call.argument<cocoa::id>(3)});
}

void removeObserver(Call& call) {
    const auto observer = call.argument<cocoa::id>(0);
    std::erase_if(call.state<CenterState>().observations,
                  [&](const auto& each) { return each.observer.get() == observer; });
}

}  // namespace

Retained makeNotification(std::string_view /*name*/, cocoa::id object) {
    auto notification = makeObject("NSNotification");
    setProperty(notification.get(), "object", object);
    return notification;
}

void postNotification(std::string_view name, cocoa::id object) {
    const auto notification = makeNotification(name, object);
    const auto center = sharedInstance("NSNotificationCenter");
    // A copy: observers may be added or removed during the loop.
    const auto observations = stateOf<CenterState>(center).observations;
    for (const auto& each : observations) {
        const bool named = each.name.empty() || each.name == name;
        if (named && (each.object == nullptr || each.object == object)) notify(each, notification);
    }
}

void defineNotifications() {
    MessagesOf("NSNotificationCenter")
        .shared("defaultCenter")
        .on("addObserver:selector:name:object:", addObserver)
        .on("removeObserver:", removeObserver);
}

}  // namespace stagehopper::recording
