// What a press returns, by what the program and the bus do with it.

#include <gmock/gmock.h>

#include <csignal>
#include <thread>

#include "ports/linux/atspi/AtSpiAccessibility.h"
#include "ports/linux/x11/X11Desktop.h"
#include "tests/linux/bus/AccessibilitySession.h"

namespace stagehopper::linux_port {
namespace {

using namespace std::chrono_literals;
using platform::AccessibilityAttribute;
using platform::AccessibilityError;
using platform::UIElementRef;

UIElementRef elementOf(const platform::AttributeValue& value) {
    return std::get<UIElementRef>(value.value);
}

class Press : public testing::Test {
protected:
    /// The item "To Next Slide" of a program that does this with a press.
    UIElementRef itemOfProgramThat(const std::string& mannerOfPress) {
        session.startService();
        program_ = &session.startProgram(mannerOfPress);
        EXPECT_TRUE(
            AccessibilitySession::runUntil([this] { return accessibility_.isProcessTrusted(); }));
        auto element = elementOf(*accessibility_.applicationElement(program_->pid())
                                      ->attributeValue(AccessibilityAttribute::menuBar));
        for (int level = 0; level < 2; ++level) {
            const auto children = element->attributeValue(AccessibilityAttribute::children);
            element = elementOf(std::get<platform::AttributeList>(children->value).at(0));
        }
        return element;
    }
    [[nodiscard]] bool programWasPressed() const {
        return program_->output().waitForLine("pressed", 5s).has_value();
    }
    [[nodiscard]] desktop::ChildProgram& program() { return *program_; }

    AccessibilitySession session;

private:
    X11Desktop desktop_;
    AtSpiAccessibility accessibility_{desktop_};
    desktop::ChildProgram* program_ = nullptr;
};

TEST_F(Press, ThatIsPerformedSucceeds) {
    EXPECT_EQ(itemOfProgramThat("done")->press(), AccessibilityError::success);
    EXPECT_TRUE(programWasPressed());
}

struct AnswerCase {
    const char* manner;
    AccessibilityError expected;
};

class PressAnswered : public Press, public testing::WithParamInterface<AnswerCase> {};

TEST_P(PressAnswered, ReturnsWhatTheAnswerSays) {
    EXPECT_EQ(itemOfProgramThat(GetParam().manner)->press(), GetParam().expected)
        << GetParam().manner;
}

INSTANTIATE_TEST_SUITE_P(
    Answers, PressAnswered,
    testing::Values(AnswerCase{"not done", AccessibilityError::cannotComplete},
                    AnswerCase{"fails", AccessibilityError::cannotComplete},
                    AnswerCase{"no such object", AccessibilityError::invalidElement},
                    AnswerCase{"no such method", AccessibilityError::actionUnsupported},
                    AnswerCase{"other type", AccessibilityError::success}));

TEST_F(Press, WithoutAnAnswerCountsAsPressed) {
    EXPECT_EQ(itemOfProgramThat("silent")->press(), AccessibilityError::success);
    EXPECT_TRUE(programWasPressed());
}

TEST_F(Press, OfAStoppedProgramCountsAsPressedAndIsPerformedLater) {
    const auto item = itemOfProgramThat("done");
    program().signal(SIGSTOP);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(item->press(), AccessibilityError::success);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 1s) << "the main thread goes on";
    EXPECT_EQ(program().output().count("pressed"), 0U);
    program().signal(SIGCONT);
    EXPECT_TRUE(programWasPressed());
}

TEST_F(Press, OfAProgramThatLeavesTheBusWithoutAnAnswerCountsAsPressed) {
    EXPECT_EQ(itemOfProgramThat("leaves")->press(), AccessibilityError::success);
    EXPECT_TRUE(programWasPressed());
}

TEST_F(Press, OfAProgramThatHasLeftTheBusFails) {
    const auto item = itemOfProgramThat("done");
    program().signal(SIGKILL);
    ASSERT_TRUE(program().waitForExit(5s));
    EXPECT_EQ(item->press(), AccessibilityError::invalidElement);
}

TEST_F(Press, OfAProgramInBackoffIsNotSentAndFails) {
    const auto item = itemOfProgramThat("done");
    program().signal(SIGSTOP);
    EXPECT_FALSE(item->attributeValue(AccessibilityAttribute::enabled)) << "it does not answer";
    EXPECT_EQ(item->press(), AccessibilityError::cannotComplete);
    program().signal(SIGCONT);
    // It answers again, and no press has waited for it.
    EXPECT_TRUE(AccessibilitySession::runUntil(
        [&] { return item->attributeValue(AccessibilityAttribute::enabled).has_value(); }));
    EXPECT_EQ(program().output().count("pressed"), 0U);
}

TEST_F(Press, OnABusThatDiesBeforeTheAnswerCountsAsPressed) {
    const auto item = itemOfProgramThat("silent");
    std::thread death([this] {
        EXPECT_TRUE(programWasPressed());
        session.accessibilityBus.die();
    });
    EXPECT_EQ(item->press(), AccessibilityError::success);
    death.join();
}

TEST_F(Press, OnABusThatHangsCountsAsPressedSoonAndIsPerformedLater) {
    const auto item = itemOfProgramThat("done");
    session.accessibilityBus.hang();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(item->press(), AccessibilityError::success);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 250ms);
    session.accessibilityBus.goOn();
    EXPECT_TRUE(programWasPressed());
}

TEST_F(Press, OnABusThatIsGoneIsNotSentAndFails) {
    const auto item = itemOfProgramThat("done");
    session.accessibilityBus.die();
    EXPECT_TRUE(AccessibilitySession::runUntil(
        [&] { return item->press() == AccessibilityError::cannotComplete; }));
    EXPECT_EQ(program().output().count("pressed"), 0U);
}

}  // namespace
}  // namespace stagehopper::linux_port
