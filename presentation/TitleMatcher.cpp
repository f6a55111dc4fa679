#include "presentation/TitleMatcher.h"

#include <algorithm>

#include "text/Utf8.h"

namespace stagehopper {

std::string normalizedTitle(platform::Text& text, std::string_view title) {
    const std::string folded = text.folded(title);
    return text.lowercased(trimmed(folded));
}

TitleMatcher::TitleMatcher(platform::Text& text, const std::vector<std::string>& wanted)
    : text_(text) {
    for (const auto& title : wanted) wanted_.push_back(normalizedTitle(text, title));
}

bool TitleMatcher::matches(std::string_view title) const {
    const std::string normalized = normalizedTitle(text_, title);
    return std::ranges::any_of(wanted_, [&normalized](const std::string& wanted) {
        return normalized.find(wanted) != std::string::npos;
    });
}

}  // namespace stagehopper
