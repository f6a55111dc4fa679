#include <string>
#include <variant>

#include "app/AppController.h"
#include "app/LogLine.h"
#include "platform/Accessibility.h"
#include "presentation/SlideDirection.h"
#include "presentation/SlideTargetChoice.h"
#include "presentation/TitleMatcher.h"

namespace stagehopper {

using platform::AccessibilityAttribute;
using platform::UIElement;
using platform::UIElementRef;

namespace {

// Levels below the top-level menus. Deeper menus do not occur, and a malformed tree needs a limit.
constexpr int searchDepth = 8;

/// An item whose state cannot be read counts as enabled: the press then shows whether it is.
bool isDisabled(const UIElement& item) {
    const auto read = item.attributeValue(AccessibilityAttribute::enabled);
    if (!read) return false;
    const auto* enabled = std::get_if<bool>(&read->value);
    return enabled != nullptr && !*enabled;
}

}  // namespace

const platform::SlideMenuTitles* AppController::slideMenuStrategy(
    const platform::SlideApplication* row) {
    if (row == nullptr || !row->menuTitles) return nullptr;
    return &*row->menuTitles;
}

std::vector<UIElementRef> AppController::menuRootCandidates(const UIElement& menuBar,
                                                            const TitleMatcher& preferred) {
    auto all = axChildrenAttribute(menuBar, AccessibilityAttribute::children);
    std::vector<UIElementRef> kept;
    for (const auto& menu : all) {
        const auto title = axStringAttribute(*menu, AccessibilityAttribute::title);
        if (title && preferred.matches(*title)) kept.push_back(menu);
    }
    return kept.empty() ? all : kept;
}

UIElementRef AppController::findMenuItem(const std::vector<UIElementRef>& elements,
                                         const TitleMatcher& wanted, int depth) {
    if (depth < 0) return nullptr;
    for (const auto& element : elements) {
        const auto role = axStringAttribute(*element, AccessibilityAttribute::role);
        if (role == platform::accessibility_role::menuItem) {
            const auto title = axStringAttribute(*element, AccessibilityAttribute::title);
            if (title && wanted.matches(*title)) return element;
        }
        auto descendants = axChildrenAttribute(*element, AccessibilityAttribute::children);
        if (auto menu = axElementAttribute(*element, AccessibilityAttribute::menu)) {
            descendants.push_back(std::move(menu));
        }
        if (auto hit = findMenuItem(descendants, wanted, depth - 1)) return hit;
    }
    return nullptr;
}

bool AppController::pressSlideMenuCommand(const SlideTargetCandidate& candidate,
                                          SlideDirection direction) {
    const auto* titles = slideMenuStrategy(candidate.row);
    if (titles == nullptr) return false;

    const auto application =
        platform_.accessibility.applicationElement(candidate.app.processIdentifier);
    const auto menuBar = axElementAttribute(*application, AccessibilityAttribute::menuBar);
    if (!menuBar) {
        slideNavLog("menu_path_unavailable",
                    logDetail({{"bundle", candidate.bundleId}, {"reason", "no_menu_bar"}}));
        return false;
    }

    const TitleMatcher preferred(platform_.text, titles->menus);
    const TitleMatcher wanted(platform_.text,
                              direction == SlideDirection::next ? titles->next : titles->previous);
    const auto item = findMenuItem(menuRootCandidates(*menuBar, preferred), wanted, searchDepth);
    if (!item) {
        slideNavLog("menu_path_missing",
                    logDetail({{"bundle", candidate.bundleId}, {"dir", directionWord(direction)}}));
        return false;
    }

    const auto title = axStringAttribute(*item, AccessibilityAttribute::title).value_or("unknown");
    if (isDisabled(*item)) {
        slideNavLog("menu_path_disabled", logDetail({{"bundle", candidate.bundleId},
                                                     {"dir", directionWord(direction)},
                                                     {"title", title}}));
        return false;
    }
    if (const auto error = item->press(); error != platform::AccessibilityError::success) {
        slideNavLog("menu_path_press_failed",
                    logDetail({{"bundle", candidate.bundleId},
                               {"dir", directionWord(direction)},
                               {"title", title},
                               {"err", std::to_string(static_cast<int>(error))}}));
        return false;
    }
    slideNavLog("menu_path_sent", logDetail({{"bundle", candidate.bundleId},
                                             {"dir", directionWord(direction)},
                                             {"title", title}}));
    return true;
}

}  // namespace stagehopper
