#include "tests/macos/darwin/RuntimeEncoding.h"

#include <cctype>
#include <cstddef>

namespace stagehopper::macos_facts {

namespace {

/// The position behind what `opening` at `position` encloses; brackets may be nested.
std::size_t behindClosing(std::string_view text, std::size_t position, char opening, char closing) {
    int depth = 0;
    for (; position < text.size(); ++position) {
        if (text[position] == opening && (opening != closing || depth == 0)) {
            ++depth;
        } else if (text[position] == closing && --depth == 0) {
            return position + 1;
        }
    }
    return position;
}

}  // namespace

std::string asInTheTable(std::string_view runtimeEncoding, BoolIs boolIs) {
    std::string text;
    bool inName = false;
    for (std::size_t i = 0; i < runtimeEncoding.size();) {
        const char letter = runtimeEncoding[i];
        if (!inName && letter == '"') {
            i = behindClosing(runtimeEncoding, i, '"', '"');
        } else if (!inName && letter == '<') {
            i = behindClosing(runtimeEncoding, i, '<', '>');
        } else {
            const bool isOffset = std::isdigit(static_cast<unsigned char>(letter)) != 0 ||
                                  letter == '+' || letter == '-';
            if (inName || !isOffset) {
                const bool isBool = !inName && letter == 'c' && boolIs == BoolIs::signedChar;
                text.push_back(isBool ? 'B' : letter);
            }
            if (letter == '{') inName = true;
            if (letter == '=' || letter == '}') inName = false;
            ++i;
        }
    }
    return text;
}

}  // namespace stagehopper::macos_facts
