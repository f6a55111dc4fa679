#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/KeyboardEvents.h"

namespace stagehopper::platform {

/// Titles by which a program's slide commands are found in its menu bar. A menu or item matches if
/// its title contains one of these, ignoring case and diacritics.
struct SlideMenuTitles {
    /// Top-level menus to search; if none of them exists, all are searched.
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

/// A program that can show slides, and how to step it.
///
/// How to add a program: docs/architecture.md.
struct SlideApplication {
    std::string bundleIdentifier;
    /// If no program was stepped before and none of them is in front, the lowest number is chosen.
    int priority = 0;
    /// Names the row in the diagnostic log.
    std::string strategy;
    VirtualKey nextKey = virtual_key::rightArrow;
    VirtualKey previousKey = virtual_key::leftArrow;
    std::optional<SlideMenuTitles> menuTitles;
    SlideTitles slideTitles = SlideTitles::any;
};

}  // namespace stagehopper::platform
