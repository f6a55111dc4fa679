#include "companion/backend/system/Options.h"

#include <gtest/gtest.h>

#include <map>

namespace stagehopper::companion {
namespace {

using Environment = std::map<std::string, std::string>;

std::variant<Options, std::string> read(const std::vector<std::string>& arguments,
                                        const Environment& environment) {
    return readOptions(arguments, [&](const std::string& name) -> std::optional<std::string> {
        const auto found = environment.find(name);
        return found == environment.end() ? std::nullopt : std::optional(found->second);
    });
}

TEST(Options, TheArgumentsAndEnvironmentOfTheHostAreParsed) {
    const auto options =
        std::get<Options>(read({"--ppid=4711"}, {{"PORT", "3000"}, {"PORT_EXTRA", "50"}}));
    EXPECT_EQ(options.parent, 4711);
    EXPECT_EQ(options.firstPort, 3000);
    EXPECT_EQ(options.lastPort, 3050);
    EXPECT_EQ(options.pages, "");
}

TEST(Options, PortsHaveDefaults) {
    const auto options = std::get<Options>(read({"--ppid=1", "--pages=/p"}, {}));
    EXPECT_EQ(options.firstPort, 3000);
    EXPECT_EQ(options.lastPort, 3050);
    EXPECT_EQ(options.pages, "/p");
}

TEST(Options, InvalidOptionsGiveAnErrorMessage) {
    for (const char* argument : {"--ppid=", "--ppid=0", "--ppid=-1", "--ppid=x", "--ppid=1x",
                                 "--ppid=99999999999", "--pages=", "--help", ""}) {
        const auto result = read({"--ppid=1", argument}, {});
        EXPECT_TRUE(std::holds_alternative<std::string>(result)) << argument;
    }
    EXPECT_TRUE(std::holds_alternative<std::string>(read({}, {}))) << "no parent";
    for (const Environment& environment :
         {Environment{{"PORT", "0"}}, Environment{{"PORT", "65536"}}, Environment{{"PORT", ""}},
          Environment{{"PORT", "3000 "}}, Environment{{"PORT_EXTRA", "-1"}},
          Environment{{"PORT", "65535"}, {"PORT_EXTRA", "1"}}}) {
        EXPECT_TRUE(std::holds_alternative<std::string>(read({"--ppid=1"}, environment)));
    }
}

TEST(Options, TheLogIsInTheStateFolder) {
    const auto fileWith = [](const Environment& environment) {
        return std::get<Options>(read({"--ppid=1"}, environment)).logFile;
    };
    EXPECT_EQ(fileWith({{"XDG_STATE_HOME", "/s"}, {"HOME", "/h"}}), "/s/stagehopper/backend.log");
    EXPECT_EQ(fileWith({{"HOME", "/h"}}), "/h/.local/state/stagehopper/backend.log");
    EXPECT_EQ(fileWith({{"XDG_STATE_HOME", "s"}, {"HOME", "/h"}}),
              "/h/.local/state/stagehopper/backend.log");
    EXPECT_EQ(fileWith({}), "");
}

}  // namespace
}  // namespace stagehopper::companion
