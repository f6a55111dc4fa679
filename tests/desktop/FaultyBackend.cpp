#include "tests/desktop/FaultyBackend.h"

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

}  // namespace

FaultyBackend::FaultyBackend(int port) : server_([this](Peer& peer) { serve(peer); }, port) {}

void FaultyBackend::setPage(const std::string& path, const std::string& html) {
    const std::lock_guard lock(mutex_);
    pages_[path] = html;
}

std::string FaultyBackend::answerTo(const std::string& target) const {
    if (target == "/health") return response("ok");
    if (target == "/v1/meetings/active") return response(meetings);
    const std::lock_guard lock(mutex_);
    const auto page = pages_.find(target);
    return page == pages_.end() ? "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"
                                : response(page->second, "text/html");
}

void FaultyBackend::serve(Peer& peer) {
    const auto request = peer.readRequest();
    if (!request) return;
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(request->substr(0, request->find(" HTTP/")));
    }
    const auto target = targetOf(*request);
    if (!target.starts_with("/ws?")) return peer.send(answerTo(target));
    serveSocket(peer, *request);
    const std::lock_guard lock(mutex_);
    if (socket_ == &peer) socket_ = nullptr;
}

void FaultyBackend::serveSocket(Peer& peer, const std::string& request) {
    const auto handshake = handshake_.load();
    if (handshake == Handshake::accepted) peer.acceptWebSocket(request);
    {
        const std::lock_guard lock(mutex_);
        targets_.push_back(targetOf(request));
        if (handshake == Handshake::accepted) socket_ = &peer;
    }
    changed_.notify_all();
    if (handshake == Handshake::refused) {
        return peer.send("HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n");
    }
    while (const auto frame = peer.readFrame()) {
        const std::lock_guard lock(mutex_);
        if (frame->opcode == Frame::close) closeCode_ = closeCodeIn(frame->payload);
        if (frame->opcode != Frame::ping) continue;
        ++pings_;
        if (answersPings_) peer.send(Frame{Frame::pong, frame->payload});
    }
}

bool FaultyBackend::waitForSocket(std::size_t count, Limit limit) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [&] {
        return targets_.size() >= count &&
               (socket_ != nullptr || handshake_ != Handshake::accepted);
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

void FaultyBackend::sendText(const std::string& text) {
    const std::lock_guard lock(mutex_);
    if (socket_ == nullptr) throw DesktopError("no slide socket is open");
    socket_->send(Frame{Frame::text, text});
}

void FaultyBackend::sendStep(const std::string& direction, int seq) {
    sendText(R"({"type":"slide_nav","direction":")" + direction + R"(","seq":)" +
             std::to_string(seq) + "}");
}

void FaultyBackend::closeConnection() {
    const std::lock_guard lock(mutex_);
    if (socket_ != nullptr) socket_->interrupt();
    socket_ = nullptr;
}

}  // namespace stagehopper::desktop
