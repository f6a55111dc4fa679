#include "ports/simulated/Desktop.h"
#include "tests/contract/ServerHarness.h"

namespace stagehopper {

namespace {

/// A server of the simulated loopback interface.
class SimulatedStandIn final : public StandInServer {
public:
    SimulatedStandIn(simulated::Desktop& desktop, int port) : desktop_(desktop), port_(port) {}

    [[nodiscard]] std::string authority() const override {
        return "127.0.0.1:" + std::to_string(port_);
    }
    void answers(const std::string& path, platform::HttpResponse response) override {
        server().answers[path] = std::move(response);
    }
    void redirects(const std::string& path, const std::string& /*address*/) override {
        server().answers[path] = {302, ""};
    }
    void breaksOff(const std::string& path, platform::HttpResponse response) override {
        answers(path, std::move(response));
        server().brokenPaths.push_back(path);
    }
    void neverAnswers(const std::string& path) override { server().silentPaths.push_back(path); }
    void ignoresPings() override { server().answersPings = false; }

    void sends(const platform::WebSocketMessage& message) override {
        if (message.kind == platform::WebSocketMessage::Kind::text) {
            desktop_.network.sends(last(), message.bytes);
        } else {
            desktop_.network.sendsBytes(last(), message.bytes);
        }
    }
    void closes(int code) override {
        desktop_.network.breaks(last(), "closed with " + std::to_string(code));
    }
    void breaks() override { desktop_.network.breaks(last(), "lost"); }

    [[nodiscard]] std::vector<std::string> socketTargets() const override {
        std::vector<std::string> targets;
        for (const auto& connection : server().connections) {
            const auto path = connection->url.find(authority()) + authority().size();
            targets.push_back(connection->url.substr(path));
        }
        return targets;
    }
    [[nodiscard]] int pings() const override { return last().pings; }
    [[nodiscard]] std::optional<int> closeCode() const override { return last().closeCode; }

private:
    [[nodiscard]] simulated::Server& server() const { return desktop_.network.serve(port_); }
    [[nodiscard]] simulated::SocketConnection& last() const {
        return desktop_.network.lastConnection(port_);
    }

    simulated::Desktop& desktop_;
    int port_;
};

class SimulatedServerHarness final : public ServerHarness {
public:
    platform::UrlSession& session() override { return desktop_.network; }
    StandInServer& startServer() override {
        const int port = 3000 + static_cast<int>(servers_.size());
        desktop_.network.serve(port);
        servers_.push_back(std::make_unique<SimulatedStandIn>(desktop_, port));
        return *servers_.back();
    }
    std::string refusingAuthority() override { return "127.0.0.1:2999"; }
    bool runUntil(const std::function<bool()>& done, std::chrono::seconds limit) override {
        const auto end = desktop_.clock.elapsed() + limit;
        while (!done()) {
            if (desktop_.clock.elapsed() > end || !desktop_.dispatch.runNext()) return done();
        }
        return true;
    }

private:
    simulated::Desktop desktop_;
    std::vector<std::unique_ptr<SimulatedStandIn>> servers_;
};

}  // namespace

std::unique_ptr<ServerHarness> makeServerHarness() {
    return std::make_unique<SimulatedServerHarness>();
}

}  // namespace stagehopper
