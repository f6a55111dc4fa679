#include "tests/drivers/presentations/Deck.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace stagehopper::desktop {

namespace {

// Programs that manage colors may be off by a little.
bool isNear(Color seen, Color wanted) {
    constexpr int tolerance = 8;
    const auto near = [](std::uint8_t a, std::uint8_t b) {
        return std::abs(int{a} - int{b}) <= tolerance;
    };
    return near(seen.red, wanted.red) && near(seen.green, wanted.green) &&
           near(seen.blue, wanted.blue);
}

}  // namespace

std::optional<int> slideIn(const Picture& picture) {
    constexpr int between = 8;
    constexpr int minPart = 6;  // one sixth of the picture
    std::array<int, slideCount> counts{};
    int looks = 0;
    for (int y = between / 2; y < picture.height(); y += between) {
        for (int x = between / 2; x < picture.width(); x += between) {
            ++looks;
            const auto seen = picture.at(x, y);
            for (std::size_t slide = 0; slide < counts.size(); ++slide) {
                if (isNear(seen, slideColors.at(slide))) ++counts.at(slide);
            }
        }
    }
    const auto most = std::max_element(counts.begin(), counts.end());
    if (*most * minPart < looks) return std::nullopt;
    return static_cast<int>(most - counts.begin()) + 1;
}

std::string hexColor(int slide) {
    const auto color = slideColors.at(static_cast<std::size_t>(slide - 1));
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", color.red, color.green, color.blue);
    return text.data();
}

}  // namespace stagehopper::desktop
