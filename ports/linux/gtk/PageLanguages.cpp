#include "ports/linux/gtk/PageLanguages.h"

#include <webkit2/webkit2.h>

#include <string_view>
#include <vector>

namespace stagehopper::linux_port {

void tellPagesTheUsersLanguages() {
    std::vector<const char*> languages;
    for (const auto* const* each = g_get_language_names(); *each != nullptr; ++each) {
        const std::string_view name(*each);
        // Each language comes with and without a character set. The last entry, "C", is not a
        // language.
        if (name == "C" || name.find_first_of(".@") != std::string_view::npos) continue;
        languages.push_back(*each);
    }
    if (languages.empty()) return;
    languages.push_back(nullptr);
    webkit_web_context_set_preferred_languages(webkit_web_context_get_default(), languages.data());
}

}  // namespace stagehopper::linux_port
