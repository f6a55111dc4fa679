#pragma once

#include <memory>
#include <optional>

#include "platform/KeyboardEvents.h"
#include "ports/linux/x11/TopLevelWindow.h"

namespace stagehopper::linux_port {

class BackgroundKeyboard;
class X11Desktop;

/// Sends keys through a second, hidden pair of master devices, whose focus we set: the target
/// program sees an ordinary key press, and the user's keyboard, focus and modifiers are not
/// involved. Main thread only. `desktop` outlives it.
class MasterKeyboard final : public platform::KeyboardEvents {
public:
    explicit MasterKeyboard(X11Desktop& desktop);
    ~MasterKeyboard() override;

    std::unique_ptr<platform::KeyboardEvent> makeKeyboardEvent(platform::VirtualKey key,
                                                               bool keyDown) override;
    platform::Outcome postToProcess(platform::Pid process,
                                    const platform::KeyboardEvent& event) override;
    platform::Outcome postToFocus(const platform::KeyboardEvent& event) override;

private:
    struct HeldKey {
        platform::Pid process = 0;
        unsigned long keySymbol = 0;
        WindowId window = 0;
    };

    platform::Outcome press(platform::Pid process, unsigned long keySymbol);
    platform::Outcome release(platform::Pid process, unsigned long keySymbol);

    X11Desktop& desktop_;
    std::unique_ptr<BackgroundKeyboard> keyboard_;
    /// A release goes to the window of its press, even if another window has opened meanwhile.
    std::optional<HeldKey> held_;
};

}  // namespace stagehopper::linux_port
