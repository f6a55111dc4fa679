#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/KeyboardEvents.h"

namespace stagehopper::platform {

/// Titles by which a program's slide commands are found in its menu bar. A menu or item matches
/// when its title contains one of these, case and diacritics aside.
struct SlideMenuTitles {
    /// Top-level menus to look into; when none of them exists, all are searched.
    std::vector<std::string> menus;
    std::vector<std::string> next;
    std::vector<std::string> previous;
};

/// Which titles of a program's windows suggest slides.
enum class SlideTitles {
    any,
    /// Ending in ".pdf".
    pdf,
    /// Ending like a presentation's file name, or with a word for presentations in it.
    presentation,
};

/// A program that can hold slides, and how to step it.
///
/// How to add a program: docs/architecture.md.
struct SlideApplication {
    std::string bundleIdentifier;
    /// Which program is taken when none was stepped before and none of them is in front: the
    /// lowest number.
    int priority = 0;
    /// Names the row in the diagnostic log.
    std::string strategy;
    VirtualKey nextKey = virtual_key::rightArrow;
    VirtualKey previousKey = virtual_key::leftArrow;
    std::optional<SlideMenuTitles> menuTitles;
    SlideTitles slideTitles = SlideTitles::any;
};

}  // namespace stagehopper::platform
