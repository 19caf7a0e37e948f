#pragma once
// The screens' side of the error trap: a handler for rd::StepRunner that shows the failure in a
// message box and lets the user Abort, Retry or Ignore.

#include "core/steprunner.h"

#include <QString>
#include <string>

class QWidget;

namespace rd {

inline const QString kTrapLead = QStringLiteral("Sod it!  Something has gone wrong!");

// The text of the box: the lead line followed by the error's description.
QString trapText(const QString& lead, const std::string& description);

// Shows `lead` and the error's description with the exclamation icon, Abort/Retry/Ignore and
// `title` (the activity); the button pressed decides the step runner's reaction.
TrapHandler screenTrap(QWidget* parent, const QString& title, const QString& lead = kTrapLead);

// Shows the failure with OK only (for activities that are abandoned on the first error).
void reportFailure(QWidget* parent, const QString& title, const std::string& description,
                   const QString& lead = kTrapLead);

} // namespace rd
