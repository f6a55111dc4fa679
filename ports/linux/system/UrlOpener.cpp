#include "ports/linux/system/UrlOpener.h"

#include <array>
#include <string_view>

#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

namespace {

constexpr std::string_view accessibilitySettings =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

struct SettingsProgram {
    const char* program;
    const char* page;
    /// By the name that the desktop gives itself.
    std::string_view desktop;
};

constexpr std::array settingsPrograms{
    SettingsProgram{"systemsettings", "kcm_access", "KDE"},
    SettingsProgram{"systemsettings5", "kcm_access", "KDE"},
    SettingsProgram{"gnome-control-center", "universal-access", "GNOME"},
    SettingsProgram{"cinnamon-settings", "universal-access", "Cinnamon"},
    SettingsProgram{"mate-at-properties", nullptr, "MATE"},
    SettingsProgram{"xfce4-accessibility-settings", nullptr, "XFCE"},
};

bool start(const SettingsProgram& settings) {
    const TextPointer path(g_find_program_in_path(settings.program));
    if (!path) return false;
    std::string page = settings.page != nullptr ? settings.page : "";
    std::array<char*, 3> arguments{path.get(), page.empty() ? nullptr : page.data(), nullptr};
    // Without G_SPAWN_DO_NOT_REAP_CHILD GLib forks twice, and we have no zombie to collect.
    return g_spawn_async(
               nullptr, arguments.data(), nullptr,
               static_cast<GSpawnFlags>(G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL),
               nullptr, nullptr, nullptr, nullptr) != FALSE;
}

bool openAccessibilitySettings() {
    const char* name = g_getenv("XDG_CURRENT_DESKTOP");
    const std::string_view desktop = name != nullptr ? name : "";
    for (const auto& settings : settingsPrograms) {
        if (desktop.find(settings.desktop) != std::string_view::npos && start(settings))
            return true;
    }
    // On an unknown desktop, try each settings program.
    for (const auto& settings : settingsPrograms) {
        if (start(settings)) return true;
    }
    return false;
}

}  // namespace

bool openUrl(const std::string& url) {
    if (url == accessibilitySettings) return openAccessibilitySettings();
    const TextPointer scheme(g_uri_parse_scheme(url.c_str()));
    if (!scheme) return false;
    const ObjectPointer<GAppInfo> responsible(g_app_info_get_default_for_uri_scheme(scheme.get()));
    if (!responsible && g_ascii_strcasecmp(scheme.get(), "file") != 0) return false;
    g_app_info_launch_default_for_uri_async(url.c_str(), nullptr, nullptr, nullptr, nullptr);
    return true;
}

}  // namespace stagehopper::linux_port
