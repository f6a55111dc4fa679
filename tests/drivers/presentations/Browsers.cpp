#include "tests/drivers/desktop/FileWriting.h"
#include "tests/drivers/presentations/Deck.h"
#include "tests/drivers/presentations/Presentation.h"

namespace stagehopper::desktop {

namespace {

constexpr const char* firefoxPreferences = R"(
user_pref("app.normandy.enabled", false);
user_pref("app.update.enabled", false);
user_pref("browser.aboutwelcome.enabled", false);
user_pref("browser.shell.checkDefaultBrowser", false);
user_pref("browser.startup.homepage_override.mstone", "ignore");
user_pref("browser.tabs.warnOnClose", false);
user_pref("datareporting.policy.dataSubmissionEnabled", false);
user_pref("toolkit.telemetry.reportingpolicy.firstRun", false);
user_pref("browser.sessionstore.resume_from_crash", false);
)";

std::string webDeck(const VirtualDesktop& desktop, const std::string& name) {
    const auto file = desktop.folder() / name;
    writeWebDeck(file);
    return "file://" + file.native();
}

}  // namespace

std::unique_ptr<Presentation> openInChromium(const VirtualDesktop& desktop) {
    const auto profile = desktop.folder() / "chromium";
    return std::make_unique<Presentation>(
        desktop,
        desktop.start({"chromium", "--no-sandbox", "--no-first-run",
                       "--user-data-dir=" + profile.native(), "--disable-background-networking",
                       "--disable-component-update", "--disable-sync", "--password-store=basic",
                       "--new-window", webDeck(desktop, "chromium.html")}),
        "of 5 - Chromium");
}

std::unique_ptr<Presentation> openInFirefox(const VirtualDesktop& desktop) {
    const auto profile = desktop.folder() / "firefox";
    std::filesystem::create_directories(profile);
    writeFile(profile / "user.js", firefoxPreferences);
    return std::make_unique<Presentation>(
        desktop,
        desktop.start({"firefox-esr", "--no-remote", "--new-instance", "--profile",
                       profile.native(), webDeck(desktop, "firefox.html")}),
        "Mozilla Firefox");
}

}  // namespace stagehopper::desktop
