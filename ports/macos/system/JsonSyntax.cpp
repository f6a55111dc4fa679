#include "ports/macos/system/JsonSyntax.h"

#include <cstddef>

#include "platform/Json.h"
#include "text/Ascii.h"
#include "text/Utf8.h"

namespace stagehopper::macos_port {

namespace {

/// Consumes a text from its start. Each function consumes one element of the grammar, or returns
/// false at the first error.
class Syntax {
public:
    explicit Syntax(std::string_view text) : rest_(text) {}

    bool document() {
        skipBlanks();
        if (next() != '[' && next() != '{') return false;
        return value(1) && (skipBlanks(), rest_.empty());
    }

private:
    bool value(int depth) {
        skipBlanks();
        switch (next()) {
            case '[':
                return list(depth, ']');
            case '{':
                return list(depth, '}');
            case '"':
                return string();
            case 't':
                return word("true");
            case 'f':
                return word("false");
            case 'n':
                return word("null");
            default:
                return number();
        }
    }

    /// An array or an object, from its opening bracket.
    bool list(int depth, char end) {
        if (depth > platform::maxJsonNesting) return false;
        rest_.remove_prefix(1);
        skipBlanks();
        if (take(end)) return true;
        do {
            if (end == '}' && !name()) return false;
            if (!value(depth + 1)) return false;
            skipBlanks();
        } while (take(','));
        return take(end);
    }

    /// The name of a member, and the colon.
    bool name() {
        skipBlanks();
        if (!string()) return false;
        skipBlanks();
        return take(':');
    }

    bool string() {
        if (!take('"')) return false;
        while (!take('"')) {
            if (static_cast<unsigned char>(next()) < 0x20U) return false;
            if (!take('\\')) {
                rest_.remove_prefix(1);
            } else if (!escape()) {
                return false;
            }
        }
        return true;
    }

    /// What follows a backslash.
    bool escape() {
        if (take('u')) return codeUnits();
        if (rest_.empty() || std::string_view("\"\\/bfnrt").find(next()) == std::string_view::npos)
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    /// One code unit, or a surrogate pair.
    bool codeUnits() {
        if (isSurrogate("89abAB"))
            return hexDigits() && word("\\u") && isSurrogate("cdefCDEF") && hexDigits();
        return !isSurrogate("cdefCDEF") && hexDigits();
    }
    /// Whether a code unit of the form D8.. follows, with one of these for the 8.
    [[nodiscard]] bool isSurrogate(std::string_view second) const {
        return rest_.size() > 1 && (rest_[0] == 'd' || rest_[0] == 'D') &&
               second.find(rest_[1]) != std::string_view::npos;
    }
    /// Four hexadecimal digits.
    bool hexDigits() {
        for (int i = 0; i < 4; ++i) {
            if (!isHexDigit(next())) return false;
            rest_.remove_prefix(1);
        }
        return true;
    }

    bool number() {
        take('-');
        if (!take('0') && !digits()) return false;
        if (take('.') && !digits()) return false;
        if (!take('e') && !take('E')) return true;
        if (!take('+')) take('-');
        return digits();
    }
    /// At least one.
    bool digits() {
        if (!isAsciiDigit(next())) return false;
        while (isAsciiDigit(next())) rest_.remove_prefix(1);
        return true;
    }

    bool word(std::string_view expected) {
        if (!rest_.starts_with(expected)) return false;
        rest_.remove_prefix(expected.size());
        return true;
    }
    bool take(char expected) { return word({&expected, 1}); }
    void skipBlanks() {
        while (next() == ' ' || next() == '\t' || next() == '\n' || next() == '\r') {
            rest_.remove_prefix(1);
        }
    }
    /// NUL, which is no part of the grammar, at the end.
    [[nodiscard]] char next() const { return rest_.empty() ? '\0' : rest_.front(); }

    std::string_view rest_;
};

}  // namespace

bool isStrictJson(std::string_view text) {
    return isValidUtf8(text) && Syntax(text).document();
}

}  // namespace stagehopper::macos_port
