// Random desktops, users and pages: the invariants.
//
// A seed replays exactly. To examine a failing seed, run the test with its number.

#include <gmock/gmock.h>

#include <map>
#include <regex>

#include "tests/scenario/RandomWorld.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;

/// The event words of one act as letters, to be matched against a grammar.
std::string eventLetters(const std::vector<std::string>& lines) {
    static const std::map<std::string, char> letters{
        {"duplicate_dropped", 'D'},
        {"native_bridge_received", 'R'},
        {"blocked_invalid_direction", 'I'},
        {"blocked_no_accessibility", 'A'},
        {"exec_context", 'X'},
        {"blocked_no_target", 'N'},
        {"target_resolved", 'T'},
        {"menu_path_skipped", 's'},
        {"menu_path_sent", 'm'},
        {"menu_path_missing", 'f'},
        {"menu_path_disabled", 'f'},
        {"menu_path_unavailable", 'f'},
        {"menu_path_press_failed", 'f'},
        {"key_sent", 'K'},
        {"key_undelivered", 'U'},
        {"completed", 'C'},
    };
    std::string word;
    for (const auto& line : lines) {
        const auto found = letters.find(line.substr(0, line.find(' ')));
        if (found != letters.end()) word += found->second;
    }
    return word;
}

class RandomWorlds : public testing::TestWithParam<unsigned> {};

TEST_P(RandomWorlds, KeepTheirPromises) {
    RandomWorld world(GetParam());
    // One step is refused, carried out by the menu, or carried out by a key that arrives or is
    // reported.
    static const std::regex aStep("D|R(I|A|X(N|T(mC|[sf]?KU?C)))");

    for (int i = 0; i < 150; ++i) {
        world.stage.forget();
        const auto front = world.stage.desktop.frontPid();
        std::map<platform::Pid, std::size_t> keysBefore;
        for (const auto pid : world.running()) {
            keysBefore[pid] = world.stage.desktop.program(pid).keys().size();
        }

        const auto what = world.act();
        SCOPED_TRACE("act " + std::to_string(i) + ": " + what);

        std::size_t newKeys = 0;
        for (const auto pid : world.running()) {
            const auto& program = world.stage.desktop.program(pid);
            const auto& keys = program.keys();
            newKeys += keys.size() - keysBefore[pid];
            ASSERT_EQ(keys.size() % 2, 0U) << "a key stayed down in " << pid;
            for (std::size_t k = 0; k < keys.size(); k += 2) {
                ASSERT_TRUE(keys[k].down && !keys[k + 1].down && keys[k].key == keys[k + 1].key);
                ASSERT_EQ(keys[k + 1].at - keys[k].at, 50ms);
            }
            if (program.application().bundleIdentifier == "com.apple.TextEdit") {
                ASSERT_TRUE(keys.empty()) << "a key for a program that holds no slides";
            }
        }
        ASSERT_LE(newKeys, 2U) << "one act is one step";

        if (what == "step") {
            const auto letters = eventLetters(world.stage.lines());
            ASSERT_TRUE(std::regex_match(letters, aStep)) << letters;
            const bool keyArrived =
                letters.find('K') != std::string::npos && letters.find('U') == std::string::npos;
            ASSERT_EQ(newKeys, keyArrived ? 2U : 0U);
            if (!world.stage.desktop.accessibility.trusted) {
                ASSERT_EQ(newKeys, 0U) << "a key without trust";
            }
            ASSERT_EQ(world.stage.desktop.frontPid(), front) << "the focus was moved";
        }
        ASSERT_LE(world.stage.desktop.accessibility.prompts, 1);
        ASSERT_FALSE(world.stage.desktop.application.terminated());
        ASSERT_LE(world.openOverlays(), 1);
        ASSERT_LE(world.openSockets(), 1U);
    }

    world.stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_TRUE(world.stage.desktop.application.terminated());
    EXPECT_EQ(world.openSockets(), 0U);
    const auto quitting = world.stage.desktop.journal.mark();
    world.stage.desktop.advance(120s);
    EXPECT_THAT(world.stage.desktop.journal.effectsSince(quitting),
                testing::Each(testing::StartsWith("process ended")));
}

TEST_P(RandomWorlds, AreTheSameWhenTheyAreReplayed) {
    const auto story = [](unsigned seed) {
        RandomWorld world(seed);
        for (int i = 0; i < 30; ++i) world.act();
        return world.stage.desktop.journal.effectsSince(0);
    };
    EXPECT_EQ(story(GetParam()), story(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWorlds, testing::Range(1U, 41U));

}  // namespace
}  // namespace stagehopper
