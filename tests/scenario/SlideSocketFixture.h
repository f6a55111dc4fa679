#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/scenario/Stage.h"

namespace stagehopper {

inline constexpr auto* base = "http://127.0.0.1:3000";
inline constexpr auto* lost = "The network connection was lost.";

/// Connected by the test, without a backend that lists meetings, so that only the test reconnects.
class SlideSocket : public testing::Test {
protected:
    SlideSocket() {
        stage.desktop.network.serve(3000);
        stage.desktop.network.serve(3001);
        stage.launch();
    }
    void connect(const std::string& url = base, const std::string& room = "AB12") {
        stage.app->connectNativeSlideSocket(url, room, "test");
        stage.desktop.runReady();
    }
    auto& socket() { return stage.desktop.network.lastConnection(3000); }
    auto& connections() { return stage.desktop.network.serve(3000).connections; }
    void breakSocket() {
        stage.desktop.network.breaks(socket(), lost);
        stage.desktop.runReady();
    }

    Stage stage;
};

}  // namespace stagehopper
