#include "app/MainMenu.h"

namespace stagehopper {

using platform::Menu;
using platform::MenuAction;
using platform::MenuEntry;
using platform::MenuItem;

platform::MainMenu mainMenu() {
    const MenuEntry separator;
    return {
        Menu{"",
             {MenuItem{"关于 Stagehopper", MenuAction::orderFrontStandardAboutPanel, ""}, separator,
              MenuItem{"退出 Stagehopper", MenuAction::terminate, "q"}}},
        Menu{"编辑",
             {MenuItem{"剪切", MenuAction::cut, "x"}, MenuItem{"复制", MenuAction::copy, "c"},
              MenuItem{"粘贴", MenuAction::paste, "v"},
              MenuItem{"全选", MenuAction::selectAll, "a"}}},
    };
}

}  // namespace stagehopper
