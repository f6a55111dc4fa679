#include "tests/drivers/phone/HeadlessPhone.h"

#include <cstdlib>
#include <fstream>

#include "ports/linux/glib/GlibPointers.h"
#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

using Json = nlohmann::json;

void writeBase64(const std::string& base64, const std::filesystem::path& file) {
    gsize size = 0;
    const std::unique_ptr<guchar, linux_port::MemoryFree> bytes(
        g_base64_decode(base64.c_str(), &size));
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.get()), static_cast<std::streamsize>(size));
    out.close();
    if (!out) throw DesktopError("the picture " + file.native() + " could not be written");
}

}  // namespace

HeadlessPhone::HeadlessPhone(const VirtualDesktop& desktop, const PhoneOptions& options) {
    start(desktop, options);
    try {
        page_ = std::make_unique<BrowserPage>(pipe_);
        becomePhone(options);
    } catch (const DesktopError& error) {
        throw DesktopError(std::string("the phone did not come up: ") + error.what() +
                           "; Chromium wrote:\n" + browser_->output().text());
    }
}

void HeadlessPhone::start(const VirtualDesktop& desktop, const PhoneOptions& options) {
    // One profile each: two browsers cannot share one.
    auto profile = (desktop.folder() / "phone-XXXXXX").native();
    if (mkdtemp(profile.data()) == nullptr) throw DesktopError(profile + " could not be made");
    browser_ = desktop.start(
        {"chromium", "--headless", "--remote-debugging-pipe", "--no-sandbox", "--no-first-run",
         "--user-data-dir=" + profile, "--disable-background-networking",
         "--disable-component-update", "--disable-sync", "--disable-breakpad", "--disable-gpu",
         "--password-store=basic", "--lang=" + options.language},
        pipe_.browserEnd());
    pipe_.closeBrowserEnd();
}

void HeadlessPhone::becomePhone(const PhoneOptions& options) {
    pipe_.call("Emulation.setDeviceMetricsOverride", {{"width", width},
                                                      {"height", height},
                                                      {"screenWidth", width},
                                                      {"screenHeight", height},
                                                      {"deviceScaleFactor", pixelRatio},
                                                      {"mobile", true}});
    pipe_.call("Emulation.setTouchEmulationEnabled", {{"enabled", true}, {"maxTouchPoints", 5}});
    pipe_.call("Emulation.setUserAgentOverride",
               {{"userAgent",
                 "Mozilla/5.0 (Linux; Android 14; Phone) AppleWebKit/537.36 (KHTML, like Gecko) "
                 "Chrome/130.0.0.0 Mobile Safari/537.36"},
                {"acceptLanguage", options.language},
                {"platform", "Linux armv8l"}});
}

void HeadlessPhone::tap(const std::string& accessibleName, const std::string& role, Limit limit) {
    TapTarget target;
    const auto isReachable = [&] {
        try {
            target = findTapTarget(pipe_, accessibleName, role);
        } catch (const DesktopError& error) {
            // The page may just be changing under our hands.
            target = {std::nullopt, std::string("cannot be looked for: ") + error.what()};
        }
        return target.place.has_value();
    };
    if (!desktop::waitFor(isReachable, limit)) {
        throw DesktopError("the " + role + " '" + accessibleName +
                           "' of the phone's page cannot be tapped: it " + target.obstacle);
    }
    tap(target.place->x, target.place->y);
}

void HeadlessPhone::tap(double x, double y) {
    touchStart(x, y);
    touchEnd();
}

void HeadlessPhone::swipe(ScreenPoint from, ScreenPoint to) {
    constexpr int moves = 10;
    touchStart(from.x, from.y);
    for (int move = 1; move <= moves; ++move) {
        const double part = static_cast<double>(move) / moves;
        touchMove(from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part);
    }
    touchEnd();
}

void HeadlessPhone::touchStart(double x, double y) {
    touch("touchStart", Json::array({{{"x", x}, {"y", y}}}));
}

void HeadlessPhone::touchMove(double x, double y) {
    touch("touchMove", Json::array({{{"x", x}, {"y", y}}}));
}

void HeadlessPhone::touchEnd() {
    touch("touchEnd", Json::array());
}

void HeadlessPhone::touch(const char* type, const Json& points) {
    pipe_.call("Input.dispatchTouchEvent", {{"type", type}, {"touchPoints", points}});
}

std::string HeadlessPhone::text(const std::string& cssSelector) {
    const auto element = "document.querySelector(" + Json(cssSelector).dump() + ")";
    waitFor(element + " !== null");
    return evaluate("(e => e.innerText ?? e.textContent)(" + element + ")");
}

void HeadlessPhone::savePicture(const std::filesystem::path& file) {
    const auto picture = pipe_.call("Page.captureScreenshot", {{"format", "png"}});
    writeBase64(picture.at("data"), file);
}

}  // namespace stagehopper::desktop
