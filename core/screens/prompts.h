#pragma once
// The one seam every message box and input box of the program goes through. The real
// implementation shows QMessageBox / QInputDialog; tests install a recorder that answers from a
// script and keeps every call, so a test can assert the exact words, title, icon and buttons.

#include <QString>
#include <optional>

class QWidget;

namespace rd {

// The program's own title, used where a box has no title of its own.
inline const QString kProgramTitle = QStringLiteral("Roster Desk");

enum class PromptIcon { None, Information, Exclamation, Question, Critical };
enum class PromptButtons { Ok, OkCancel, YesNo, YesNoCancel, AbortRetryIgnore, RetryCancel };
enum class PromptAnswer { Ok, Cancel, Yes, No, Abort, Retry, Ignore };

class Prompts {
public:
    virtual ~Prompts() = default;

    // A message box; returns the button pressed (closing the box answers as its escape button).
    virtual PromptAnswer message(QWidget* parent, const QString& text, PromptIcon icon, const QString& title,
                                 PromptButtons buttons) = 0;
    // An input box; returns the text typed, or nothing when the user cancelled.
    virtual std::optional<QString> input(QWidget* parent, const QString& prompt, const QString& title,
                                         const QString& defaultText) = 0;

    // The prompts in use (the real dialogs unless a test installed its own).
    static Prompts& current();
    // Installs `prompts` (not owned); nullptr restores the real dialogs.
    static void install(Prompts* prompts);
};

// Short forms for the common cases.
PromptAnswer showMessage(QWidget* parent, const QString& text, PromptIcon icon = PromptIcon::None,
                         const QString& title = kProgramTitle, PromptButtons buttons = PromptButtons::Ok);
std::optional<QString> askInput(QWidget* parent, const QString& prompt, const QString& title = kProgramTitle,
                                const QString& defaultText = QString());

} // namespace rd
