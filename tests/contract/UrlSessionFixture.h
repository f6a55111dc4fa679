#pragma once

#include <gmock/gmock.h>

#include "platform/UrlSession.h"
#include "tests/contract/Collected.h"
#include "tests/contract/ServerHarness.h"

namespace stagehopper {

/// "error". Each port words its errors differently, but none may be without words.
inline std::string errorIn(const platform::UrlError& error) {
    return error.localizedDescription.empty() ? "error without words" : "error";
}

/// A session of the port under test, a server for it, and the results as one line each.
class UrlSessionTest : public testing::Test {
protected:
    std::unique_ptr<ServerHarness> harness = makeServerHarness();
    platform::UrlSession& session = harness->session();
    StandInServer& server = harness->startServer();
    // Shared with completions that may run late.
    std::shared_ptr<Collected<std::string>> came = std::make_shared<Collected<std::string>>();

    [[nodiscard]] bool until(const std::function<bool()>& done) { return harness->runUntil(done); }
    [[nodiscard]] bool untilCame(std::size_t count) {
        return until([this, count] { return came->size() >= count; });
    }
};

}  // namespace stagehopper
