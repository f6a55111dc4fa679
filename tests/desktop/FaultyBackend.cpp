#include "tests/desktop/FaultyBackend.h"

#include <arpa/inet.h>
#include <gio/gio.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

constexpr const char* meetings =
    R"({"meetings":[{"roomCode":"AB12CD","roomName":"","createdAt":1,"participants":)"
    R"([{"userId":"phone-1","displayName":"","role":"guest"}]}]})";

std::string response(const std::string& body, const std::string& type = "application/json") {
    return "HTTP/1.1 200 OK\r\nContent-Type: " + type +
           "\r\nConnection: close\r\nCache-Control: max-age=3600\r\n"
           "Content-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

/// The answer to a handshake's key, of RFC 6455.
std::string acceptOf(const std::string& key) {
    const auto text = key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";
    guint8 digest[20];
    gsize size = sizeof digest;
    const std::unique_ptr<GChecksum, decltype(&g_checksum_free)> sum(
        g_checksum_new(G_CHECKSUM_SHA1), &g_checksum_free);
    g_checksum_update(sum.get(), reinterpret_cast<const guchar*>(text.data()),
                      static_cast<gssize>(text.size()));
    g_checksum_get_digest(sum.get(), digest, &size);
    const std::unique_ptr<char, decltype(&g_free)> encoded(g_base64_encode(digest, size), &g_free);
    return encoded.get();
}

bool readExactly(int client, void* bytes, std::size_t count) {
    return recv(client, bytes, count, MSG_WAITALL) == static_cast<ssize_t>(count);
}

std::string readHead(int client) {
    std::string head;
    char next = 0;
    while (head.find("\r\n\r\n") == std::string::npos && recv(client, &next, 1, 0) == 1) {
        head += next;
    }
    return head;
}

std::string headerOf(const std::string& head, const std::string& name) {
    const auto start = head.find("\r\n" + name + ": ");
    if (start == std::string::npos) return {};
    const auto value = start + name.size() + 4;
    return head.substr(value, head.find("\r\n", value) - value);
}

}  // namespace

FaultyBackend::FaultyBackend(int port)
    : listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const int yes = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listener_, 64) != 0) {
        throw DesktopError("port " + std::to_string(port) + ": " + std::strerror(errno));
    }
    listening_ = std::thread([this] { listen(); });
}

FaultyBackend::~FaultyBackend() {
    closing_ = true;
    shutdown(listener_, SHUT_RDWR);
    listening_.join();
    {
        const std::lock_guard lock(mutex_);
        for (const int client : open_) shutdown(client, SHUT_RDWR);
    }
    for (auto& thread : threads_) thread.join();
    close(listener_);
}

void FaultyBackend::listen() {
    while (!closing_) {
        const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0) continue;
        const std::lock_guard lock(mutex_);
        open_.push_back(client);
        threads_.emplace_back([this, client] { serve(client); });
    }
}

void FaultyBackend::setPage(const std::string& path, const std::string& html) {
    const std::lock_guard lock(mutex_);
    pages_["GET " + path] = html;
}

std::string FaultyBackend::answerTo(const std::string& target) const {
    if (target == "GET /health") return response("ok");
    if (target == "GET /v1/meetings/active") return response(meetings);
    const std::lock_guard lock(mutex_);
    const auto page = pages_.find(target);
    return page == pages_.end() ? "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"
                                : response(page->second, "text/html");
}

void FaultyBackend::serve(int client) {
    const auto head = readHead(client);
    const auto target = head.substr(0, head.find(" HTTP/"));
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(target);
    }
    if (target.starts_with("GET /ws?")) {
        {
            const std::lock_guard lock(mutex_);
            targets_.push_back(target.substr(4));
        }
        changed_.notify_all();
        serveSocket(client, headerOf(head, "Sec-WebSocket-Key"));
    } else {
        const auto answer = answerTo(target);
        send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
    }
    const std::lock_guard lock(mutex_);
    if (socket_ == client) socket_ = -1;
    std::erase(open_, client);
    close(client);
}

void FaultyBackend::serveSocket(int client, const std::string& key) {
    if (handshake_ == Handshake::refused) {
        const std::string answer = "HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n";
        send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
        return;
    }
    if (handshake_ == Handshake::accepted) {
        const auto answer =
            "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\n"
            "Connection: Upgrade\r\nSec-WebSocket-Accept: " +
            acceptOf(key) + "\r\n\r\n";
        send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
        const std::lock_guard lock(mutex_);
        socket_ = client;
    }
    changed_.notify_all();
    // The program sends only control frames: short, and masked.
    unsigned char head[2];
    while (readExactly(client, head, sizeof head)) {
        unsigned char mask[4];
        std::string payload(head[1] & 0x7FU, '\0');
        if (!readExactly(client, mask, sizeof mask)) return;
        if (!payload.empty() && !readExactly(client, payload.data(), payload.size())) return;
        for (std::size_t i = 0; i < payload.size(); ++i) {
            payload[i] = static_cast<char>(static_cast<unsigned char>(payload[i]) ^ mask[i % 4]);
        }
        const unsigned opcode = head[0] & 0x0FU;
        if (opcode == 9) {
            ++pings_;
            if (answersPings_) sendFrame(0x8A, payload);
        } else if (opcode == 8 && payload.size() >= 2) {
            const std::lock_guard lock(mutex_);
            closeCode_ = static_cast<unsigned char>(payload[0]) * 256 +
                         static_cast<unsigned char>(payload[1]);
        }
    }
}

bool FaultyBackend::waitForSocket(std::size_t count, Limit limit) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [&] {
        return targets_.size() >= count && (socket_ >= 0 || handshake_ != Handshake::accepted);
    });
}

std::vector<std::string> FaultyBackend::targets() const {
    const std::lock_guard lock(mutex_);
    return targets_;
}

std::vector<std::string> FaultyBackend::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

std::optional<int> FaultyBackend::closeCode() const {
    const std::lock_guard lock(mutex_);
    return closeCode_;
}

void FaultyBackend::sendStep(const std::string& direction, int seq) {
    sendText(R"({"type":"slide_nav","direction":")" + direction + R"(","seq":)" +
             std::to_string(seq) + "}");
}

void FaultyBackend::sendFrame(unsigned char firstByte, const std::string& payload) {
    std::string frame(1, static_cast<char>(firstByte));
    const auto size = payload.size();
    const auto append = [&frame, size](int bytes) {
        for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
            frame += static_cast<char>((size >> static_cast<unsigned>(shift)) & 0xFFU);
        }
    };
    if (size < 126) {
        append(1);
    } else if (size < 65536) {
        frame += static_cast<char>(126);
        append(2);
    } else {
        frame += static_cast<char>(127);
        append(8);
    }
    sendRaw(frame + payload);
}

void FaultyBackend::sendRaw(const std::string& bytes) {
    const std::lock_guard lock(mutex_);
    if (socket_ < 0) throw DesktopError("no slide socket is open");
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const auto now = send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (now <= 0) return;  // closed by the program: that is what some tests are about
        sent += static_cast<std::size_t>(now);
    }
}

void FaultyBackend::breakMidFrame() {
    sendRaw(std::string("\x81\x7E\x10\x00{\"type\":", 12));
    closeConnection();
}

void FaultyBackend::closeConnection() {
    const std::lock_guard lock(mutex_);
    if (socket_ >= 0) shutdown(socket_, SHUT_RDWR);
    socket_ = -1;
}

}  // namespace stagehopper::desktop
