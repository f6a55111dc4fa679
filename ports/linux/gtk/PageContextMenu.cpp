#include "ports/linux/gtk/PageContextMenu.h"

#include <algorithm>
#include <array>
#include <vector>

namespace stagehopper::linux_port {

namespace {

constexpr std::array editingCommands{
    WEBKIT_CONTEXT_MENU_ACTION_CUT,        WEBKIT_CONTEXT_MENU_ACTION_COPY,
    WEBKIT_CONTEXT_MENU_ACTION_PASTE,      WEBKIT_CONTEXT_MENU_ACTION_DELETE,
    WEBKIT_CONTEXT_MENU_ACTION_SELECT_ALL,
};

bool isEditingCommand(WebKitContextMenuItem* item) {
    return std::ranges::find(editingCommands, webkit_context_menu_item_get_stock_action(item)) !=
           editingCommands.end();
}

int menuAboutToShow(WebKitWebView* /*view*/, WebKitContextMenu* menu, GdkEvent* /*event*/,
                    WebKitHitTestResult* /*hit*/, void* /*data*/) noexcept {
    std::vector<WebKitContextMenuItem*> others;
    for (GList* at = webkit_context_menu_get_items(menu); at != nullptr; at = at->next) {
        auto* item = static_cast<WebKitContextMenuItem*>(at->data);
        if (!isEditingCommand(item)) others.push_back(item);
    }
    for (auto* item : others) webkit_context_menu_remove(menu, item);
    const bool hide = webkit_context_menu_get_n_items(menu) == 0;
    return hide ? GDK_EVENT_STOP : GDK_EVENT_PROPAGATE;
}

}  // namespace

void keepOnlyEditingCommands(WebKitWebView* view) {
    g_signal_connect(view, "context-menu", G_CALLBACK(&menuAboutToShow), nullptr);
}

}  // namespace stagehopper::linux_port
