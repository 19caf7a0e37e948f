#include "core/screens/scriptedprompts.h"

#include <QByteArray>
#include <cstdio>
#include <cstdlib>

namespace rd {

namespace {

const char* iconName(PromptIcon icon) {
    switch (icon) {
    case PromptIcon::None:
        return "None";
    case PromptIcon::Information:
        return "Information";
    case PromptIcon::Exclamation:
        return "Exclamation";
    case PromptIcon::Question:
        return "Question";
    case PromptIcon::Critical:
        return "Critical";
    }
    return "None";
}

const char* buttonsName(PromptButtons buttons) {
    switch (buttons) {
    case PromptButtons::Ok:
        return "Ok";
    case PromptButtons::OkCancel:
        return "OkCancel";
    case PromptButtons::YesNo:
        return "YesNo";
    case PromptButtons::YesNoCancel:
        return "YesNoCancel";
    case PromptButtons::AbortRetryIgnore:
        return "AbortRetryIgnore";
    case PromptButtons::RetryCancel:
        return "RetryCancel";
    }
    return "Ok";
}

const char* answerName(PromptAnswer answer) {
    switch (answer) {
    case PromptAnswer::Ok:
        return "Ok";
    case PromptAnswer::Cancel:
        return "Cancel";
    case PromptAnswer::Yes:
        return "Yes";
    case PromptAnswer::No:
        return "No";
    case PromptAnswer::Abort:
        return "Abort";
    case PromptAnswer::Retry:
        return "Retry";
    case PromptAnswer::Ignore:
        return "Ignore";
    }
    return "Ok";
}

PromptAnswer escapeAnswer(PromptButtons buttons) {
    switch (buttons) {
    case PromptButtons::Ok:
        return PromptAnswer::Ok;
    case PromptButtons::YesNo:
        return PromptAnswer::No;
    case PromptButtons::AbortRetryIgnore:
        return PromptAnswer::Abort;
    case PromptButtons::OkCancel:
    case PromptButtons::YesNoCancel:
    case PromptButtons::RetryCancel:
        return PromptAnswer::Cancel;
    }
    return PromptAnswer::Cancel;
}

std::optional<PromptAnswer> answerFromName(const QString& name) {
    for (PromptAnswer a : {PromptAnswer::Ok, PromptAnswer::Cancel, PromptAnswer::Yes, PromptAnswer::No,
                           PromptAnswer::Abort, PromptAnswer::Retry, PromptAnswer::Ignore}) {
        if (name.compare(QString::fromLatin1(answerName(a)), Qt::CaseInsensitive) == 0)
            return a;
    }
    return std::nullopt;
}

// A text on one line, quoted.
QByteArray quoted(const QString& text) {
    QString t = text;
    t.replace(QStringLiteral("\\"), QStringLiteral("\\\\"));
    t.replace(QStringLiteral("\r"), QStringLiteral("\\r"));
    t.replace(QStringLiteral("\n"), QStringLiteral("\\n"));
    t.replace(QStringLiteral("\""), QStringLiteral("\\\""));
    return "\"" + t.toUtf8() + "\"";
}

std::deque<QString> split(const QStringList& list) {
    return std::deque<QString>(list.begin(), list.end());
}

QStringList fromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    if (!value || !*value)
        return {};
    return QString::fromLocal8Bit(value).split(QLatin1Char(';'));
}

} // namespace

ScriptedPrompts::ScriptedPrompts(const QStringList& answers, const QStringList& inputs)
    : answers_(split(answers)), inputs_(split(inputs)) {}

PromptAnswer ScriptedPrompts::message(QWidget*, const QString& text, PromptIcon icon, const QString& title,
                                      PromptButtons buttons) {
    PromptAnswer answer = escapeAnswer(buttons);
    if (!answers_.empty()) {
        if (auto scripted = answerFromName(answers_.front()))
            answer = *scripted;
        answers_.pop_front();
    }
    std::printf("prompt: message title=%s icon=%s buttons=%s text=%s answer=%s\n", quoted(title).constData(),
                iconName(icon), buttonsName(buttons), quoted(text).constData(), answerName(answer));
    std::fflush(stdout);
    return answer;
}

std::optional<QString> ScriptedPrompts::input(QWidget*, const QString& prompt, const QString& title,
                                              const QString& defaultText) {
    std::optional<QString> answer;
    if (!inputs_.empty()) {
        answer = inputs_.front();
        inputs_.pop_front();
    }
    std::printf("prompt: input title=%s default=%s text=%s answer=%s\n", quoted(title).constData(),
                quoted(defaultText).constData(), quoted(prompt).constData(),
                answer ? quoted(*answer).constData() : "(cancelled)");
    std::fflush(stdout);
    return answer;
}

bool installScriptedPromptsFromEnvironment() {
    const char* mode = std::getenv("ROSTERDESK_PROMPTS");
    if (!mode || QByteArray(mode) != "print")
        return false;
    static ScriptedPrompts prompts(fromEnvironment("ROSTERDESK_ANSWERS"),
                                   fromEnvironment("ROSTERDESK_INPUTS"));
    Prompts::install(&prompts);
    return true;
}

} // namespace rd
