#include "ports/macos/system/MacText.h"

#include "ports/macos/cocoa/foundation/NSLocale.h"
#include "text/Utf8.h"

namespace stagehopper::macos_port {

std::string MacText::folded(std::string_view text) {
    constexpr auto differences =
        cocoa::NSCaseInsensitiveSearch | cocoa::NSDiacriticInsensitiveSearch;
    return cocoa::text(
        cocoa::string(wellFormed(text))
            .stringByFoldingWithOptions(differences, cocoa::NSLocale::currentLocale()));
}

std::string MacText::lowercased(std::string_view text) {
    return cocoa::text(cocoa::string(wellFormed(text)).lowercaseString());
}

}  // namespace stagehopper::macos_port
