#pragma once

#include <string_view>
#include <vector>

namespace stagehopper::macos_facts {

/// A word (letters, digits, underscores), a string literal with its quotes, one punctuation
/// character, or a whole line of the preprocessor. Views into the text.
enum class TokenKind { word, text, punctuation, preprocessor };

struct Token {
    TokenKind kind = TokenKind::word;
    std::string_view spelling;
};

/// The tokens of a C++ header, without its comments. Pure; any thread.
[[nodiscard]] std::vector<Token> tokensOf(std::string_view header);

}  // namespace stagehopper::macos_facts
