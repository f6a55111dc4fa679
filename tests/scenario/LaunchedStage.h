#pragma once

#include <gmock/gmock.h>

#include <string_view>

#include "tests/scenario/Stage.h"

namespace stagehopper {

/// A launched program; the tests add presentation programs and step them.
class LaunchedStage : public testing::Test {
protected:
    LaunchedStage() { stage.launch(); }
    /// Steps, and keeps only the lines of this step.
    void stepAfresh(std::string_view direction) {
        stage.forget();
        stage.step(direction);
    }

    Stage stage;
};

}  // namespace stagehopper
