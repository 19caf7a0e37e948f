// Drives the real main window from outside, for the tests of the commands that end the program
// on failure (they cannot run inside the test program, which they would end too).
//
//   frmMain_driver <workspace root> <button> <list entry>
//
// Opens the main window on the workspace, selects the entry (in the bots list for cmdDeleteBot,
// in the profile list otherwise), clicks the button and, when the program is still running
// afterwards, prints "main window still open" and exits with status 0. Message and input boxes
// are printed and answered as ROSTERDESK_PROMPTS=print, ROSTERDESK_ANSWERS and ROSTERDESK_INPUTS
// say (core/screens/scriptedprompts.h).

#include "core/screens/scriptedprompts.h"
#include "profiles/screens/frmMain.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: frmMain_driver <workspace root> <button> <list entry>\n");
        return 2;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (!rd::installScriptedPromptsFromEnvironment()) {
        std::fprintf(stderr, "frmMain_driver needs ROSTERDESK_PROMPTS=print\n");
        return 2;
    }
    const std::filesystem::path root = argv[1];
    rd::frmMain form(root);
    form.show();
    const QString button = QString::fromLocal8Bit(argv[2]);
    const QString entry = QString::fromLocal8Bit(argv[3]);
    QListWidget* list = button == QStringLiteral("cmdDeleteBot") ? form.lstRecognisedBots : form.lstProfiles;
    const auto found = list->findItems(entry, Qt::MatchExactly);
    auto* command = form.findChild<QPushButton*>(button);
    if (found.size() != 1 || !command) {
        std::fprintf(stderr, "no entry %s or no button %s\n", argv[3], argv[2]);
        return 2;
    }
    list->setCurrentItem(found.first());
    command->click();
    std::printf("main window still open: %s\n", form.isVisible() ? "yes" : "no");
    std::fflush(stdout);
    return 0;
}
