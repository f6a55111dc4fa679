#pragma once

#include "tests/drivers/presentations/Presentation.h"

namespace stagehopper::desktop {

/// The deck in LibreOffice Impress: the editor, and the full-screen slide show once it is started.
class Impress final : public Presentation {
public:
    explicit Impress(const VirtualDesktop& desktop);

    /// The show's window while there is one, else the editor's.
    [[nodiscard]] Window window() const override;
    [[nodiscard]] Window editor() const { return Presentation::window(); }
    /// Starts the show as a user does, with F5 in the editor, and sees to it that it is in front;
    /// throws DesktopError.
    void startShow();
    /// Whether this slide is in the editor, as reported to assistive technology.
    [[nodiscard]] bool editorSays(int slide) const;

private:
    [[nodiscard]] std::optional<Window> findShow() const;

    std::optional<Window> show_;
};

}  // namespace stagehopper::desktop
