#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/UrlSession.h"
#include "ports/linux/network/BeastUrlSession.h"
#include "tests/contract/Collected.h"

namespace stagehopper {

/// Collects, in words, what comes of requests, receives and pings. Its completions may outlive it.
class Outcomes {
public:
    std::function<void(platform::DataResult)> data() {
        return [lines = lines_](const platform::DataResult& result) {
            std::string line;
            if (result.response) {
                line = std::to_string(result.response->statusCode) + " " + result.response->body;
            }
            if (result.error) {
                line +=
                    (line.empty() ? "" : ", ") + ("error: " + result.error->localizedDescription);
            }
            lines->add(line);
        };
    }
    std::function<void(platform::ReceiveResult)> message() {
        return [lines = lines_](const platform::ReceiveResult& result) {
            if (const auto* error = std::get_if<platform::UrlError>(&result)) {
                return lines->add("error: " + error->localizedDescription);
            }
            const auto& message = std::get<platform::WebSocketMessage>(result);
            const bool text = message.kind == platform::WebSocketMessage::Kind::text;
            lines->add((text ? "text " : "binary ") + message.bytes);
        };
    }
    std::function<void(std::optional<platform::UrlError>)> pong() {
        return [lines = lines_](const std::optional<platform::UrlError>& error) {
            lines->add(error ? "no pong: " + error->localizedDescription : "pong");
        };
    }

    Collected<std::string>& lines() { return *lines_; }
    /// The first so many, or as many as came in time.
    std::vector<std::string> first(std::size_t count) {
        (void)lines_->await(count);
        return lines_->all();
    }

private:
    std::shared_ptr<Collected<std::string>> lines_ = std::make_shared<Collected<std::string>>();
};

/// A session with one WebSocket that is being opened, and one pending receive.
struct SocketClient {
    explicit SocketClient(const std::string& url, linux_port::UrlTimeLimits limits = {})
        : session(limits), task(session.makeWebSocketTask(url)) {
        task->resume();
        task->receive(outcomes.message());
    }

    linux_port::BeastUrlSession session;
    Outcomes outcomes;
    std::shared_ptr<platform::WebSocketTask> task;
};

/// What comes of a GET.
inline std::string outcomeOfGet(const std::string& url, linux_port::UrlTimeLimits limits = {}) {
    linux_port::BeastUrlSession session(limits);
    Outcomes outcomes;
    session.startDataTask(url, outcomes.data());
    const auto lines = outcomes.first(1);
    return lines.empty() ? "nothing" : lines.front();
}

}  // namespace stagehopper
