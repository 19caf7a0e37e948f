#include "core/screens/errortrap.h"
#include "core/screens/prompts.h"
#include "tests/support/prompts_screens.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace prompts_test {

using namespace rd;
using rd::test::PromptRecorder;

TEST(ErrorTrap, ShowsTheLeadAndTheDescriptionWithExclamationAndAbortRetryIgnore) {
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Ignore);
    StepRunner runner(screenTrap(nullptr, "Getting Profile List"));
    runner.step([] { throw std::runtime_error("File not found"); });
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Sod it!  Something has gone wrong!\nFile not found"));
    EXPECT_EQ(prompts.last().title, QString("Getting Profile List"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
}

TEST(ErrorTrap, IgnoreGoesOnWithTheNextStep) {
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Ignore);
    StepRunner runner(screenTrap(nullptr, "T"));
    bool second = false;
    runner.step([] { throw std::runtime_error("x"); });
    runner.step([&] { second = true; });
    EXPECT_TRUE(second);
    EXPECT_FALSE(runner.aborted());
}

TEST(ErrorTrap, RetryRunsTheSameStepAgain) {
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Retry);
    StepRunner runner(screenTrap(nullptr, "T"));
    int attempts = 0;
    const bool done = runner.step([&] {
        if (++attempts == 1)
            throw std::runtime_error("first time");
    });
    EXPECT_TRUE(done);
    EXPECT_EQ(attempts, 2);
    EXPECT_EQ(prompts.calls().size(), 1u);
}

TEST(ErrorTrap, AbortLeavesTheRestOfTheStepsUnrun) {
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Abort);
    StepRunner runner(screenTrap(nullptr, "T"));
    bool second = false;
    runner.step([] { throw std::runtime_error("x"); });
    runner.step([&] { second = true; });
    EXPECT_FALSE(second);
    EXPECT_TRUE(runner.aborted());
}

} // namespace prompts_test
