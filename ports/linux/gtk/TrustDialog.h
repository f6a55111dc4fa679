#pragma once

#include <functional>

// GTK's own name for its widgets; its header stays out of ours.
struct _GtkWidget;

namespace stagehopper::linux_port {

/// A dialog that explains that slides need accessibility and offers to switch it on. Non-modal: it
/// does not block the presentation. Main thread only. Closed with its owner.
class TrustDialog {
public:
    TrustDialog() = default;
    ~TrustDialog();
    TrustDialog(const TrustDialog&) = delete;
    TrustDialog& operator=(const TrustDialog&) = delete;

    /// Returns at once; `enable` runs when the user accepts. An open dialog is raised instead.
    /// Without a display nothing happens.
    void show(std::function<void()> enable);

private:
    static void responded(_GtkWidget* dialog, int response, void* self) noexcept;
    static void destroyed(_GtkWidget* dialog, void* self) noexcept;

    _GtkWidget* dialog_ = nullptr;
    std::function<void()> enable_;
};

}  // namespace stagehopper::linux_port
