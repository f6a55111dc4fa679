#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace stagehopper::linux_port {

/// The roles that matter to us, by their numbers on the accessibility bus.
enum class AtSpiRole : std::uint32_t {
    invalid = 0,
    alert = 2,
    checkMenuItem = 8,
    colorChooser = 9,
    dialog = 16,
    fileChooser = 19,
    filler = 20,
    fontChooser = 22,
    frame = 23,
    internalFrame = 28,
    layeredPane = 30,
    menu = 33,
    menuBar = 34,
    menuItem = 35,
    panel = 39,
    radioMenuItem = 45,
    rootPane = 46,
    scrollPane = 49,
    splitPane = 53,
    tearOffMenuItem = 59,
    viewport = 68,
    window = 69,
    section = 85,
    redundantObject = 86,
    grouping = 99,
};

/// States, as bits of the set that the bus sends.
namespace at_spi_state {
inline constexpr std::uint64_t active = 1ULL << 1U;
inline constexpr std::uint64_t enabled = 1ULL << 8U;
inline constexpr std::uint64_t iconified = 1ULL << 15U;
inline constexpr std::uint64_t sensitive = 1ULL << 24U;
inline constexpr std::uint64_t showing = 1ULL << 25U;
inline constexpr std::uint64_t visible = 1ULL << 30U;
}  // namespace at_spi_state

/// Whether it is a top-level window of its program.
bool isWindow(AtSpiRole role);
/// Whether it only arranges other objects, so that a menu bar may be inside. Not a root pane:
/// LibreOffice keeps a second menu bar there, and a press in that one takes the focus.
bool isLayout(AtSpiRole role);
/// The role of something `depth` levels below a menu bar (1 is a menu of the bar itself). Only
/// what can be chosen is a menu item: something with children opens a submenu when it is pressed.
std::string_view menuRole(AtSpiRole role, std::size_t depth, bool hasChildren);

}  // namespace stagehopper::linux_port
