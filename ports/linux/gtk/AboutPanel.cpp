#include "ports/linux/gtk/AboutPanel.h"

#include "ports/linux/gtk/ApplicationIcon.h"
#include "ports/linux/system/ProgramNames.h"

namespace stagehopper::linux_port {

namespace {

constexpr int logoPixels = 128;

}  // namespace

AboutPanel::~AboutPanel() {
    if (dialog_ != nullptr) gtk_widget_destroy(dialog_);
}

void AboutPanel::show(GtkWindow* parent) {
    if (dialog_ == nullptr) {
        dialog_ = gtk_about_dialog_new();
        auto* about = GTK_ABOUT_DIALOG(dialog_);
        gtk_about_dialog_set_program_name(about, displayName);
        gtk_about_dialog_set_version(about, STAGEHOPPER_VERSION);
        gtk_about_dialog_set_license_type(about, GTK_LICENSE_MIT_X11);
        gtk_about_dialog_set_logo(about, applicationIcon(logoPixels).get());
        g_signal_connect(dialog_, "response", G_CALLBACK(&AboutPanel::responded), this);
        g_signal_connect(dialog_, "destroy", G_CALLBACK(&AboutPanel::destroyed), this);
    }
    gtk_window_set_transient_for(GTK_WINDOW(dialog_), parent);
    gtk_window_present(GTK_WINDOW(dialog_));
}

void AboutPanel::responded(GtkWidget* dialog, int /*response*/, void* /*self*/) noexcept {
    gtk_widget_destroy(dialog);
}

void AboutPanel::destroyed(GtkWidget* /*dialog*/, void* self) noexcept {
    static_cast<AboutPanel*>(self)->dialog_ = nullptr;
}

}  // namespace stagehopper::linux_port
