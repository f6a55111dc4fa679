#pragma once

#include <functional>

// GTK's own name for its widgets; its header stays out of ours.
struct _GtkWidget;

namespace stagehopper::linux_port {

/// Tells the user that slides cannot be turned without accessibility, and offers to switch it on.
/// Non-modal: the presentation goes on beside it. Main thread only. Closed with its owner.
class TrustDialog {
public:
    TrustDialog() = default;
    ~TrustDialog();
    TrustDialog(const TrustDialog&) = delete;
    TrustDialog& operator=(const TrustDialog&) = delete;

    /// Returns at once; `enable` runs when the user accepts. While one is open, it is raised
    /// instead. Without a display nothing happens.
    void show(std::function<void()> enable);

private:
    static void responded(_GtkWidget* dialog, int response, void* self) noexcept;
    static void destroyed(_GtkWidget* dialog, void* self) noexcept;

    _GtkWidget* dialog_ = nullptr;
    std::function<void()> enable_;
};

}  // namespace stagehopper::linux_port
