#include "tests/macos/facts/DeclarationScanner.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace stagehopper::macos_facts {

namespace {

/// A word (letters, digits, underscores), a string literal with its quotes, one punctuation
/// character, or a whole line of the preprocessor. Views into the text.
enum class TokenKind { word, text, punctuation, preprocessor };

struct Token {
    TokenKind kind = TokenKind::word;
    std::string_view spelling;
};

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

/// The tokens of a C++ header, without its comments.
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

/// A vendor's name: `NSWarning`, `DISPATCH_TIME_NOW`, `kAXPress`; ours begin with a small letter.
bool isVendorName(std::string_view name) {
    if (name.starts_with('k')) name.remove_prefix(1);
    return !name.empty() && std::isupper(static_cast<unsigned char>(name[0])) != 0;
}

class Scanner {
public:
    explicit Scanner(std::string_view source) : tokens_(tokensOf(source)) {}

    std::string run() {
        while (here_ < tokens_.size()) {
            if (starts({"extern", "\"C\"", "{"})) {
                ++depthOfC_;
                here_ += 3;
            } else if (depthOfC_ > 0 && is("}")) {
                --depthOfC_;
                ++here_;
            } else if (token().kind == TokenKind::preprocessor) {
                preprocessorLine();
            } else if (depthOfC_ > 0) {
                statementOfC();
            } else if (starts({"enum"})) {
                enumeration();
            } else if (starts({"inline", "constexpr"})) {
                constant();
            } else {
                mention();
            }
        }
        return std::move(found_);
    }

private:
    [[nodiscard]] const Token& token(std::size_t ahead = 0) const {
        static const Token none{TokenKind::punctuation, ""};
        return here_ + ahead < tokens_.size() ? tokens_[here_ + ahead] : none;
    }
    [[nodiscard]] bool is(std::string_view spelling, std::size_t ahead = 0) const {
        return token(ahead).spelling == spelling;
    }
    [[nodiscard]] bool starts(std::initializer_list<std::string_view> spellings) const {
        std::size_t ahead = 0;
        return std::all_of(spellings.begin(), spellings.end(),
                           [&](std::string_view each) { return is(each, ahead++); });
    }
    /// Skips past the next token of that spelling.
    void skipPast(std::string_view spelling) {
        while (here_ < tokens_.size() && !is(spelling)) ++here_;
        ++here_;
    }
    void report(std::string_view what, std::string_view name) {
        found_.append(what).append("(").append(name).append(")\n");
    }

    void preprocessorLine() {
        const auto line = token().spelling;
        for (const auto* condition : {"#if", "#el", "#endif"}) {
            if (line.starts_with(condition)) found_.append(line).append("\n");
        }
        ++here_;
    }

    /// One declaration between `extern "C" {` and its brace.
    void statementOfC() {
        const bool isVariable = is("extern");
        const bool isType = is("struct") || is("using") || is("typedef");
        std::string_view name;
        while (here_ < tokens_.size() && !is(";") && !is("(") && !is("[")) {
            if (token().kind == TokenKind::word) name = token().spelling;
            ++here_;
        }
        skipPast(";");
        if (!isType) report(isVariable ? "VARIABLE" : "FUNCTION", name);
    }

    void enumeration() {
        ++here_;
        if (is("class")) ++here_;
        const auto enumerationName = token().spelling;
        while (here_ < tokens_.size() && !is("{") && !is(";")) ++here_;
        if (is(";")) return;
        bool nameIsNext = true;
        for (++here_; here_ < tokens_.size() && !is("}"); ++here_) {
            if (nameIsNext && isVendorName(token().spelling)) {
                report("ENUMERATOR", joined({enumerationName, token().spelling}));
            }
            nameIsNext = is(",");
        }
    }

    void constant() {
        const Token* name = nullptr;
        while (here_ < tokens_.size() &&
               std::string_view("={;([").find(token().spelling) == std::string_view::npos) {
            name = &tokens_[here_++];
        }
        // A parenthesis means a function; a `>` precedes the value of a specialization.
        if (name != nullptr && !is("(") && isVendorName(name->spelling)) {
            report("CONSTANT", name->spelling);
        }
    }

    /// Where a handle type begins, or a message, a selector or a method of ours is named.
    void mention() {
        if (starts({"public", "Handle", "<"}) && is(",", 4)) {
            report("HANDLE", joined({token(3).spelling, token(5).spelling}));
        } else if ((is("send") || is("sendToClass")) && is("<", 1) &&
                   token(2).kind == TokenKind::text) {
            message(token(2).spelling);
        } else if (starts({"Message", "<"}) && is("MessageKind", 4) &&
                   token(9).kind == TokenKind::text) {
            message(token(9).spelling);
        } else if (starts({"selector", "<"}) && token(2).kind == TokenKind::text) {
            report("SELECTOR", token(2).spelling);
        } else if (token().spelling.starts_with("\"AX")) {
            report("ACCESSIBILITY_NAME", token().spelling);
        } else if (starts({"Block", "<"}) && token(2).kind == TokenKind::word) {
            block();
        } else if (const auto alias = blockAliases_.find(token().spelling);
                   alias != blockAliases_.end()) {
            lastBlock_ = alias->second;
        } else {
            classOfOurs();
        }
        ++here_;
    }

    /// The block that the function around it takes belongs to it.
    void message(std::string_view selector) {
        report("MESSAGE", selector);
        if (!lastBlock_.empty()) report("BLOCK", joined({selector, std::exchange(lastBlock_, "")}));
    }

    /// `Block<void(NSError)>`, or `using Receiver = Block<void(NSError)>`.
    void block() {
        const auto isAlias = here_ >= 3 && tokens_[here_ - 3].spelling == "using";
        const auto name = isAlias ? tokens_[here_ - 2].spelling : std::string_view();
        const char* begin = token(2).spelling.data();
        while (here_ < tokens_.size() && !is(")")) ++here_;
        lastBlock_ = std::string(begin, token().spelling.data() + 1);
        if (isAlias) blockAliases_[name] = std::exchange(lastBlock_, "");
    }

    /// The chain of calls that makes a class: its protocols, then its methods.
    void classOfOurs() {
        if (starts({"using", "Self", "="})) {
            self_ = token(3).spelling;
        } else if (starts({"RuntimeClass", "<"})) {
            protocols_.clear();
        } else if (starts({"conformsTo", "("})) {
            const auto quoted = token(2).spelling;
            protocols_.append(protocols_.empty() ? "" : " ")
                .append(quoted.substr(1, quoted.size() - 2));
        } else if (starts({"method", "<"}) && is("&", 4)) {
            const auto owner = is("Self", 5) ? self_ : token(5).spelling;
            report("CALLBACK",
                   joined({"\"" + protocols_ + "\"", token(2).spelling, owner, token(8).spelling}));
        }
    }

    static std::string joined(std::initializer_list<std::string_view> parts) {
        std::string text;
        for (const auto part : parts) text.append(text.empty() ? "" : ", ").append(part);
        return text;
    }

    std::vector<Token> tokens_;
    std::size_t here_ = 0;
    int depthOfC_ = 0;
    /// The block type named last, until a message takes it.
    std::string lastBlock_;
    std::map<std::string_view, std::string> blockAliases_;
    /// Of the class being made.
    std::string_view self_;
    std::string protocols_;
    std::string found_;
};

}  // namespace

std::string scanDeclarations(std::string_view source) {
    return Scanner(source).run();
}

}  // namespace stagehopper::macos_facts
