#pragma once

#include <gmock/gmock.h>

#include "platform/Application.h"
#include "platform/Dispatch.h"
#include "platform/WebView.h"
#include "tests/contract/PortHarness.h"

namespace stagehopper {

/// A port under test.
class PortTest : public testing::Test {
protected:
    /// Runs all work that is due before `delay` from now.
    void runFor(platform::Duration delay) {
        bool over = false;
        const auto end = port.dispatch.afterMain(delay, [&over] { over = true; });
        ASSERT_TRUE(harness->runUntil([&over] { return over; }));
    }

    std::unique_ptr<PortHarness> harness = makePortHarness();
    platform::Platform port = harness->platform();
};

/// Acts at the launch, and counts the other calls of the application.
class RecordingDelegate final : public platform::ApplicationDelegate {
public:
    void applicationDidFinishLaunching() override {
        ++launched;
        onLaunch();
    }
    bool applicationShouldTerminateAfterLastWindowClosed() override {
        ++asked;
        return true;
    }
    void applicationWillTerminate() override { ++told; }

    std::function<void()> onLaunch = [] {};
    int launched = 0;
    int asked = 0;
    int told = 0;
};

/// Collects what a page posts.
class MessageRecorder final : public platform::ScriptMessageHandler {
public:
    void didReceive(const platform::ScriptMessage& message) override {
        texts.push_back(message.text.value_or("(no text)"));
        names.push_back(message.name);
        if (onMessage) onMessage();
    }

    std::vector<std::string> texts;
    std::vector<std::string> names;
    std::function<void()> onMessage;
};

}  // namespace stagehopper
