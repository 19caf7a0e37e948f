#include "core/screens/fatalerror.h"

#include "core/screens/prompts.h"
#include "core/screens/qtext.h"

#include <cstdio>
#include <cstdlib>

namespace rd {

QString fatalErrorText(const std::string& description) {
    return QStringLiteral("Run-time error: Roster Desk cannot go on and will close.\n\n") +
           fromBytes(description);
}

void fatalError(QWidget* parent, const std::string& description) {
    const QString text = fatalErrorText(description);
    std::fprintf(stderr, "rosterdesk: %s\n", text.toLocal8Bit().replace("\n\n", " ").constData());
    std::fflush(stderr);
    showMessage(parent, text, PromptIcon::Critical, kProgramTitle, PromptButtons::Ok);
    std::fflush(nullptr);
    // Ends here: no window is closed and nothing is saved on the way out.
    std::_Exit(kFatalErrorStatus);
}

} // namespace rd
