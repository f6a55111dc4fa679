#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// One client of a room, with a real WebSocket. Everything waits at most for its limit.
class RoomClient {
public:
    struct Where {
        std::uint16_t port = 0;
        /// Without "/ws?".
        std::string query;
        /// Absent: as a program, which has none.
        std::optional<std::string> origin;
        std::string address = "127.0.0.1";
    };
    struct Closed {
        int code = 0;
        std::string reason;
    };

    /// Joins at once; see `status`.
    explicit RoomClient(const Where& where);
    ~RoomClient();
    RoomClient(RoomClient&&) noexcept;
    RoomClient& operator=(RoomClient&&) = delete;

    /// 101 when it is in; else the status of the refusal, or 0 when nobody answered.
    int status() const;

    bool send(std::string_view text);
    bool sendBinary(std::string_view bytes);
    /// The next message as it came, for those who read very many.
    std::optional<std::string> nextText(std::chrono::milliseconds limit);
    /// The next message, or none when there is none in time or the connection ended.
    std::optional<nlohmann::json> next(std::chrono::milliseconds limit);
    /// The next message of a type; others are passed over.
    std::optional<nlohmann::json> next(const std::string& type, std::chrono::milliseconds limit);
    /// Reads to the end; none when it does not end in time. Code 0: it ended without a word.
    std::optional<Closed> closed(std::chrono::milliseconds limit);

private:
    struct Socket;
    std::unique_ptr<Socket> socket_;
};

}  // namespace stagehopper::companion
