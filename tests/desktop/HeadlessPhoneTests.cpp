// The phone without a screen: its actions on a page, its reports, and that it leaves no process
// behind.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/desktop/Processes.h"
#include "tests/drivers/phone/HeadlessPhone.h"

namespace stagehopper::desktop {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr const char* twoButtons =
    R"html(<!doctype html>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<style>
    body { margin: 0; }
    button { position: absolute; left: 20px; width: 200px; height: 60px; }
</style>
<button style="top: 100px" onclick="told('next ' + event.isTrusted)">Next slide</button>
<button style="top: 200px" onclick="told('previous')" aria-label="Previous slide">&lt;</button>
<button style="top: 2000px" onclick="told('end')">End</button>
<button style="top: 300px" onclick="told('late')" id="late" disabled>Late</button>
<div id="told"></div>
<script>
    const told = text => { document.getElementById('told').textContent = text; };
</script>)html";

/// What is said about an attempt that fails.
template <class Attempt>
std::string wordsOf(const Attempt& attempt) {
    try {
        attempt();
    } catch (const DesktopError& error) {
        return error.what();
    }
    return "nothing was said";
}

class HeadlessPhoneTest : public testing::Test {
protected:
    HeadlessPhoneTest() { write("page.html", twoButtons); }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(desktop_.folder() / name) << text;
    }
    [[nodiscard]] std::string address(const std::string& name = "page.html") const {
        return "file://" + (desktop_.folder() / name).native();
    }

    VirtualDesktop desktop_;
};

TEST_F(HeadlessPhoneTest, TapsWhatIsFoundByItsAccessibleName) {
    HeadlessPhone phone(desktop_);
    phone.open(address());
    phone.tap("Next slide");
    phone.waitFor("document.getElementById('told').textContent === 'next true'");
    phone.tap("Previous slide");
    phone.waitFor("document.getElementById('told').textContent === 'previous'");
    EXPECT_THAT(phone.consoleMessages(), IsEmpty());
}

TEST_F(HeadlessPhoneTest, ScrollsToWhatItTaps) {
    HeadlessPhone phone(desktop_);
    phone.open(address());
    phone.tap("End");
    phone.waitFor("document.getElementById('told').textContent === 'end'");
    EXPECT_GT(phone.evaluate("scrollY").get<double>(), 1000);
}

TEST_F(HeadlessPhoneTest, WaitsUntilAButtonIsEnabled) {
    HeadlessPhone phone(desktop_);
    phone.open(address());
    EXPECT_EQ(phone.evaluate("setTimeout(() => { late.disabled = false; }, 300) > 0"), true);
    phone.tap("Late");
    phone.waitFor("document.getElementById('told').textContent === 'late'");
}

TEST_F(HeadlessPhoneTest, ReportsTheErrorsOfThePage) {
    write("faulty.html",
          "<script>console.log('fine'); console.error('wrong', 7);</script>"
          "<script>throw new Error('not caught');</script>"
          "<script src='missing.js'></script>");
    HeadlessPhone phone(desktop_);
    phone.open(address("faulty.html"));
    EXPECT_THAT(
        phone.consoleMessages(),
        UnorderedElementsAre("wrong 7", HasSubstr("Error: not caught"), HasSubstr("missing.js")));
}

TEST_F(HeadlessPhoneTest, NamesTheConditionThatTimedOut) {
    constexpr std::chrono::milliseconds soon{300};
    HeadlessPhone phone(desktop_);
    EXPECT_THAT(wordsOf([&] { phone.open(address("missing.html")); }),
                HasSubstr("ERR_FILE_NOT_FOUND"));
    phone.open(address());
    EXPECT_THAT(wordsOf([&] { static_cast<void>(phone.evaluate("Promise.reject(Error('no'))")); }),
                HasSubstr("Error: no"));
    EXPECT_THAT(wordsOf([&] { phone.waitFor("missing.value", soon); }),
                HasSubstr("missing is not defined"));
    EXPECT_THAT(wordsOf([&] { phone.tap("Late", "button", soon); }), HasSubstr("is disabled"));
}

TEST_F(HeadlessPhoneTest, NoticesThatThePageCrashedOrTheBrowserEnded) {
    HeadlessPhone phone(desktop_);
    // It may crash before the browser has answered, or after.
    auto words = wordsOf([&] { phone.open("chrome://crash"); });
    words += wordsOf([&] { static_cast<void>(phone.evaluate("1")); });
    EXPECT_THAT(words, HasSubstr("the page crashed"));
    phone.open(address());
    phone.browser().end();
    EXPECT_THAT(wordsOf([&] { static_cast<void>(phone.evaluate("1")); }), HasSubstr("gone"));
}

TEST_F(HeadlessPhoneTest, LeavesNoProcessBehind) {
    const auto chromiumProcesses = [this] {
        int count = 0;
        for (const auto process : processesWithEnvironment(desktop_.folder().native())) {
            count += programName(process) == "chromium" ? 1 : 0;
        }
        return count;
    };
    pid_t group = 0;
    {
        HeadlessPhone phone(desktop_);
        group = phone.browser().pid();
        EXPECT_GT(chromiumProcesses(), 0);
    }
    EXPECT_FALSE(isGroupAlive(group));
    EXPECT_EQ(chromiumProcesses(), 0);
}

}  // namespace
}  // namespace stagehopper::desktop
