#pragma once

#include <gtk/gtk.h>

namespace stagehopper::linux_port {

/// The window with name, version and license. Main thread only. Closed with its owner.
class AboutPanel {
public:
    AboutPanel() = default;
    ~AboutPanel();
    AboutPanel(const AboutPanel&) = delete;
    AboutPanel& operator=(const AboutPanel&) = delete;

    /// Shows the panel beside `parent`, or brings the one that is open to the front. Does not block
    /// the program.
    void show(GtkWindow* parent);

private:
    static void responded(GtkWidget* dialog, int response, void* self) noexcept;
    static void destroyed(GtkWidget* dialog, void* self) noexcept;

    GtkWidget* dialog_ = nullptr;
};

}  // namespace stagehopper::linux_port
