#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"

namespace stagehopper {

/// The form in which titles are compared: without case and diacritics, trimmed, lower-case.
std::string normalizedTitle(platform::Text& text, std::string_view title);

/// Matches wanted titles against the titles of menus and menu items. Keeps a reference to `text`.
class TitleMatcher {
public:
    TitleMatcher(platform::Text& text, const std::vector<std::string>& wanted);

    /// Whether the title contains any wanted one.
    [[nodiscard]] bool matches(std::string_view title) const;

private:
    platform::Text& text_;
    std::vector<std::string> wanted_;
};

}  // namespace stagehopper
