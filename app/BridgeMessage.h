#pragma once

#include <string_view>
#include <variant>

namespace stagehopper {

/// Texts that begin with "CMD:", each compared as a whole.
enum class BridgeCommand {
    showOverlay,
    hideOverlay,
    destroyOverlay,
    startBundledBackend,
    stopBundledBackend,
    requestAwdlBeforeMeeting,
    enableSlideControl,
    openAccessibilitySettings,
};

/// "PPT:direction|seq|source". The fields are not validated.
struct SlideStep {
    std::string_view direction;
    std::string_view seq;
    /// "panel" when the message had no third field.
    std::string_view source;

    friend bool operator==(const SlideStep&, const SlideStep&) = default;
};

/// "DBG:text".
struct DebugText {
    std::string_view text;

    friend bool operator==(const DebugText&, const DebugText&) = default;
};

/// "WSCONN:url|room". Neither is empty.
struct ConnectRequest {
    std::string_view serverUrl;
    std::string_view roomCode;

    friend bool operator==(const ConnectRequest&, const ConnectRequest&) = default;
};

struct UnknownMessage {
    friend bool operator==(const UnknownMessage&, const UnknownMessage&) = default;
};

/// The texts are views into the parsed message.
using BridgeMessage =
    std::variant<UnknownMessage, BridgeCommand, SlideStep, DebugText, ConnectRequest>;

/// Reads one message of the panel page. Case and blanks are significant.
BridgeMessage parseBridgeMessage(std::string_view raw);

}  // namespace stagehopper
