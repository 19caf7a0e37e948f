#include "core/errors.h"
#include "core/steprunner.h"

#include <gtest/gtest.h>

namespace steprunner_test {

using namespace rd;

TEST(StepRunner, StepsRunInOrderWhenNothingFails) {
    std::vector<int> order;
    StepRunner runner(nullptr);
    EXPECT_TRUE(runner.step([&] { order.push_back(1); }));
    EXPECT_TRUE(runner.step([&] { order.push_back(2); }));
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
    EXPECT_EQ(runner.failures(), 0);
}

TEST(StepRunner, HandlerSeesTheErrorsDescription) {
    std::vector<std::string> seen;
    StepRunner runner(collectAndIgnore(seen));
    EXPECT_FALSE(runner.step([] { throw ConversionError("Type mismatch"); }));
    EXPECT_TRUE(runner.step([] {}));
    EXPECT_EQ(seen, (std::vector<std::string>{"Type mismatch"}));
    EXPECT_EQ(runner.failures(), 1);
    EXPECT_FALSE(runner.aborted());
}

TEST(StepRunner, WithoutAHandlerAFailureAborts) {
    StepRunner runner(nullptr);
    bool later = false;
    runner.step([] { throw FileError("x"); });
    runner.step([&] { later = true; });
    EXPECT_TRUE(runner.aborted());
    EXPECT_FALSE(later);
}

TEST(StepRunner, RetryRepeatsUntilTheStepSucceeds) {
    int calls = 0;
    int attempts = 0;
    StepRunner runner([&](const std::string&) {
        ++calls;
        return TrapChoice::Retry;
    });
    EXPECT_TRUE(runner.step([&] {
        if (++attempts < 3)
            throw FileError("busy");
    }));
    EXPECT_EQ(attempts, 3);
    EXPECT_EQ(calls, 2);
}

} // namespace steprunner_test
