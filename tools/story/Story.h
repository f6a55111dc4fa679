#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "tools/presentations/Impress.h"
#include "tools/program/DrivenProgram.h"
#include "tools/story/Narrator.h"

namespace stagehopper::desktop {

/// One session of a presenter: Impress shows a deck, and Stagehopper's panel turns its slides.
/// Everything is real but the screen. Each operation throws DesktopError when something does not
/// come out as told.
class Story {
public:
    /// Tells it all, and leaves a picture of the screen in this file.
    void tell(const std::filesystem::path& picture);

private:
    void openTheDeck();
    void startStagehopper();
    /// Does something, then waits for this slide, and tells both.
    void stepTo(int slide, const std::string& what, const std::function<void()>& act);
    void switchSlideControlOn();
    void takePicture(const std::filesystem::path& picture);
    void quit();

    Narrator narrator_;
    VirtualDesktop desktop_;
    std::unique_ptr<Impress> impress_;
    std::unique_ptr<DrivenProgram> stagehopper_;
};

}  // namespace stagehopper::desktop
