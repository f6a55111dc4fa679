#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// A client of a room, with a real WebSocket. No call waits longer than its limit.
class RoomClient {
public:
    struct Target {
        std::uint16_t port = 0;
        /// Without the leading "/ws?".
        std::string query;
        /// Absent for a program, which sends no Origin header.
        std::optional<std::string> origin;
        std::string address = "127.0.0.1";
    };
    struct Closed {
        int code = 0;
        std::string reason;
    };

    /// Joins. See `status` for the result.
    explicit RoomClient(const Target& target);
    ~RoomClient();
    RoomClient(RoomClient&&) noexcept;
    RoomClient& operator=(RoomClient&&) = delete;

    /// 101 after a join, otherwise the status of the refusal. 0 without a response.
    int status() const;

    bool send(std::string_view text);
    bool sendBinary(std::string_view bytes);
    /// The next message without parsing it, for tests that read very many.
    std::optional<std::string> nextText(std::chrono::milliseconds limit);
    /// The next message. Null if the limit passes or the connection ends.
    std::optional<nlohmann::json> next(std::chrono::milliseconds limit);
    /// The next message of the type. Skips all others.
    std::optional<nlohmann::json> next(const std::string& type, std::chrono::milliseconds limit);
    /// Reads to the end of the connection. Null if the limit passes. Code 0 without a close frame.
    std::optional<Closed> closed(std::chrono::milliseconds limit);

private:
    struct Socket;
    std::unique_ptr<Socket> socket_;
};

}  // namespace stagehopper::companion
