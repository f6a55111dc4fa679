#include "ports/linux/glib/GlibText.h"

#include <glib.h>

#include <array>
#include <cstddef>
#include <optional>
#include <utility>

#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

namespace {

/// Well-formed and without NUL, at which GLib's other functions would stop.
TextPointer madeValid(std::string_view text) {
    if (text.empty()) return TextPointer(g_strdup(""));
    return TextPointer(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
}

/// A fast path for ASCII titles, without GLib's tables. Not for the letter I, whose lower case is
/// another one in Turkish, and not for NUL.
std::optional<std::string> plainFolded(std::string_view text) {
    std::string lower(text);
    for (auto& character : lower) {
        const bool plain = character > '\0' && character <= '~' && character != 'I';
        if (!plain) return std::nullopt;
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return lower;
}

bool isDiacritic(gunichar character) {
    const auto type = g_unichar_type(character);
    return type == G_UNICODE_NON_SPACING_MARK || type == G_UNICODE_ENCLOSING_MARK;
}

}  // namespace

std::string GlibText::folded(std::string_view text) {
    if (auto plain = plainFolded(text)) return std::move(*plain);
    const auto valid = madeValid(text);
    // Lower case first: it knows the locale's letters (Turkish İ and I), which case folding,
    // the same everywhere, does not.
    const TextPointer lower(g_utf8_strdown(valid.get(), -1));
    const TextPointer sameCase(g_utf8_casefold(lower.get(), -1));
    const TextPointer decomposed(g_utf8_normalize(sameCase.get(), -1, G_NORMALIZE_DEFAULT));

    std::string result;
    for (const char* at = decomposed.get(); *at != '\0';) {
        const char* const next = g_utf8_next_char(at);
        if (!isDiacritic(g_utf8_get_char(at))) result.append(at, next);
        at = next;
    }
    return result;
}

std::string GlibText::lowercased(std::string_view text) {
    // Character by character: g_utf8_strdown follows the locale.
    const auto valid = madeValid(text);
    std::string lower;
    for (const char* at = valid.get(); *at != '\0'; at = g_utf8_next_char(at)) {
        std::array<char, 6> bytes{};
        const auto length = g_unichar_to_utf8(g_unichar_tolower(g_utf8_get_char(at)), bytes.data());
        lower.append(bytes.data(), static_cast<std::size_t>(length));
    }
    return lower;
}

}  // namespace stagehopper::linux_port
