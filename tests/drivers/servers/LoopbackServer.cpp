#include "tests/drivers/servers/LoopbackServer.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <openssl/evp.h>
#include <openssl/sha.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdint>
#include <stdexcept>
#include <utility>

namespace stagehopper {
namespace {

std::string authorityOf(int port) {
    return "127.0.0.1:" + std::to_string(port);
}

int newSocket() {
    return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

sockaddr_in loopbackAddress(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

/// The socket calls want the general form of an address.
sockaddr* general(sockaddr_in& address) {
    return reinterpret_cast<sockaddr*>(&address);
}

/// Takes that port of the loopback interface, or a free one if it is 0.
int bindToLoopback(int socket, int port = 0) {
    const int yes = 1;
    if (port != 0) ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    auto address = loopbackAddress(port);
    socklen_t size = sizeof address;
    if (::bind(socket, general(address), size) != 0 ||
        ::getsockname(socket, general(address), &size) != 0) {
        throw std::runtime_error(port == 0 ? "no free port"
                                           : "port " + std::to_string(port) + " is taken");
    }
    return ntohs(address.sin_port);
}

std::string acceptKey(const std::string& key) {
    const std::string text = key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";
    std::array<unsigned char, SHA_DIGEST_LENGTH> digest{};
    SHA1(reinterpret_cast<const unsigned char*>(text.data()), text.size(), digest.data());
    std::array<unsigned char, 2 * SHA_DIGEST_LENGTH> encoded{};
    const auto size = EVP_EncodeBlock(encoded.data(), digest.data(), SHA_DIGEST_LENGTH);
    return {encoded.begin(), encoded.begin() + size};
}

std::string headerOf(const std::string& request, const std::string& name) {
    const auto start = request.find("\r\n" + name + ": ");
    if (start == std::string::npos) return {};
    const auto value = start + name.size() + 4;
    return request.substr(value, request.find("\r\n", value) - value);
}

std::uint64_t bigEndian(std::string_view bytes) {
    std::uint64_t value = 0;
    for (const char byte : bytes) value = value << 8U | static_cast<unsigned char>(byte);
    return value;
}

std::string bigEndian(std::uint64_t value, int size) {
    std::string bytes;
    for (int i = size - 1; i >= 0; --i) {
        bytes += static_cast<char>(value >> static_cast<unsigned>(8 * i) & 0xffU);
    }
    return bytes;
}

}  // namespace

std::string closePayload(int code) {
    return bigEndian(static_cast<std::uint64_t>(code), 2);
}

int closeCodeIn(std::string_view payload) {
    return payload.size() < 2 ? 1005 : static_cast<int>(bigEndian(payload.substr(0, 2)));
}

std::string targetOf(const std::string& request) {
    const auto start = request.find(' ') + 1;
    return request.substr(start, request.find(' ', start) - start);
}

void OwnedSocket::close() {
    if (number_ >= 0) ::close(std::exchange(number_, -1));
}

bool Peer::encrypt(SSL_CTX& context) {
    // Unlike `send`, the library has no way to leave the signal out when the client has gone.
    sigset_t brokenPipe;
    ::sigemptyset(&brokenPipe);
    ::sigaddset(&brokenPipe, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
    ssl_.reset(SSL_new(&context));
    SSL_set_fd(ssl_.get(), socket_.number());
    return SSL_accept(ssl_.get()) == 1;
}

std::string Peer::serverName() const {
    const char* name = SSL_get_servername(ssl_.get(), TLSEXT_NAMETYPE_host_name);
    return name == nullptr ? "" : name;
}

void Peer::sayGoodbye() {
    SSL_shutdown(ssl_.get());
}

bool Peer::heardGoodbye() const {
    return (SSL_get_shutdown(ssl_.get()) & SSL_RECEIVED_SHUTDOWN) != 0;
}

bool Peer::fill() {
    std::array<char, 16384> piece{};
    const auto count =
        ssl_ ? SSL_read(ssl_.get(), piece.data(), static_cast<int>(piece.size()))
             : static_cast<int>(::recv(socket_.number(), piece.data(), piece.size(), 0));
    if (count <= 0) return false;
    buffer_.append(piece.data(), static_cast<std::size_t>(count));
    return true;
}

std::optional<std::string> Peer::take(std::size_t count) {
    while (buffer_.size() < count) {
        if (!fill()) return std::nullopt;
    }
    std::string bytes = buffer_.substr(0, count);
    buffer_.erase(0, count);
    return bytes;
}

std::optional<std::string> Peer::readRequest() {
    for (;;) {
        const auto end = buffer_.find("\r\n\r\n");
        if (end != std::string::npos) return take(end + 4);
        if (!fill()) return std::nullopt;
    }
}

void Peer::acceptWebSocket(const std::string& request) {
    send(
        "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
        "Sec-WebSocket-Accept: " +
        acceptKey(headerOf(request, "Sec-WebSocket-Key")) + "\r\n\r\n");
}

std::optional<Frame> Peer::readFrame() {
    const auto head = take(2);
    if (!head) return std::nullopt;
    const auto first = static_cast<unsigned char>((*head)[0]);
    std::uint64_t size = static_cast<unsigned char>((*head)[1]) & 0x7fU;
    if (size >= 126) {
        const auto longer = take(size == 126 ? 2 : 8);
        if (!longer) return std::nullopt;
        size = bigEndian(*longer);
    }
    // A client masks all that it sends.
    const auto mask = take(4);
    auto payload = take(size);
    if (!mask || !payload) return std::nullopt;
    for (std::size_t i = 0; i < payload->size(); ++i) {
        (*payload)[i] = static_cast<char>((*payload)[i] ^ (*mask)[i % 4]);
    }
    return Frame{first & 0x0f, std::move(*payload), (first & 0x80U) != 0};
}

void Peer::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto sent = ssl_ ? SSL_write(ssl_.get(), bytes.data(), static_cast<int>(bytes.size()))
                               : ::send(socket_.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

void Peer::send(const Frame& frame) {
    std::string bytes(1, static_cast<char>(frame.opcode | (frame.final ? 0x80 : 0)));
    const auto size = frame.payload.size();
    if (size < 126) {
        bytes += static_cast<char>(size);
    } else if (size < 65536) {
        bytes += static_cast<char>(126) + bigEndian(size, 2);
    } else {
        bytes += static_cast<char>(127) + bigEndian(size, 8);
    }
    send(bytes + frame.payload);
}

void Peer::finish() {
    ::shutdown(socket_.number(), SHUT_WR);
}

void Peer::reset() {
    const linger atOnce{.l_onoff = 1, .l_linger = 0};
    ::setsockopt(socket_.number(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    close();
}

void Peer::readUntilGone() {
    while (fill()) buffer_.clear();
}

void Peer::interrupt() {
    const std::scoped_lock lock(mutex_);
    if (socket_.number() >= 0) ::shutdown(socket_.number(), SHUT_RDWR);
}

void Peer::close() {
    const std::scoped_lock lock(mutex_);
    socket_.close();
}

LoopbackServer::LoopbackServer(Script script, int port)
    : script_(std::move(script)),
      listener_(newSocket()),
      port_(bindToLoopback(listener_.number(), port)) {
    if (::listen(listener_.number(), SOMAXCONN) != 0) throw std::runtime_error("cannot listen");
    acceptor_ = std::thread([this] { acceptAll(); });
}

LoopbackServer::~LoopbackServer() {
    ending_ = true;
    ::shutdown(listener_.number(), SHUT_RDWR);
    acceptor_.join();
    for (auto& visit : visits_) visit.peer.interrupt();
    for (auto& visit : visits_) visit.thread.join();
}

std::string LoopbackServer::authority() const {
    return authorityOf(port_);
}

void LoopbackServer::acceptAll() {
    while (!ending_) {
        const int socket = ::accept4(listener_.number(), nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0) continue;
        const int atOnce = 1;
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
        auto& visit = visits_.emplace_back(socket);
        visit.thread = std::thread([this, &peer = visit.peer] {
            script_(peer);
            peer.close();
        });
    }
}

// Bound, but not listening: the system refuses connections and does not reuse the port.
UnusedPort::UnusedPort() : socket_(newSocket()), port_(bindToLoopback(socket_.number())) {}

std::string UnusedPort::authority() const {
    return authorityOf(port_);
}

CrowdedPort::CrowdedPort() : listener_(newSocket()), port_(bindToLoopback(listener_.number())) {
    constexpr int enoughToFillTheQueue = 3;
    if (::listen(listener_.number(), 0) != 0) throw std::runtime_error("cannot listen");
    for (int i = 0; i < enoughToFillTheQueue; ++i) {
        const auto& client =
            waiting_.emplace_back(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        auto address = loopbackAddress(port_);
        // It stays under way: that is what fills the queue.
        static_cast<void>(::connect(client.number(), general(address), sizeof address));
    }
}

std::string CrowdedPort::authority() const {
    return authorityOf(port_);
}

}  // namespace stagehopper
