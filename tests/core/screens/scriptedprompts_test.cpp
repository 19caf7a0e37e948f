// Scripted prompts: message and input boxes printed on standard output and answered from a
// script, for runs with no one at the screen.

#include "core/screens/scriptedprompts.h"

#include <gtest/gtest.h>

using rd::PromptAnswer;
using rd::PromptButtons;
using rd::PromptIcon;
using rd::ScriptedPrompts;

TEST(ScriptedPrompts, MessagesAreAnsweredFromTheScriptAndPrintedOnOneLine) {
    ScriptedPrompts prompts({"Yes", "ignore"}, {});
    testing::internal::CaptureStdout();
    EXPECT_EQ(prompts.message(nullptr, "Delete \"it\"?\nSure?", PromptIcon::Exclamation, "Team A",
                              PromptButtons::YesNoCancel),
              PromptAnswer::Yes);
    EXPECT_EQ(prompts.message(nullptr, "x", PromptIcon::Critical, "T", PromptButtons::AbortRetryIgnore),
              PromptAnswer::Ignore);
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(
        out, "prompt: message title=\"Team A\" icon=Exclamation buttons=YesNoCancel text=\"Delete "
             "\\\"it\\\"?\\nSure?\" "
             "answer=Yes\n"
             "prompt: message title=\"T\" icon=Critical buttons=AbortRetryIgnore text=\"x\" answer=Ignore\n");
}

TEST(ScriptedPrompts, WithoutAScriptEveryBoxAnswersWithItsEscapeButton) {
    ScriptedPrompts prompts({}, {});
    testing::internal::CaptureStdout();
    EXPECT_EQ(prompts.message(nullptr, "q", PromptIcon::None, "t", PromptButtons::YesNoCancel),
              PromptAnswer::Cancel);
    EXPECT_EQ(prompts.message(nullptr, "q", PromptIcon::None, "t", PromptButtons::YesNo), PromptAnswer::No);
    EXPECT_EQ(prompts.message(nullptr, "q", PromptIcon::None, "t", PromptButtons::Ok), PromptAnswer::Ok);
    EXPECT_EQ(prompts.message(nullptr, "q", PromptIcon::None, "t", PromptButtons::AbortRetryIgnore),
              PromptAnswer::Abort);
    EXPECT_EQ(prompts.input(nullptr, "Name?", "Roster Desk", "old"), std::nullopt);
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_NE(
        out.find("prompt: input title=\"Roster Desk\" default=\"old\" text=\"Name?\" answer=(cancelled)\n"),
        std::string::npos);
}

TEST(ScriptedPrompts, InputBoxesTakeTheScriptedTextsInOrder) {
    ScriptedPrompts prompts({}, {"Team B", ""});
    testing::internal::CaptureStdout();
    EXPECT_EQ(prompts.input(nullptr, "p", "t", ""), std::optional<QString>("Team B"));
    EXPECT_EQ(prompts.input(nullptr, "p", "t", ""), std::optional<QString>(""));
    EXPECT_EQ(prompts.input(nullptr, "p", "t", ""), std::nullopt);
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("answer=\"Team B\"\n"), std::string::npos);
}
