#include "ports/linux/system/MediumTime.h"

#include <unicode/udat.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

namespace {

struct FormatClose {
    void operator()(UDateFormat* format) const { udat_close(format); }
};

std::string utf8(const UChar* text, std::int32_t length) {
    const TextPointer converted(g_utf16_to_utf8(reinterpret_cast<const gunichar2*>(text), length,
                                                nullptr, nullptr, nullptr));
    return converted ? converted.get() : std::string{};
}

}  // namespace

std::string mediumTime(const char* locale, const std::tm& time) {
    // The local time of day as if it were a universal one: the zone is already applied.
    std::tm universal = time;
    const auto milliseconds = 1000.0 * static_cast<double>(timegm(&universal));
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UDateFormat, FormatClose> format(
        udat_open(UDAT_MEDIUM, UDAT_NONE, locale, u"UTC", -1, nullptr, 0, &status));
    if (U_FAILURE(status) != 0) return {};
    std::array<UChar, 64> text{};
    const auto length = udat_format(format.get(), milliseconds, text.data(),
                                    static_cast<std::int32_t>(text.size()), nullptr, &status);
    if (U_FAILURE(status) != 0) return {};
    // Newer tables put a narrow no-break space there, which a user searching the log does not type.
    std::ranges::replace(text, u'\u202F', u' ');
    return utf8(text.data(), length);
}

}  // namespace stagehopper::linux_port
