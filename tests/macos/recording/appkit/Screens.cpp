#include "tests/macos/recording/appkit/Screens.h"

#include <utility>

#include "ports/macos/cocoa/appkit/NSApplication.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/Notifications.h"
#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

void Screens::change(std::vector<cocoa::CGRect> frames) {
    frames_ = std::move(frames);
    queues::async("main", [] {
        postNotification(textOf(NSApplicationDidChangeScreenParametersNotification),
                         sharedInstance("NSApplication"));
    });
}

}  // namespace stagehopper::recording
