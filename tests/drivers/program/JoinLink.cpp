#include "tests/drivers/program/JoinLink.h"

#include <gio/gio.h>

#include <nlohmann/json.hpp>
#include <optional>

#include "ports/linux/glib/GlibPointers.h"
#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

constexpr int firstPort = 3000;
constexpr int lastPort = 3050;

/// The whole response to a request; empty without a server.
std::string answerOf(int port, const std::string& request) {
    const linux_port::ObjectPointer<GSocketClient> client(g_socket_client_new());
    g_socket_client_set_timeout(client.get(), 2);
    const linux_port::ObjectPointer<GSocketConnection> connection(g_socket_client_connect_to_host(
        client.get(), "127.0.0.1", static_cast<guint16>(port), nullptr, nullptr));
    if (!connection) return {};
    auto* out = g_io_stream_get_output_stream(G_IO_STREAM(connection.get()));
    if (g_output_stream_write_all(out, request.data(), request.size(), nullptr, nullptr, nullptr) ==
        FALSE) {
        return {};
    }
    auto* in = g_io_stream_get_input_stream(G_IO_STREAM(connection.get()));
    std::string answer;
    char bytes[4096];
    for (gssize count = 0;
         (count = g_input_stream_read(in, bytes, sizeof bytes, nullptr, nullptr)) > 0;) {
        answer.append(bytes, static_cast<std::size_t>(count));
    }
    return answer;
}

/// The newest meeting of the backend on that port, asked for as its own page asks.
std::optional<std::string> linkFrom(int port) {
    const auto authority = "127.0.0.1:" + std::to_string(port);
    const auto answer = answerOf(port, "POST /v1/meetings/current HTTP/1.1\r\nHost: " + authority +
                                           "\r\nOrigin: http://" + authority +
                                           "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
    const auto body = answer.find("\r\n\r\n");
    if (body == std::string::npos) return std::nullopt;
    const auto meeting = nlohmann::json::parse(answer.substr(body), nullptr, false);
    if (!meeting.is_object() || !meeting.contains("secret")) return std::nullopt;
    if (const auto& links = meeting.at("links"); !links.empty()) {
        return links.front().at("url").get<std::string>();
    }
    return "http://" + authority + "/phone#" + meeting.at("roomCode").get<std::string>() + "." +
           meeting.at("secret").get<std::string>();
}

}  // namespace

std::string joinLink(Limit limit) {
    std::optional<std::string> link;
    const auto found = [&link] {
        for (int port = firstPort; port <= lastPort && !link; ++port) link = linkFrom(port);
        return link.has_value();
    };
    if (!waitFor(found, limit)) throw DesktopError("no backend has a meeting");
    return *link;
}

}  // namespace stagehopper::desktop
