// The backend's link page works in Stagehopper's own views, and in no browser.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <ostream>

#include "tests/desktop/FaultyBackend.h"
#include "tests/desktop/HostilePage.h"
#include "tests/drivers/desktop/FileWriting.h"
#include "tests/drivers/program/DrivenProgram.h"

namespace stagehopper::desktop {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr std::chrono::seconds limit{60};

struct Browser {
    const char* name;
    /// The command that opens an address, given a folder for its profile.
    std::vector<std::string> (*command)(const std::filesystem::path& profile);
};

void PrintTo(const Browser& browser, std::ostream* out) {
    *out << browser.name;
}

constexpr const char* firefoxPreferences = R"(
user_pref("dom.disable_open_during_load", false);
user_pref("browser.shell.checkDefaultBrowser", false);
user_pref("datareporting.policy.dataSubmissionEnabled", false);
)";

const Browser browsers[] = {
    {"Chromium",
     [](const std::filesystem::path& profile) -> std::vector<std::string> {
         return {"chromium",
                 "--headless",
                 "--no-sandbox",
                 "--no-first-run",
                 "--disable-gpu",
                 "--user-data-dir=" + profile.native(),
                 "--disable-background-networking",
                 "--disable-popup-blocking",
                 "--password-store=basic"};
     }},
    {"Firefox",
     [](const std::filesystem::path& profile) -> std::vector<std::string> {
         writeFile(profile / "user.js", firefoxPreferences);
         return {"firefox-esr", "--headless", "--no-remote", "--profile", profile.native()};
     }},
    {"WebKit",
     [](const std::filesystem::path&) -> std::vector<std::string> {
         return {(programFolder() / "stagehopper_plain_browser").native()};
     }},
};

class LinkPage : public testing::TestWithParam<Browser> {
protected:
    LinkPage() {
        server_.setPage("/hostile", std::string(hostilePage));
        writeFile(desktop_.folder() / "hostile.html", std::string(hostilePage));
        const auto profile = desktop_.folder() / "profile";
        std::filesystem::create_directory(profile);
        auto command = GetParam().command(profile);
        command.push_back("file://" + (desktop_.folder() / "hostile.html").native());
        browser_ = desktop_.start(std::move(command));
    }
    bool told(const std::string& words) {
        const auto all = server_.targets();
        return std::ranges::find(all, "/ws?" + words) != all.end();
    }

    VirtualDesktop desktop_;
    FaultyBackend server_{3041};
    std::unique_ptr<ChildProgram> backend_ =
        desktop_.start({(programFolder() / "Resources/StagehopperBackend-arm64").native(),
                        "--ppid=" + std::to_string(getpid())});
    std::unique_ptr<ChildProgram> browser_;
};

TEST_P(LinkPage, SendsNothingToAPageInABrowser) {
    EXPECT_TRUE(waitFor([this] { return told("over"); }, limit)) << browser_->output().text();
    EXPECT_TRUE(told("a%20window%20was%20opened"));
    EXPECT_THAT(server_.targets(), Not(Contains(HasSubstr("%20by%20"))));
}

INSTANTIATE_TEST_SUITE_P(In, LinkPage, testing::ValuesIn(browsers),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace stagehopper::desktop
