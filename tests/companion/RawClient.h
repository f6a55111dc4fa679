#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// A TCP connection for any bytes, including those that no client library would send.
class RawClient {
public:
    /// `receiveBytes` sets the size of the receive buffer, unless it is 0.
    explicit RawClient(std::uint16_t port, const std::string& address = "127.0.0.1",
                       int receiveBytes = 0);
    ~RawClient();
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;

    /// False if the server does not take all bytes.
    bool send(std::string_view bytes);
    void finishSending();
    /// Reads until the server closes or the limit passes.
    std::string readAll(std::chrono::milliseconds limit);
    /// Reads until the text contains `wanted`, the server closes or the limit passes.
    std::string readUntil(std::string_view wanted, std::chrono::milliseconds limit);
    /// Whether the server closes within the limit. Discards all bytes before that.
    bool ends(std::chrono::milliseconds limit);

private:
    /// 0 at the end. Null if the limit passes.
    std::optional<std::size_t> readSome(std::string& text,
                                        std::chrono::steady_clock::time_point latest);

    int handle_ = -1;
};

struct HttpReply {
    /// 0 if there was no response.
    int status = 0;
    /// The status line and all header lines.
    std::string header;
    std::string body;
};

/// Sends one request on a new connection. `Host` is the address of the server unless given.
HttpReply request(std::uint16_t port, const std::string& method, const std::string& target,
                  const std::map<std::string, std::string>& headers = {},
                  const std::string& body = {}, const std::string& address = "127.0.0.1");

/// Sends a request like one of the panel's hidden frame.
HttpReply ownPageRequest(std::uint16_t port, const std::string& method, const std::string& target,
                         const std::string& body = {});

}  // namespace stagehopper::companion
