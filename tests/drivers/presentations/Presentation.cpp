#include "tests/drivers/presentations/Presentation.h"

#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/presentations/Deck.h"

namespace stagehopper::desktop {

namespace {

// The first start of a big program with a cold disk takes long.
constexpr std::chrono::seconds openLimit{60};

}  // namespace

Presentation::Presentation(const VirtualDesktop& desktop, std::unique_ptr<ChildProgram> program,
                           const std::string& windowTitle)
    : desktop_(desktop), program_(std::move(program)) {
    window_ = desktop_.windows().waitForTitle(windowTitle, openLimit);
    process_ = desktop_.windows().processOf(window_);
    const bool showsFirst = waitFor(
        [this] {
            const auto picture = Picture::of(desktop_.display(), window_);
            return picture && slideIn(*picture) == 1;
        },
        openLimit);
    if (!showsFirst) throw DesktopError("'" + windowTitle + "' came up, but not with slide 1");
}

std::string Presentation::title() const {
    return desktop_.windows().titleOf(window());
}

std::optional<int> Presentation::currentSlide() const {
    const auto picture = Picture::of(desktop_.display(), window());
    if (!picture) return std::nullopt;
    return slideIn(*picture);
}

bool Presentation::waitForSlide(int slide, Limit limit) const {
    return waitFor([&] { return currentSlide() == slide; }, limit);
}

void Presentation::activate() const {
    desktop_.windows().activate(window());
}

}  // namespace stagehopper::desktop
