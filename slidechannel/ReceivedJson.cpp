#include "slidechannel/ReceivedJson.h"

#include <cstddef>
#include <utility>

namespace stagehopper {

namespace {

/// Counts brackets outside strings. The text need not be well-formed.
bool isNestedTooDeeply(std::string_view text) {
    int depth = 0;
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inString && c == '\\') {
            ++i;
        } else if (c == '"') {
            inString = !inString;
        } else if (!inString && (c == '[' || c == '{')) {
            if (++depth > maxJsonNesting) return true;
        } else if (!inString && (c == ']' || c == '}')) {
            --depth;
        }
    }
    return false;
}

}  // namespace

std::optional<nlohmann::json> parseReceivedJson(std::string_view text) {
    if (isNestedTooDeeply(text)) return std::nullopt;
    auto document = nlohmann::json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (document.is_discarded()) return std::nullopt;
    return document;
}

}  // namespace stagehopper
