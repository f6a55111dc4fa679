// Real servers on the loopback interface for the Linux port.

#include <atomic>
#include <list>
#include <map>
#include <mutex>
#include <set>
#include <thread>

#include "ports/linux/network/BeastUrlSession.h"
#include "tests/contract/ServerHarness.h"
#include "tests/drivers/servers/LoopbackServer.h"

namespace stagehopper {
namespace {

class RealServer final : public StandInServer {
public:
    RealServer() : server_([this](Peer& peer) { serve(peer); }) {}

    std::string authority() const override { return server_.authority(); }
    void answers(const std::string& path, platform::HttpResponse response) override {
        const std::scoped_lock lock(mutex_);
        answers_[path] = std::move(response);
    }
    void redirects(const std::string& path, const std::string& address) override {
        const std::scoped_lock lock(mutex_);
        answers_[path] = {302, ""};
        location_ = address;
    }
    void breaksOff(const std::string& path, platform::HttpResponse response) override {
        const std::scoped_lock lock(mutex_);
        answers_[path] = std::move(response);
        broken_.insert(path);
    }
    void neverAnswers(const std::string& path) override {
        const std::scoped_lock lock(mutex_);
        silent_.insert(path);
    }
    void ignoresPings() override { answersPings_ = false; }

    void sends(const platform::WebSocketMessage& message) override {
        const bool text = message.kind == platform::WebSocketMessage::Kind::text;
        sendFrame({text ? Frame::text : Frame::binary, message.bytes});
    }
    void closes(int code) override { sendFrame({Frame::close, closePayload(code)}); }
    void breaks() override {
        const std::scoped_lock lock(mutex_);
        if (current_ != nullptr) current_->interrupt();
    }

    std::vector<std::string> socketTargets() const override {
        const std::scoped_lock lock(mutex_);
        return targets_;
    }
    int pings() const override { return pings_; }
    std::optional<int> closeCode() const override {
        const std::scoped_lock lock(mutex_);
        return closeCode_;
    }

private:
    void serve(Peer& peer) {
        const auto request = peer.readRequest();
        if (!request) return;
        const auto target = targetOf(*request);
        if (isSilent(target.substr(0, target.find('?')))) return peer.readUntilGone();
        if (request->find("Upgrade: websocket") == std::string::npos) return answer(peer, target);
        peer.acceptWebSocket(*request);
        {
            const std::scoped_lock lock(mutex_);
            targets_.push_back(target);
            current_ = &peer;
        }
        readFrames(peer);
        const std::scoped_lock lock(mutex_);
        if (current_ == &peer) current_ = nullptr;
    }

    bool isSilent(const std::string& path) const {
        const std::scoped_lock lock(mutex_);
        return silent_.contains(path);
    }

    void answer(Peer& peer, const std::string& target) {
        const std::scoped_lock lock(mutex_);
        platform::HttpResponse response{404, "nothing here"};
        if (const auto found = answers_.find(target); found != answers_.end()) {
            response = found->second;
        }
        const auto length = response.body.size() + (broken_.contains(target) ? 1 : 0);
        peer.send("HTTP/1.1 " + std::to_string(response.statusCode) + " As planned\r\n" +
                  (response.statusCode == 302 ? "Location: " + location_ + "\r\n" : "") +
                  "Content-Length: " + std::to_string(length) + "\r\n\r\n" + response.body);
    }

    void readFrames(Peer& peer) {
        while (const auto frame = peer.readFrame()) {
            const std::scoped_lock lock(mutex_);
            if (frame->opcode == Frame::close) {
                closeCode_ = closeCodeIn(frame->payload);
                return;
            }
            if (frame->opcode != Frame::ping) continue;
            ++pings_;
            if (answersPings_) peer.send(Frame{Frame::pong, frame->payload});
        }
    }

    void sendFrame(const Frame& frame) {
        const std::scoped_lock lock(mutex_);
        if (current_ != nullptr) current_->send(frame);
    }

    mutable std::mutex mutex_;
    std::map<std::string, platform::HttpResponse> answers_;
    std::set<std::string> silent_;
    std::set<std::string> broken_;
    std::string location_;
    std::vector<std::string> targets_;
    Peer* current_ = nullptr;
    std::optional<int> closeCode_;
    std::atomic<int> pings_ = 0;
    std::atomic<bool> answersPings_ = true;
    /// Last: its threads use all of the above.
    LoopbackServer server_;
};

class LinuxServerHarness final : public ServerHarness {
public:
    platform::UrlSession& session() override { return session_; }
    StandInServer& startServer() override { return servers_.emplace_back(); }
    std::string refusingAuthority() override { return unused_.authority(); }
    bool runUntil(const std::function<bool()>& done, std::chrono::seconds limit) override {
        // `done` may depend on either side of the connection, so there is no notification: poll.
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!done()) {
            if (std::chrono::steady_clock::now() > end) return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }

private:
    std::list<RealServer> servers_;
    UnusedPort unused_;
    linux_port::BeastUrlSession session_;
};

}  // namespace

std::unique_ptr<ServerHarness> makeServerHarness() {
    return std::make_unique<LinuxServerHarness>();
}

}  // namespace stagehopper
