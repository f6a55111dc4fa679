#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "tests/drivers/desktop/Picture.h"

namespace stagehopper::desktop {

constexpr int slideCount = 5;

/// Each slide is filled with its own color, so that the pixels show which one is up.
constexpr std::array<Color, slideCount> slideColors{{{0xC0, 0x39, 0x2B},
                                                     {0x24, 0x71, 0xA3},
                                                     {0x1E, 0x84, 0x49},
                                                     {0xD6, 0x89, 0x10},
                                                     {0x6C, 0x34, 0x83}}};

/// A slide's color as "#C0392B".
[[nodiscard]] std::string hexColor(int slide);

/// The slide whose color covers most of the picture, from 1; absent when no slide covers a large
/// part.
[[nodiscard]] std::optional<int> slideIn(const Picture& picture);

/// The deck as a presentation in flat OpenDocument XML.
void writeOpenDocumentDeck(const std::filesystem::path& file);
/// The deck as a document of five pages.
void writePdfDeck(const std::filesystem::path& file);
/// The deck as a web page that turns on the arrow keys and takes only real key presses: its title
/// is "Slide 2 of 5", with " after a forged key" behind it once a script's key event came.
void writeWebDeck(const std::filesystem::path& file);

}  // namespace stagehopper::desktop
