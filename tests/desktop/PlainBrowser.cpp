// A WebKitGTK browser with nothing of ours in it: shows the page that it is given, and lets it open
// windows.

#include <webkit2/webkit2.h>

namespace {

GtkWidget* showView(GtkWidget* view) {
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_container_add(GTK_CONTAINER(window), view);
    gtk_widget_show_all(window);
    return view;
}

GtkWidget* openWindow(WebKitWebView* opener, WebKitNavigationAction* /*action*/,
                      void* /*data*/) noexcept {
    GtkWidget* view = webkit_web_view_new_with_related_view(opener);
    g_signal_connect(view, "create", G_CALLBACK(&openWindow), nullptr);
    return showView(view);
}

}  // namespace

int main(int count, char** arguments) {
    gtk_init(&count, &arguments);
    if (count != 2) return 2;
    GtkWidget* view = showView(webkit_web_view_new());
    webkit_settings_set_javascript_can_open_windows_automatically(
        webkit_web_view_get_settings(WEBKIT_WEB_VIEW(view)), TRUE);
    g_signal_connect(view, "create", G_CALLBACK(&openWindow), nullptr);
    webkit_web_view_load_uri(WEBKIT_WEB_VIEW(view), arguments[1]);
    gtk_main();
    return 0;
}
