#include "ports/simulated/Desktop.h"
#include "tests/contract/SimulatedStandIn.h"

namespace stagehopper {

namespace {

class SimulatedServerHarness final : public ServerHarness {
public:
    platform::UrlSession& session() override { return desktop_.network; }
    StandInServer& startServer() override {
        const int port = 3000 + static_cast<int>(servers_.size());
        desktop_.network.serve(port);
        servers_.push_back(std::make_unique<SimulatedStandIn>(desktop_.network, port));
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
