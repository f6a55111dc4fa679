#pragma once

#include <gmock/gmock.h>

#include "tests/scenario/Stage.h"

namespace stagehopper {

/// A stage and the backends that were started on it.
class BackendTest : public testing::Test {
protected:
    static constexpr auto* backend = Stage::backendPath;
    static constexpr auto* startedOnce =
        "started bundled backend StagehopperBackend-arm64 (attempt 1/3)";

    auto starts() { return stage.desktop.processes.started(backend); }
    auto& child() { return stage.desktop.processes.last(backend); }
    /// Launches without forgetting the lines of the launch.
    void launch() { stage.desktop.launch(stage.app); }
    std::chrono::nanoseconds now() { return stage.desktop.clock.elapsed(); }

    Stage stage;
};

}  // namespace stagehopper
