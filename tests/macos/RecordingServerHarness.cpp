// The macOS port's sessions on the recording runtime under the contract's tests.

#include <utility>

#include "ports/macos/MacUrlSession.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/contract/ServerHarness.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper {

namespace {

class RecordingStandIn final : public StandInServer {
public:
    RecordingStandIn(recording::Servers& servers, int port)
        : servers_(servers), server_(servers.serve(port)), port_(port) {}

    [[nodiscard]] std::string authority() const override {
        return "127.0.0.1:" + std::to_string(port_);
    }
    void answers(const std::string& path, platform::HttpResponse response) override {
        server_.answers[path] = {response.statusCode, std::move(response.body)};
    }
    void redirects(const std::string& path, const std::string& address) override {
        server_.answers[path] = {.status = 302, .location = address};
    }
    void breaksOff(const std::string& path, platform::HttpResponse response) override {
        answers(path, std::move(response));
        server_.answers[path].breaksOff = true;
    }
    void neverAnswers(const std::string& path) override { server_.answers[path].never = true; }
    void ignoresPings() override { server_.pongs = 0; }

    void sends(const platform::WebSocketMessage& message) override {
        if (message.kind == platform::WebSocketMessage::Kind::text) {
            last().sends(message.bytes);
        } else {
            last().sendsBytes(message.bytes);
        }
    }
    void closes(int code) override { last().breaks("closed with " + std::to_string(code)); }
    void breaks() override { last().breaks(recording::Servers::lost); }

    [[nodiscard]] std::vector<std::string> socketTargets() const override {
        std::vector<std::string> targets;
        for (const auto& connection : server_.connections) {
            const auto& address = connection->address();
            targets.push_back(address.substr(address.find(authority()) + authority().size()));
        }
        return targets;
    }
    [[nodiscard]] int pings() const override { return last().pings(); }
    [[nodiscard]] std::optional<int> closeCode() const override { return last().closeCode(); }

private:
    [[nodiscard]] recording::SocketConnection& last() const {
        return servers_.lastConnection(port_);
    }

    recording::Servers& servers_;
    recording::Server& server_;
    int port_;
};

class RecordingServerHarness final : public ServerHarness {
public:
    platform::UrlSession& session() override { return session_; }
    StandInServer& startServer() override {
        const int port = 3000 + static_cast<int>(servers_.size());
        servers_.push_back(std::make_unique<RecordingStandIn>(world_.servers, port));
        return *servers_.back();
    }
    std::string refusingAuthority() override { return "127.0.0.1:2999"; }
    bool runUntil(const std::function<bool()>& done, std::chrono::seconds limit) override {
        return recording::queues::runUntil(done, static_cast<double>(limit.count()));
    }

private:
    recording::CheckedWorld world_;
    cocoa::AutoreleasePool pool_;
    std::vector<std::unique_ptr<RecordingStandIn>> servers_;
    macos_port::MacUrlSession session_;
};

}  // namespace

std::unique_ptr<ServerHarness> makeServerHarness() {
    return std::make_unique<RecordingServerHarness>();
}

}  // namespace stagehopper
