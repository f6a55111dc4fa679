#include "tests/companion/RawClient.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace stagehopper::companion {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace {

bool isReady(int handle, short events, steady_clock::time_point latest) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(latest - steady_clock::now()).count();
    pollfd entry{handle, events, 0};
    return ::poll(&entry, 1, static_cast<int>(std::max<std::int64_t>(left, 0))) > 0;
}

}  // namespace

RawClient::RawClient(std::uint16_t port, const std::string& address, int receiveBytes)
    : handle_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in endpoint{};
    endpoint.sin_family = AF_INET;
    endpoint.sin_port = htons(port);
    ::inet_pton(AF_INET, address.c_str(), &endpoint.sin_addr);
    if (receiveBytes > 0) {
        ::setsockopt(handle_, SOL_SOCKET, SO_RCVBUF, &receiveBytes, sizeof(receiveBytes));
    }
    const auto* generic = reinterpret_cast<const sockaddr*>(&endpoint);
    if (::connect(handle_, generic, sizeof(endpoint)) != 0) finishSending();
}

RawClient::~RawClient() {
    ::close(handle_);
}

bool RawClient::send(std::string_view bytes) {
    while (!bytes.empty()) {
        if (!isReady(handle_, POLLOUT, steady_clock::now() + 5s)) return false;
        const ssize_t sent =
            ::send(handle_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

void RawClient::finishSending() {
    ::shutdown(handle_, SHUT_WR);
}

std::string RawClient::readAll(std::chrono::milliseconds limit) {
    const auto latest = steady_clock::now() + limit;
    std::string text;
    while (readSome(text, latest).value_or(0) > 0) {
    }
    return text;
}

std::string RawClient::readUntil(std::string_view wanted, std::chrono::milliseconds limit) {
    const auto latest = steady_clock::now() + limit;
    std::string text;
    while (text.find(wanted) == std::string::npos && readSome(text, latest).value_or(0) > 0) {
    }
    return text;
}

bool RawClient::ends(std::chrono::milliseconds limit) {
    const auto latest = steady_clock::now() + limit;
    std::string discarded;
    while (true) {
        const auto count = readSome(discarded, latest);
        if (!count) return false;
        if (*count == 0) return true;
        discarded.clear();
    }
}

std::optional<std::size_t> RawClient::readSome(std::string& text, steady_clock::time_point latest) {
    if (!isReady(handle_, POLLIN, latest)) return std::nullopt;
    std::array<char, 16384> bytes{};
    const ssize_t count = ::recv(handle_, bytes.data(), bytes.size(), MSG_DONTWAIT);
    if (count <= 0) return 0;
    text.append(bytes.data(), static_cast<std::size_t>(count));
    return static_cast<std::size_t>(count);
}

HttpReply request(std::uint16_t port, const std::string& method, const std::string& target,
                  const std::map<std::string, std::string>& headers, const std::string& body,
                  const std::string& address) {
    std::string text = method + " " + target + " HTTP/1.1\r\nConnection: close\r\n";
    if (!headers.contains("Host")) {
        text += "Host: " + address + ":" + std::to_string(port) + "\r\n";
    }
    for (const auto& [name, value] : headers) {
        text.append(name).append(": ").append(value).append("\r\n");
    }
    if (!body.empty()) text += "Content-Length: " + std::to_string(body.size()) + "\r\n";
    RawClient client(port, address);
    client.send(text + "\r\n" + body);
    const std::string answer = client.readAll(10s);

    HttpReply reply;
    if (!answer.starts_with("HTTP/1.1 ") || answer.size() < 12) return reply;
    const std::size_t end = std::min(answer.find("\r\n\r\n"), answer.size() - 4);
    reply.status = std::atoi(answer.substr(9, 3).c_str());
    reply.header = answer.substr(0, end + 2);
    reply.body = answer.substr(end + 4);
    return reply;
}

HttpReply ownPageRequest(std::uint16_t port, const std::string& method, const std::string& target,
                         const std::string& body) {
    const std::string origin = "http://127.0.0.1:" + std::to_string(port);
    return request(port, method, target, {{"Origin", origin}, {"Sec-Fetch-Site", "same-origin"}},
                   body);
}

}  // namespace stagehopper::companion
