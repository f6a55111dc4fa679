#include "app/BridgeMessage.h"

#include <array>
#include <optional>
#include <utility>

namespace stagehopper {

namespace {

using namespace std::string_view_literals;

constexpr std::array commands{
    std::pair{"CMD:showOverlay"sv, BridgeCommand::showOverlay},
    std::pair{"CMD:hideOverlay"sv, BridgeCommand::hideOverlay},
    std::pair{"CMD:destroyOverlay"sv, BridgeCommand::destroyOverlay},
    std::pair{"CMD:startBundledBackend"sv, BridgeCommand::startBundledBackend},
    std::pair{"CMD:stopBundledBackend"sv, BridgeCommand::stopBundledBackend},
    std::pair{"CMD:requestAwdlBeforeMeeting"sv, BridgeCommand::requestAwdlBeforeMeeting},
    std::pair{"CMD:enableSlideControl"sv, BridgeCommand::enableSlideControl},
    std::pair{"CMD:openAccessibilitySettings"sv, BridgeCommand::openAccessibilitySettings},
};

/// The text before the first bar and, if there is a bar, the text after it.
std::pair<std::string_view, std::optional<std::string_view>> splitAtBar(std::string_view text) {
    const auto bar = text.find('|');
    if (bar == std::string_view::npos) return {text, std::nullopt};
    return {text.substr(0, bar), text.substr(bar + 1)};
}

SlideStep parseSlideStep(std::string_view payload) {
    const auto [direction, afterDirection] = splitAtBar(payload);
    const auto [seq, source] = splitAtBar(afterDirection.value_or(""sv));
    return {direction, seq, source.value_or("panel"sv)};
}

BridgeMessage parseConnectRequest(std::string_view payload) {
    const auto [serverUrl, roomCode] = splitAtBar(payload);
    if (serverUrl.empty() || roomCode.value_or(""sv).empty()) return UnknownMessage{};
    return ConnectRequest{serverUrl, *roomCode};
}

}  // namespace

BridgeMessage parseBridgeMessage(std::string_view raw) {
    for (const auto& [text, command] : commands) {
        if (raw == text) return command;
    }
    const auto payload = [raw](std::string_view prefix) { return raw.substr(prefix.size()); };
    if (raw.starts_with("PPT:"sv)) return parseSlideStep(payload("PPT:"sv));
    if (raw.starts_with("DBG:"sv)) return DebugText{payload("DBG:"sv)};
    if (raw.starts_with("WSCONN:"sv)) return parseConnectRequest(payload("WSCONN:"sv));
    return UnknownMessage{};
}

}  // namespace stagehopper
