#include <memory>
#include <string>
#include <utility>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// NSURLSessionWebSocketTask and its messages.

namespace stagehopper::recording {

namespace {

struct SocketTaskState {
    std::shared_ptr<SocketConnection> connection;
    bool resumed = false;
};

struct SocketMessageState {
    Incoming incoming;
};

SocketConnection& connectionOf(Call& call) {
    return *call.state<SocketTaskState>().connection;
}

Value makeTask(Call& call) {
    const auto address = addressOf(call.argument<cocoa::id>(0));
    if (!address.starts_with("ws://") && !address.starts_with("wss://")) {
        noteProblem("a WebSocket task for \"" + address + "\"");
    }
    const auto task = call.make("NSURLSessionWebSocketTask");
    stateOf<SocketTaskState>(task).connection = std::make_shared<SocketConnection>(address);
    return task;
}

void connect(const std::shared_ptr<SocketConnection>& connection) {
    if (connection->ended()) return;
    auto* server = World::current().servers.serverOf(connection->address());
    if (server == nullptr) {
        connection->breaks(Servers::refused);
    } else if (!server->takesSockets) {
        connection->breaks("There was a bad response from the server.");
    } else {
        server->connections.push_back(connection);
        connection->connected(server->pongs);
    }
}

/// The session keeps the task as long as its connection lasts.
Value resume(Call& call) {
    auto& task = call.state<SocketTaskState>();
    if (std::exchange(task.resumed, true)) return {};
    task.connection->keepClient(std::make_shared<Retained>(call.receiver()));
    queues::inTheWorld(0, [connection = task.connection] { connect(connection); });
    return {};
}

Value receive(Call& call) {
    connectionOf(call).receive(
        [completion = Retained(call.argument<cocoa::BlockPointer>(0))](const Incoming& incoming) {
            if (incoming.kind == Incoming::Kind::failure) {
                callBlock(completion, cocoa::id{}, makeError(incoming.bytes).get());
                return;
            }
            const auto message = makeObject("NSURLSessionWebSocketMessage");
            stateOf<SocketMessageState>(message.get()).incoming = incoming;
            callBlock(completion, message.get(), cocoa::id{});
        });
    return {};
}

Value sendPing(Call& call) {
    connectionOf(call).ping([handler = Retained(call.argument<cocoa::BlockPointer>(0))](
                                const std::optional<std::string>& failure) {
        const auto error = failure ? makeError(*failure) : Retained();
        callBlock(handler, error.get());
    });
    return {};
}

Value cancel(Call& call) {
    connectionOf(call).close(call.argument<long>(0));
    return {};
}

const Incoming& incomingOf(Call& call) {
    return call.state<SocketMessageState>().incoming;
}

Value messageType(Call& call) {
    return incomingOf(call).kind == Incoming::Kind::text ? 1L : 0L;
}

Value messageString(Call& call) {
    if (incomingOf(call).kind != Incoming::Kind::text) return cocoa::id{};
    return makeString(call, incomingOf(call).bytes);
}

Value messageData(Call& call) {
    if (incomingOf(call).kind != Incoming::Kind::binary) return cocoa::id{};
    return makeData(call, incomingOf(call).bytes);
}

}  // namespace

void defineWebSockets() {
    define("NSURLSession", MessageKind::instance, "webSocketTaskWithURL:", makeTask);
    constexpr auto task = "NSURLSessionWebSocketTask";
    define(task, MessageKind::instance, "resume", resume);
    define(task, MessageKind::instance, "receiveMessageWithCompletionHandler:", receive);
    define(task, MessageKind::instance, "sendPingWithPongReceiveHandler:", sendPing);
    define(task, MessageKind::instance, "cancelWithCloseCode:reason:", cancel);
    constexpr auto message = "NSURLSessionWebSocketMessage";
    define(message, MessageKind::instance, "type", messageType);
    define(message, MessageKind::instance, "string", messageString);
    define(message, MessageKind::instance, "data", messageData);
}

}  // namespace stagehopper::recording
