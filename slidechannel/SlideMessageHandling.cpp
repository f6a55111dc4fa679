#include <variant>

#include "app/AppController.h"
#include "app/LogLine.h"
#include "platform/Json.h"
#include "platform/Text.h"
#include "slidechannel/SlideMessage.h"
#include "text/Utf8.h"

namespace stagehopper {

namespace {

/// Names this channel in the log.
constexpr std::string_view source = "native_ws";

}  // namespace

void AppController::handleNativeSlideSocketText(std::string_view text) {
    const auto document = platform_.json.decoded(text);
    if (!document) return;
    const auto message = parseSlideMessage(*document);
    if (std::holds_alternative<WelcomeMessage>(message)) {
        slideNavLog("native_ws_ready",
                    logDetail({{"room", dashIfAbsent(nativeSlideSocketRoomCode)}}));
    } else if (const auto* step = std::get_if<SlideNavMessage>(&message)) {
        const auto direction = platform_.text.lowercased(trimmed(step->direction));
        slideNavLog("native_ws_received",
                    logDetail({{"direction", direction}, {"seq", dashIfEmpty(step->seq)}}));
        consumeSlideEvent(direction, step->seq, source);
    }
}

}  // namespace stagehopper
