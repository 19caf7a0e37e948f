#include "core/screens/errortrap.h"

#include "core/screens/prompts.h"
#include "core/screens/qtext.h"

namespace rd {

QString trapText(const QString& lead, const std::string& description) {
    return lead + QStringLiteral("\n") + fromBytes(description);
}

TrapHandler screenTrap(QWidget* parent, const QString& title, const QString& lead) {
    return [parent, title, lead](const std::string& description) {
        const PromptAnswer answer = showMessage(parent, trapText(lead, description), PromptIcon::Exclamation,
                                                title, PromptButtons::AbortRetryIgnore);
        switch (answer) {
        case PromptAnswer::Retry:
            return TrapChoice::Retry;
        case PromptAnswer::Ignore:
            return TrapChoice::Ignore;
        default:
            return TrapChoice::Abort;
        }
    };
}

void reportFailure(QWidget* parent, const QString& title, const std::string& description,
                   const QString& lead) {
    showMessage(parent, trapText(lead, description), PromptIcon::Exclamation, title, PromptButtons::Ok);
}

} // namespace rd
