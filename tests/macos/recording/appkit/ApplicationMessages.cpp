#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Classes.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/system/World.h"

// NSApplication.

namespace stagehopper::recording {

namespace {

Application& application() {
    return World::current().application;
}

Value setActivationPolicy(Call& call) {
    application().setActivationPolicy(call.argument<long>(0));
    return true;
}

Value activate(Call& call) {
    if (application().missing.contains(std::string(call.selector()))) {
        noteProblem("this system has no -[NSApplication " + std::string(call.selector()) + "]");
    }
    ++application().activations;
    return {};
}

Value respondsToSelector(Call& call) {
    const auto& selector = call.argument<cocoa::SEL>(0)->name;
    if (application().missing.contains(selector)) return false;
    const auto itsClass = classes::named("NSApplication");
    return classes::factFor(itsClass, macos_facts::Kind::instance, selector) != nullptr;
}

Value terminate(Call&) {
    application().terminate();
    return {};
}

Value run(Call&) {
    application().run();
    return {};
}

}  // namespace

void defineApplication() {
    define("NSApplication", MessageKind::classLevel, "sharedApplication", [](Call&) -> Value {
        return World::current().application.exists ? sharedApplication() : nullptr;
    });
    define("NSApplication", MessageKind::instance, "setActivationPolicy:", setActivationPolicy);
    define("NSApplication", MessageKind::instance, "activate", activate);
    define("NSApplication", MessageKind::instance, "activateIgnoringOtherApps:", activate);
    define("NSApplication", MessageKind::instance, "respondsToSelector:", respondsToSelector);
    define("NSApplication", MessageKind::instance, "terminate:", terminate);
    define("NSApplication", MessageKind::instance, "run", run);
}

}  // namespace stagehopper::recording
