#include "tests/support/prompts_screens.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace rd::test {

PromptRecorder::PromptRecorder() {
    Prompts::install(this);
}
PromptRecorder::~PromptRecorder() {
    Prompts::install(nullptr);
}

PromptAnswer PromptRecorder::message(QWidget*, const QString& text, PromptIcon icon, const QString& title,
                                     PromptButtons buttons) {
    PromptCall call{PromptCall::Kind::Message, text, title, icon, buttons, {}};
    calls_.push_back(call);
    if (onPrompt)
        onPrompt(call);
    if (!messageAnswers_.empty()) {
        const PromptAnswer a = messageAnswers_.front();
        messageAnswers_.pop_front();
        return a;
    }
    switch (buttons) {
    case PromptButtons::Ok:
    case PromptButtons::OkCancel:
        return PromptAnswer::Ok;
    case PromptButtons::YesNo:
    case PromptButtons::YesNoCancel:
        return PromptAnswer::Yes;
    case PromptButtons::AbortRetryIgnore:
        return PromptAnswer::Abort;
    case PromptButtons::RetryCancel:
        return PromptAnswer::Retry;
    }
    return PromptAnswer::Ok;
}

std::optional<QString> PromptRecorder::input(QWidget*, const QString& prompt, const QString& title,
                                             const QString& defaultText) {
    PromptCall call{PromptCall::Kind::Input, prompt,     title, PromptIcon::None,
                    PromptButtons::OkCancel, defaultText};
    calls_.push_back(call);
    if (onPrompt)
        onPrompt(call);
    if (!inputAnswers_.empty()) {
        const bool given = inputAnswers_.front().has_value();
        const QString text = given ? *inputAnswers_.front() : QString();
        inputAnswers_.pop_front();
        if (given)
            return text;
    }
    return std::nullopt;
}

} // namespace rd::test
