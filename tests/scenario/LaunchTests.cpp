#include <gmock/gmock.h>

#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using testing::ElementsAre;

TEST(Launch, LogsItsStepsInOrder) {
    Stage stage;
    stage.desktop.launch(stage.app);
    EXPECT_THAT(
        stage.lines(),
        ElementsAre(
            "app_launched Stagehopper starting up", "app_launched backend auto-start requested",
            "app_launched nativeSlideDiscovery started",
            "app_launched no_auto_prompts — awdl_on_meeting_start; accessibility_on_toggle"));
}

TEST(Launch, RaisesNoAccessibilityPromptByItself) {
    Stage stage;
    stage.desktop.accessibility.trusted = false;
    stage.launch();
    EXPECT_EQ(stage.desktop.accessibility.prompts, 0);
}

}  // namespace
}  // namespace stagehopper
