#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// A TCP connection on which anything can be said, also what no client library would.
class RawClient {
public:
    /// With `receiveBytes` the system keeps little for a reader that does not read.
    explicit RawClient(std::uint16_t port, const std::string& address = "127.0.0.1",
                       int receiveBytes = 0);
    ~RawClient();
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;

    /// False when the other side does not take it.
    bool send(std::string_view bytes);
    void finishSending();
    /// Everything until the other side ends, or the time is over.
    std::string readAll(std::chrono::milliseconds limit);
    /// What is there by the time that `wanted` is.
    std::string readUntil(std::string_view wanted, std::chrono::milliseconds limit);
    /// Whether the other side ended within the limit; what comes before is thrown away.
    bool ends(std::chrono::milliseconds limit);

private:
    /// 0 at the end; none when the time is over.
    std::optional<std::size_t> readSome(std::string& text,
                                        std::chrono::steady_clock::time_point latest);

    int handle_ = -1;
};

struct HttpReply {
    /// 0 when there was none.
    int status = 0;
    /// Everything up to the empty line.
    std::string header;
    std::string body;
};

/// One request on a connection of its own. `Host` is the server's, unless given.
HttpReply request(std::uint16_t port, const std::string& method, const std::string& target,
                  const std::map<std::string, std::string>& headers = {},
                  const std::string& body = {}, const std::string& address = "127.0.0.1");

/// As the panel's hidden frame asks.
HttpReply ownPageRequest(std::uint16_t port, const std::string& method, const std::string& target,
                         const std::string& body = {});

}  // namespace stagehopper::companion
