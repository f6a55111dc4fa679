#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "tests/drivers/desktop/VirtualDesktop.h"

namespace stagehopper::desktop {

/// The deck, opened in a real program on a virtual desktop, slide 1 up. One thread. The desktop
/// must outlive it.
class Presentation {
public:
    /// Takes a program that was just started, waits for its window and for slide 1 in it.
    Presentation(const VirtualDesktop& desktop, std::unique_ptr<ChildProgram> program,
                 const std::string& windowTitle);
    virtual ~Presentation() = default;
    Presentation(const Presentation&) = delete;
    Presentation& operator=(const Presentation&) = delete;

    /// The process that owns the window.
    [[nodiscard]] pid_t process() const { return process_; }
    [[nodiscard]] ChildProgram& program() { return *program_; }
    /// The window that shows the slides.
    [[nodiscard]] virtual Window window() const { return window_; }
    [[nodiscard]] std::string title() const;

    /// The slide that is up, read from the window's pixels; also where other windows cover it.
    [[nodiscard]] std::optional<int> currentSlide() const;
    [[nodiscard]] bool waitForSlide(int slide, Limit limit = std::chrono::seconds(5)) const;
    /// Brings its window to the front.
    void activate() const;

protected:
    [[nodiscard]] const VirtualDesktop& desktop() const { return desktop_; }

private:
    const VirtualDesktop& desktop_;
    std::unique_ptr<ChildProgram> program_;
    Window window_ = None;
    pid_t process_ = 0;
};

/// Each throws DesktopError when the program does not come up with slide 1.
[[nodiscard]] std::unique_ptr<Presentation> openInEvince(const VirtualDesktop& desktop);
[[nodiscard]] std::unique_ptr<Presentation> openInChromium(const VirtualDesktop& desktop);
[[nodiscard]] std::unique_ptr<Presentation> openInFirefox(const VirtualDesktop& desktop);

}  // namespace stagehopper::desktop
