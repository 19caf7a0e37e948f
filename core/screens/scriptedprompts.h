#pragma once
// Prompts for runs with no one at the screen (scripts, and tests that run the built programs):
// every message box and input box is written to standard output instead of being shown, and
// answered from a script.
//
// installScriptedPromptsFromEnvironment installs them when ROSTERDESK_PROMPTS is "print":
//   ROSTERDESK_ANSWERS  answers to message boxes in order, separated by ';' (Ok, Cancel, Yes, No,
//                       Abort, Retry, Ignore); once used up a box answers with its escape button
//                       (Ok, Cancel, No or Abort), so an unscripted question never deletes anything;
//   ROSTERDESK_INPUTS   answers to input boxes in order, separated by ';'; once used up an input
//                       box is cancelled.
//
// Each prompt is one line of standard output:
//   prompt: message title="Roster Desk" icon=Exclamation buttons=YesNoCancel text="..." answer=No
//   prompt: input title="Roster Desk" default="Team A" text="..." answer="Team B"
// with line breaks inside the texts written as \n.

#include "core/screens/prompts.h"

#include <QStringList>
#include <deque>

namespace rd {

class ScriptedPrompts : public Prompts {
public:
    ScriptedPrompts(const QStringList& answers, const QStringList& inputs);

    PromptAnswer message(QWidget* parent, const QString& text, PromptIcon icon, const QString& title,
                         PromptButtons buttons) override;
    std::optional<QString> input(QWidget* parent, const QString& prompt, const QString& title,
                                 const QString& defaultText) override;

private:
    std::deque<QString> answers_;
    std::deque<QString> inputs_;
};

// Installs scripted prompts (for the rest of the process) when ROSTERDESK_PROMPTS is "print".
// Returns whether it did.
bool installScriptedPromptsFromEnvironment();

} // namespace rd
