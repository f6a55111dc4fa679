#include "tests/macos/facts/HeaderTokens.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace stagehopper::macos_facts {

namespace {

bool isWordLetter(char letter) {
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

/// The position after `mark`, looked for from `from`; the end when it is not there.
std::size_t after(std::string_view text, std::string_view mark, std::size_t from) {
    const auto found = text.find(mark, from);
    return found == std::string_view::npos ? text.size() : found + mark.size();
}

std::size_t endOfWord(std::string_view text, std::size_t from) {
    const auto* end = std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(),
                                       isWordLetter);
    return static_cast<std::size_t>(end - text.begin());
}

std::size_t endOfLiteral(std::string_view text, std::size_t from) {
    for (std::size_t i = from + 1; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == text[from]) {
            return i + 1;
        }
    }
    return text.size();
}

}  // namespace

std::vector<Token> tokensOf(std::string_view header) {
    std::vector<Token> tokens;
    std::size_t position = 0;
    const auto take = [&](TokenKind kind, std::size_t end) {
        tokens.push_back({kind, header.substr(position, end - position)});
        position = end;
    };
    while (position < header.size()) {
        const char letter = header[position];
        const auto rest = header.substr(position);
        if (std::isspace(static_cast<unsigned char>(letter)) != 0) {
            ++position;
        } else if (rest.starts_with("//")) {
            position = after(header, "\n", position);
        } else if (rest.starts_with("/*")) {
            position = after(header, "*/", position);
        } else if (letter == '#') {
            take(TokenKind::preprocessor, std::min(header.find('\n', position), header.size()));
        } else if (letter == '"' || letter == '\'') {
            take(TokenKind::text, endOfLiteral(header, position));
        } else if (isWordLetter(letter)) {
            take(TokenKind::word, endOfWord(header, position));
        } else {
            take(TokenKind::punctuation, position + 1);
        }
    }
    return tokens;
}

}  // namespace stagehopper::macos_facts
