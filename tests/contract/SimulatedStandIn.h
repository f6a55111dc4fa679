#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ports/simulated/SimulatedUrlSession.h"
#include "tests/contract/ServerHarness.h"

namespace stagehopper {

/// A server of the simulated loopback interface.
class SimulatedStandIn : public StandInServer {
public:
    SimulatedStandIn(simulated::SimulatedUrlSession& network, int port)
        : network_(network), port_(port) {}

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
            network_.sends(last(), message.bytes);
        } else {
            network_.sendsBytes(last(), message.bytes);
        }
    }
    void closes(int code) override {
        network_.breaks(last(), "closed with " + std::to_string(code));
    }
    void breaks() override { network_.breaks(last(), "lost"); }

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
    [[nodiscard]] simulated::Server& server() const { return network_.serve(port_); }
    [[nodiscard]] simulated::SocketConnection& last() const {
        return network_.lastConnection(port_);
    }

    simulated::SimulatedUrlSession& network_;
    int port_;
};

}  // namespace stagehopper
