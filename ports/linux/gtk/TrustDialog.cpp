#include "ports/linux/gtk/TrustDialog.h"

#include <gtk/gtk.h>

#include <string_view>
#include <utility>

namespace stagehopper::linux_port {

namespace {

struct Words {
    const char* title;
    const char* text;
    const char* later;
    const char* enable;
};

constexpr Words english{"Accessibility is off",
                        "Stagehopper turns slides through the desktop's accessibility service, "
                        "which is switched off.\n\nPrograms that are already open may have to be "
                        "started again after it was switched on.",
                        "Not Now", "Switch On"};
constexpr Words chinese{"辅助功能未开启",
                        "Stagehopper 通过系统的辅助功能来翻页，而辅助功能目前未开启。\n\n"
                        "开启后，已经打开的程序可能需要重新启动。",
                        "以后再说", "开启"};

const Words& wordsForUser() {
    const char* const* languages = g_get_language_names();
    return languages[0] != nullptr && std::string_view(languages[0]).starts_with("zh") ? chinese
                                                                                       : english;
}

}  // namespace

TrustDialog::~TrustDialog() {
    if (dialog_ == nullptr) return;
    g_signal_handlers_disconnect_by_data(dialog_, this);
    gtk_widget_destroy(dialog_);
}

void TrustDialog::show(std::function<void()> enable) {
    if (dialog_ != nullptr) {
        gtk_window_present(GTK_WINDOW(dialog_));
        return;
    }
    if (gdk_display_get_default() == nullptr) return;
    enable_ = std::move(enable);
    const auto& words = wordsForUser();
    dialog_ = gtk_message_dialog_new(nullptr, GtkDialogFlags{}, GTK_MESSAGE_QUESTION,
                                     GTK_BUTTONS_NONE, "%s", words.title);
    gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog_), "%s", words.text);
    gtk_window_set_title(GTK_WINDOW(dialog_), "Stagehopper");
    gtk_dialog_add_buttons(GTK_DIALOG(dialog_), words.later, GTK_RESPONSE_CANCEL, words.enable,
                           GTK_RESPONSE_ACCEPT, nullptr);
    gtk_dialog_set_default_response(GTK_DIALOG(dialog_), GTK_RESPONSE_ACCEPT);
    g_signal_connect(dialog_, "response", G_CALLBACK(&TrustDialog::responded), this);
    g_signal_connect(dialog_, "destroy", G_CALLBACK(&TrustDialog::destroyed), this);
    gtk_window_present(GTK_WINDOW(dialog_));
}

// noexcept: an exception must not travel through GTK; it ends the program here.
void TrustDialog::responded(_GtkWidget* dialog, int response, void* self) noexcept {
    auto* owner = static_cast<TrustDialog*>(self);
    const auto enable = std::exchange(owner->enable_, nullptr);
    gtk_widget_destroy(dialog);
    if (response == GTK_RESPONSE_ACCEPT && enable) enable();
}

void TrustDialog::destroyed(_GtkWidget* /*dialog*/, void* self) noexcept {
    static_cast<TrustDialog*>(self)->dialog_ = nullptr;
}

}  // namespace stagehopper::linux_port
