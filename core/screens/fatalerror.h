#pragma once
// The end of the program after a failure in a command that has no error trap (deleting a bot,
// deleting or renaming a profile): there is no partial recovery, so the program reports the
// failure and ends at once with a non-zero exit status.

#include <QString>
#include <string>

class QWidget;

namespace rd {

// The exit status of a program ended by fatalError.
inline constexpr int kFatalErrorStatus = 3;

// The text of the fatal error report for an error's description.
QString fatalErrorText(const std::string& description);

// Writes the report to standard error, shows it in a message box (critical icon, the program's
// title), then ends the process with kFatalErrorStatus. Never returns.
[[noreturn]] void fatalError(QWidget* parent, const std::string& description);

} // namespace rd
