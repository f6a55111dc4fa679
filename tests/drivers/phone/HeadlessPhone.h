#pragma once

#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/drivers/desktop/VirtualDesktop.h"
#include "tests/drivers/phone/BrowserPage.h"
#include "tests/drivers/phone/DebuggerPipe.h"
#include "tests/drivers/phone/TapTarget.h"

namespace stagehopper::desktop {

struct PhoneOptions {
    /// The value of navigator.language: "en", "zh-CN".
    std::string language = "en";
};

/// A phone of 390 by 844, upright, with touch and a real headless browser. It is independent of the
/// desktop's windows, but ends with the desktop and keeps its files there. A timeout throws
/// DesktopError. One thread.
class HeadlessPhone {
public:
    static constexpr int width = 390;
    static constexpr int height = 844;
    /// Pixels of a picture for one unit of its pages.
    static constexpr int pixelRatio = 2;

    explicit HeadlessPhone(const VirtualDesktop& desktop, const PhoneOptions& options = {});

    /// Loads an address again, even when only its fragment differs.
    void open(const std::string& url) { page_->open(url); }

    /// Waits for something with this accessible name that is enabled, at rest and not covered,
    /// scrolls to it and taps its middle.
    void tap(const std::string& accessibleName, const std::string& role = "button",
             Limit limit = std::chrono::seconds(10));
    void tap(double x, double y);
    void swipe(ScreenPoint from, ScreenPoint to);
    /// One finger.
    void touchStart(double x, double y);
    void touchMove(double x, double y);
    void touchEnd();

    /// Waits for an element and returns its visible text.
    [[nodiscard]] std::string text(const std::string& cssSelector);
    /// See BrowserPage.
    [[nodiscard]] nlohmann::json evaluate(const std::string& expression) {
        return page_->evaluate(expression);
    }
    void waitFor(const std::string& expression, Limit limit = std::chrono::seconds(10)) {
        page_->waitFor(expression, limit);
    }
    [[nodiscard]] std::vector<std::string> consoleMessages() { return page_->consoleMessages(); }

    /// What the screen shows, as a PNG file.
    void savePicture(const std::filesystem::path& file);

    [[nodiscard]] ChildProgram& browser() { return *browser_; }

private:
    void start(const VirtualDesktop& desktop, const PhoneOptions& options);
    void becomePhone(const PhoneOptions& options);
    void touch(const char* type, const nlohmann::json& points);

    DebuggerPipe pipe_;
    std::unique_ptr<ChildProgram> browser_;
    std::unique_ptr<BrowserPage> page_;
};

}  // namespace stagehopper::desktop
