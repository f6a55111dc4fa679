#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "demo/Narrator.h"
#include "tests/drivers/phone/HeadlessPhone.h"
#include "tests/drivers/presentations/Impress.h"
#include "tests/drivers/program/DrivenProgram.h"

namespace stagehopper::desktop {

/// One session of a presenter: Impress shows a deck, a phone and Stagehopper's panel turn its
/// slides, and the overlay shows where the phone points. Everything is real but the screens. Each
/// operation throws DesktopError when its expected result does not appear.
class Story {
public:
    /// The texts on the screens, by language.
    struct Words {
        const char* locale;
        std::string language;
        std::string nextSlide;
        std::string overlay;
        std::string next;
        std::string connected;
    };

    /// With everything that has a language in this one: "en" or "zh".
    explicit Story(const std::string& language);

    /// Tells it all, and leaves pictures of the screen, the panel and the phone in this folder.
    void tell(const std::filesystem::path& folder);

private:
    void openTheDeck();
    void startStagehopper();
    void scanTheCode();
    /// Performs an action, waits for this slide, and narrates both.
    void stepTo(int slide, const std::string& what, const std::function<void()>& act);
    void pointWithThePhone();
    void takePictures(const std::filesystem::path& folder);
    void quit();

    Narrator narrator_;
    Words words_;
    VirtualDesktop desktop_;
    std::unique_ptr<Impress> impress_;
    std::unique_ptr<DrivenProgram> stagehopper_;
    std::unique_ptr<HeadlessPhone> phone_;
};

}  // namespace stagehopper::desktop
