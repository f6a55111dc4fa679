#include <string>

#include "tests/macos/recording/appkit/Application.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Classes.h"
#include "tests/macos/recording/system/World.h"

namespace stagehopper::recording {

void defineApplication() {
    const auto application = []() -> Application& { return World::current().application; };
    const auto activate = [application](Call& call) {
        if (!application().missing.contains(call.selector())) return;
        noteProblem("this system has no -[NSApplication " + std::string(call.selector()) + "]");
    };
    MessagesOf("NSApplication")
        .onClass(
            "sharedApplication",
            [application](Call&) { return application().exists ? sharedApplication() : nullptr; })
        .on("setActivationPolicy:", [](Call&) { return true; })
        .on("activate", activate)
        .on("activateIgnoringOtherApps:", activate)
        .on("respondsToSelector:",
            [application](Call& call) {
                const auto& selector = call.argument<cocoa::SEL>(0)->name;
                return !application().missing.contains(selector) &&
                       responds(call.receiver(), selector);
            })
        .on("terminate:", [application](Call&) { application().terminate(); })
        .on("run", [application](Call&) { application().run(); });
}

}  // namespace stagehopper::recording
