#pragma once

#include <array>
#include <string_view>

#include "companion/backend/access/Trust.h"

namespace stagehopper::companion {

/// A file that browsers may load.
struct PageEntry {
    std::string_view path;
    std::string_view fileName;
    std::string_view contentType;
    Trust minimumTrust = Trust::network;
    /// A page of another origin may load it: the panel and the overlay have an opaque origin.
    bool allowsForeignPage = false;
};

/// All files: no other path leads to one.
inline constexpr std::array pageTable{
    PageEntry{"/link", "link.html", "text/html; charset=utf-8", Trust::localProgram, true},
    PageEntry{"/link.js", "link.js", "text/javascript; charset=utf-8", Trust::localProgram},
    PageEntry{"/phone", "phone.html", "text/html; charset=utf-8", Trust::network, true},
    PageEntry{"/phone.js", "phone.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone.css", "phone.css", "text/css; charset=utf-8"},
    PageEntry{"/phone-awake.js", "phone-awake.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-buttons.js", "phone-buttons.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-clock.js", "phone-clock.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-identity.js", "phone-identity.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-link.js", "phone-link.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-memory.js", "phone-memory.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-pad.js", "phone-pad.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-page.js", "phone-page.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-random.js", "phone-random.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-room.js", "phone-room.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-settings.js", "phone-settings.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-taps.js", "phone-taps.js", "text/javascript; charset=utf-8"},
    PageEntry{"/phone-texts.js", "phone-texts.js", "text/javascript; charset=utf-8"},
    PageEntry{"/page.js", "page.js", "text/javascript; charset=utf-8"},
    PageEntry{"/step-keys.js", "step-keys.js", "text/javascript; charset=utf-8"},
    PageEntry{"/awake.mp4", "awake.mp4", "video/mp4"},
    PageEntry{"/awake.webm", "awake.webm", "video/webm"},
    PageEntry{"/stagehopper.svg", "stagehopper.svg", "image/svg+xml"},
};

}  // namespace stagehopper::companion
