#pragma once

#include <gdk/gdk.h>

#include <memory>
#include <vector>

#include "platform/Screens.h"
#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

class X11Desktop;

/// The monitors as GDK knows them. Main thread only. The display is open; `desktop` outlives it.
///
/// Observers are notified once for each change, whatever the number of its signals.
class LinuxScreens final : public platform::Screens {
public:
    explicit LinuxScreens(X11Desktop& desktop);
    ~LinuxScreens() override;
    LinuxScreens(const LinuxScreens&) = delete;
    LinuxScreens& operator=(const LinuxScreens&) = delete;

    std::optional<platform::Rect> mainScreenFrame() override;
    std::vector<platform::Rect> screenFrames() override;
    void addObserver(std::weak_ptr<platform::ScreenObserver> observer) override;

private:
    static void changed(GdkScreen* screen, void* self) noexcept;
    static int tellObservers(void* self) noexcept;

    X11Desktop& desktop_;
    std::vector<std::weak_ptr<platform::ScreenObserver>> observers_;
    /// Null unless a notification is pending.
    SourcePointer telling_;
};

}  // namespace stagehopper::linux_port
