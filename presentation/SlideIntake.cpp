#include <string>

#include "app/AppController.h"
#include "app/LogLine.h"
#include "platform/Accessibility.h"
#include "platform/Clock.h"
#include "platform/Dispatch.h"
#include "presentation/SlideDirection.h"
#include "presentation/SlideEvent.h"

namespace stagehopper {

void AppController::consumeSlideEvent(std::string_view direction, std::string_view seq,
                                      std::string_view source) {
    if (!seq.empty()) {
        const auto now = platform_.clock.now();
        if (isRepeatedEvent(seq, now, lastSlideEventSeq, lastSlideEventAt)) {
            // The time of the accepted event is kept, so that an event that is repeated without end
            // is accepted again after the window.
            slideNavLog("duplicate_dropped",
                        logDetail({{"direction", direction}, {"seq", seq}, {"source", source}}));
            return;
        }
        lastSlideEventSeq = seq;
        lastSlideEventAt = now;
    }
    slideNavLog(
        "native_bridge_received",
        logDetail({{"direction", direction}, {"seq", dashIfEmpty(seq)}, {"source", source}}));
    pptSlide(direction);
}

void AppController::pptSlide(std::string_view direction) {
    platform_.dispatch.asyncMain([weak = weak_from_this(), direction = std::string(direction)] {
        if (const auto self = weak.lock()) self->pptSlideOnMainQueue(direction);
    });
}

void AppController::pptSlideOnMainQueue(std::string_view direction) {
    const auto parsed = parseSlideDirection(platform_.text, direction);
    if (!parsed) {
        slideNavLog("blocked_invalid_direction", logDetail({{"raw", direction}}));
        return;
    }
    if (!platform_.accessibility.isProcessTrusted()) {
        slideNavLog("blocked_no_accessibility",
                    "AXIsProcessTrusted=false (waiting for user to quit/relaunch)");
        return;
    }
    resolveSlideTargetAndSend(*parsed);
}

}  // namespace stagehopper
