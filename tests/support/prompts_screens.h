#pragma once
// The prompt recorder: installed for the length of a test, it answers every message box and
// input box from a script and keeps every call, so a test can assert the exact words, title,
// icon and buttons the user would have seen.

#include "core/screens/prompts.h"

#include <QString>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace rd::test {

struct PromptCall {
    enum class Kind { Message, Input } kind = Kind::Message;
    QString text; // message text or input prompt
    QString title;
    PromptIcon icon = PromptIcon::None;
    PromptButtons buttons = PromptButtons::Ok;
    QString defaultText; // input boxes only
};

class PromptRecorder : public Prompts {
public:
    PromptRecorder();
    ~PromptRecorder() override;

    // Scripted answers, used in order; when the script runs out a message box answers with
    // its first button (Ok, Yes, Abort, Retry) and an input box is cancelled.
    void answer(PromptAnswer a) { messageAnswers_.push_back(a); }
    void answerInput(std::optional<QString> text) { inputAnswers_.push_back(std::move(text)); }
    // Called for every prompt after it is recorded (for example to check the screen's state).
    std::function<void(const PromptCall&)> onPrompt;

    const std::vector<PromptCall>& calls() const { return calls_; }
    const PromptCall& last() const { return calls_.back(); }
    void clear() { calls_.clear(); }

    PromptAnswer message(QWidget* parent, const QString& text, PromptIcon icon, const QString& title,
                         PromptButtons buttons) override;
    std::optional<QString> input(QWidget* parent, const QString& prompt, const QString& title,
                                 const QString& defaultText) override;

private:
    std::vector<PromptCall> calls_;
    std::deque<PromptAnswer> messageAnswers_;
    std::deque<std::optional<QString>> inputAnswers_;
};

} // namespace rd::test
