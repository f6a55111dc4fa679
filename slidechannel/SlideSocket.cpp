#include <utility>
#include <variant>

#include "app/AppController.h"
#include "app/LogLine.h"
#include "platform/Dispatch.h"
#include "platform/UrlSession.h"
#include "slidechannel/SlideSocketUrl.h"
#include "text/Utf8.h"

namespace stagehopper {

namespace {

constexpr platform::Duration pingInterval{15.0};
constexpr platform::Duration reconnectDelay{1.0};
/// "Going away" in RFC 6455.
constexpr int goingAway = 1001;

/// The text of a message; absent for bytes that are not valid UTF-8.
std::optional<std::string> textOf(platform::WebSocketMessage message) {
    if (message.kind == platform::WebSocketMessage::Kind::binary && !isValidUtf8(message.bytes)) {
        return std::nullopt;
    }
    return std::move(message.bytes);
}

}  // namespace

void AppController::connectNativeSlideSocket(const std::string& serverUrl,
                                             const std::string& roomCode, std::string_view reason) {
    if (nativeSlideReconnectWorkItem) nativeSlideReconnectWorkItem->cancel();
    nativeSlideReconnectWorkItem.reset();
    if (nativeSlideSocket && nativeSlideSocketRoomCode == roomCode &&
        nativeSlideSocketServerUrl == serverUrl) {
        return;
    }
    cancelNativeSlideSocket("reconnect");

    const auto url = slideSocketUrl(serverUrl, roomCode, nativeSlideSocketUserId);
    if (!url) {
        slideNavLog("native_ws_connect_failed",
                    logDetail({{"room", roomCode}, {"reason", "invalid_url"}}));
        return;
    }
    auto socket = platform_.urlSession.makeWebSocketTask(*url);
    {
        const std::lock_guard lock(nativeSlideSocketMutex_);
        nativeSlideSocket = socket;
        nativeSlideSocketRoomCode = roomCode;
        nativeSlideSocketServerUrl = serverUrl;
    }
    slideNavLog("native_ws_connecting", logDetail({{"room", roomCode}, {"reason", reason}}));
    socket->resume();
    startNativeSlidePingLoop(roomCode);
    receiveNativeSlideSocketMessages(roomCode);
}

void AppController::receiveNativeSlideSocketMessages(const std::string& expectedRoomCode) {
    std::shared_ptr<platform::WebSocketTask> socket;
    {
        const std::lock_guard lock(nativeSlideSocketMutex_);
        if (nativeSlideSocketRoomCode != expectedRoomCode) return;
        socket = nativeSlideSocket;
    }
    if (!socket) return;
    socket->receive([weak = weak_from_this(), expectedRoomCode](platform::ReceiveResult result) {
        const auto self = weak.lock();
        if (!self) return;
        auto& mainQueue = self->platform_.dispatch;
        if (const auto* error = std::get_if<platform::UrlError>(&result)) {
            mainQueue.asyncMain([weak, expectedRoomCode, error = error->localizedDescription] {
                if (const auto app = weak.lock()) {
                    app->nativeSlideSocketDidFail(expectedRoomCode, error);
                }
            });
            return;
        }
        if (auto text = textOf(std::get<platform::WebSocketMessage>(std::move(result)))) {
            mainQueue.asyncMain([weak, text = std::move(*text)] {
                if (const auto app = weak.lock()) app->handleNativeSlideSocketText(text);
            });
        }
        // The next receive goes to the socket that has this room now.
        self->receiveNativeSlideSocketMessages(expectedRoomCode);
    });
}

void AppController::nativeSlideSocketDidFail(const std::string& expectedRoomCode,
                                             std::string_view error) {
    // The end of a dropped or replaced connection is not a failure.
    if (nativeSlideSocketRoomCode != expectedRoomCode) return;
    const auto serverUrl = nativeSlideSocketServerUrl;
    slideNavLog("native_ws_receive_failed",
                logDetail({{"room", expectedRoomCode}, {"error", error}}));
    cancelNativeSlideSocket("receive_failed");
    if (serverUrl) {
        scheduleNativeSlideSocketReconnect(*serverUrl, expectedRoomCode,
                                           "receive_failed_reconnect");
    }
}

void AppController::startNativeSlidePingLoop(const std::string& roomCode) {
    if (nativeSlidePingTimer) nativeSlidePingTimer->invalidate();
    nativeSlidePingTimer =
        platform_.dispatch.repeatMain(pingInterval, [weak = weak_from_this(), roomCode] {
            if (const auto self = weak.lock()) self->pingNativeSlideSocket(roomCode);
        });
}

void AppController::pingNativeSlideSocket(const std::string& roomCode) {
    if (appIsTerminating || nativeSlideSocketRoomCode != roomCode || !nativeSlideSocket) return;
    nativeSlideSocket->sendPing(
        [weak = weak_from_this(), roomCode](const std::optional<platform::UrlError>& error) {
            const auto self = weak.lock();
            if (!self || !error) return;
            self->platform_.dispatch.asyncMain(
                [weak, roomCode, description = error->localizedDescription] {
                    if (const auto app = weak.lock()) {
                        app->nativeSlidePingDidFail(roomCode, description);
                    }
                });
        });
}

void AppController::nativeSlidePingDidFail(const std::string& roomCode, std::string_view error) {
    // Unlike a failed receive, a failed ping of any room drops the current connection.
    const auto serverUrl = nativeSlideSocketServerUrl;
    const auto currentRoom = nativeSlideSocketRoomCode;
    slideNavLog("native_ws_ping_failed",
                logDetail({{"room", currentRoom.value_or(roomCode)}, {"error", error}}));
    cancelNativeSlideSocket("ping_failed");
    if (serverUrl && currentRoom) {
        scheduleNativeSlideSocketReconnect(*serverUrl, *currentRoom, "ping_failed_reconnect");
    }
}

void AppController::scheduleNativeSlideSocketReconnect(const std::string& serverUrl,
                                                       const std::string& roomCode,
                                                       std::string_view reason) {
    if (nativeSlideReconnectWorkItem) nativeSlideReconnectWorkItem->cancel();
    nativeSlideReconnectWorkItem = platform_.dispatch.afterMain(
        reconnectDelay,
        [weak = weak_from_this(), serverUrl, roomCode, reason = std::string(reason)] {
            const auto self = weak.lock();
            if (!self || self->appIsTerminating) return;
            self->connectNativeSlideSocket(serverUrl, roomCode, reason);
        });
}

void AppController::cancelNativeSlideSocket(std::string_view reason) {
    if (nativeSlideSocket) {
        slideNavLog(
            "native_ws_disconnected",
            logDetail({{"room", dashIfAbsent(nativeSlideSocketRoomCode)}, {"reason", reason}}));
    }
    if (nativeSlidePingTimer) nativeSlidePingTimer->invalidate();
    nativeSlidePingTimer.reset();
    std::shared_ptr<platform::WebSocketTask> socket;
    {
        const std::lock_guard lock(nativeSlideSocketMutex_);
        socket = std::exchange(nativeSlideSocket, nullptr);
        nativeSlideSocketRoomCode.reset();
        nativeSlideSocketServerUrl.reset();
    }
    if (socket) socket->cancel(goingAway);
}

}  // namespace stagehopper
