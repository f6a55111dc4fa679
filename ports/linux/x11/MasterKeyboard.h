#pragma once

#include <memory>
#include <optional>

#include "platform/KeyboardEvents.h"
#include "ports/linux/x11/TopLevelWindow.h"

namespace stagehopper::linux_port {

class BackgroundKeyboard;
class X11Desktop;

/// Keys by way of a second, hidden pair of master devices, whose focus is ours to place: the
/// target's program sees an ordinary key press while the user's keyboard, focus and modifiers stay
/// out of it. Main thread only. `desktop` outlives it.
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
    /// A release goes where its press went, whichever window has come up meanwhile.
    std::optional<HeldKey> held_;
};

}  // namespace stagehopper::linux_port
