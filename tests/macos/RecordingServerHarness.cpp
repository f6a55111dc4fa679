// The macOS port's sessions on the recording runtime under the contract's tests.

#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/macos/network/MacUrlSession.h"
#include "tests/contract/SimulatedStandIn.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper {

namespace {

/// The system follows redirects by itself.
class RecordingStandIn final : public SimulatedStandIn {
public:
    RecordingStandIn(recording::World& world, int port)
        : SimulatedStandIn(world.servers, port), world_(world) {}

    void redirects(const std::string& path, const std::string& address) override {
        world_.network.redirects["http://" + authority() + path] = address;
    }

private:
    recording::World& world_;
};

class RecordingServerHarness final : public ServerHarness {
public:
    platform::UrlSession& session() override { return session_; }
    StandInServer& startServer() override {
        const int port = 3000 + static_cast<int>(servers_.size());
        world_.servers.serve(port);
        servers_.push_back(std::make_unique<RecordingStandIn>(world_, port));
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
