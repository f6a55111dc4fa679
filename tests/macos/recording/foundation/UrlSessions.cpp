#include <memory>
#include <string>
#include <utility>
#include <variant>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/system/World.h"

// NSURLSession with its data tasks and WebSocket tasks, on the servers of the simulated port. Their
// handlers are called on the queue "session".

namespace stagehopper::recording {

namespace {

struct DataTask {
    std::string address;
    Retained completion;
    bool resumed = false;
};

using Socket = std::shared_ptr<platform::WebSocketTask>;

Retained errorOf(const std::optional<platform::UrlError>& error) {
    return error ? makeError(error->localizedDescription) : Retained();
}

cocoa::id makeDataTask(Call& call) {
    const auto url = call.argument<cocoa::id>(0);
    if (url == nullptr) noteProblem("a data task for no URL");
    const auto task = call.make("NSURLSessionDataTask");
    stateOf<DataTask>(task) = {addressOf(url), Retained(call.argument<cocoa::BlockPointer>(1))};
    return task;
}

void complete(const Retained& completion, const std::string& address,
              const platform::DataResult& result) {
    Retained response;
    Retained body;
    if (result.response) {
        const bool http = !World::current().network.notHttp.contains(address);
        response = makeObject(http ? "NSHTTPURLResponse" : "NSURLResponse");
        setProperty(response.get(), "URL", makeUrl(address).get());
        setProperty(response.get(), "statusCode", long{result.response->statusCode});
        body = makeData(result.response->body);
    }
    callBlock(completion, body.get(), response.get(), errorOf(result.error).get());
}

/// The session keeps the task until its completion has been called.
void resumeDataTask(Call& call) {
    auto& task = call.state<DataTask>();
    if (std::exchange(task.resumed, true)) return;
    auto& world = World::current();
    const auto redirect = world.network.redirects.find(task.address);
    const auto address =
        redirect == world.network.redirects.end() ? task.address : redirect->second;
    world.servers.startDataTask(address, [self = Retained(call.receiver()), address,
                                          completion = std::exchange(task.completion, Retained())](
                                             const platform::DataResult& result) {
        complete(completion, address, result);
    });
}

cocoa::id makeSocketTask(Call& call) {
    const auto address = addressOf(call.argument<cocoa::id>(0));
    if (!address.starts_with("ws://") && !address.starts_with("wss://")) {
        noteProblem("a WebSocket task for \"" + address + "\"");
    }
    const auto task = call.make("NSURLSessionWebSocketTask");
    stateOf<Socket>(task) = World::current().servers.makeWebSocketTask(address);
    return task;
}

void resumeSocket(Call& call) {
    World::current().network.resumedSockets.emplace_back(call.receiver());
    call.state<Socket>()->resume();
}

void receive(Call& call) {
    call.state<Socket>()->receive([completion = Retained(call.argument<cocoa::BlockPointer>(0))](
                                      const platform::ReceiveResult& result) {
        if (const auto* error = std::get_if<platform::UrlError>(&result)) {
            callBlock(completion, cocoa::id{}, errorOf(*error).get());
            return;
        }
        const auto& received = std::get<platform::WebSocketMessage>(result);
        const bool isText = received.kind == platform::WebSocketMessage::Kind::text;
        const auto message = makeObject("NSURLSessionWebSocketMessage");
        setProperty(message.get(), "type", isText ? 1L : 0L);
        setProperty(message.get(), "string", isText ? makeString(received.bytes).get() : nullptr);
        setProperty(message.get(), "data", isText ? nullptr : makeData(received.bytes).get());
        callBlock(completion, message.get(), cocoa::id{});
    });
}

void sendPing(Call& call) {
    call.state<Socket>()->sendPing([handler = Retained(call.argument<cocoa::BlockPointer>(0))](
                                       const std::optional<platform::UrlError>& error) {
        for (int time = 0; time < World::current().network.pongCalls; ++time) {
            callBlock(handler, errorOf(error).get());
        }
    });
}

}  // namespace

void defineUrlSessions() {
    MessagesOf("NSURLSession")
        .shared("sharedSession")
        .on("dataTaskWithURL:completionHandler:", makeDataTask)
        .on("webSocketTaskWithURL:", makeSocketTask);
    MessagesOf("NSURLSessionDataTask").on("resume", resumeDataTask);
    MessagesOf("NSURLSessionWebSocketTask")
        .on("resume", resumeSocket)
        .on("receiveMessageWithCompletionHandler:", receive)
        .on("sendPingWithPongReceiveHandler:", sendPing)
        .on("cancelWithCloseCode:reason:", [](Call& call) {
            call.state<Socket>()->cancel(static_cast<int>(call.argument<long>(0)));
        });
}

}  // namespace stagehopper::recording
