// The rosterdesk program: reads the command line once, records the user font, points at the
// help file and shows exactly one first screen. The program ends when the last screen closes.
//
// The workspace is found as core/launcherfolder.h says: ROSTERDESK_ROOT, the program's own
// folder, the launcher's folder remembered from an earlier start, else the first-start window
// asks for it (dialogs/frmLauncherFolder.h); cancelling it ends the program.
//
// Environment variables serve the desktop entry, scripts and tests (the command line belongs to
// the launcher):
//   ROSTERDESK_CHOOSE_FOLDER=1    ask for the launcher's folder first (the desktop action "Choose
//                                 Launcher Folder…");
//   ROSTERDESK_SCREENSHOT=<file>  save a picture of the first screen, then quit;
//   ROSTERDESK_REPORT_START=1     print the workspace and how it was found, the start-up decision,
//                                 the first screen, how the desktop knows the program (desktop
//                                 entry, icon) and Qt's platform plugin, then quit;
//   ROSTERDESK_PROMPTS=print      print every message box and input box instead of showing it and
//                                 answer it from a script, so a test can run the program to its
//                                 end (core/screens/scriptedprompts.h); the first-start window is
//                                 then asked as an input box.

#include "core/screens/help.h"
#include "core/screens/programidentity.h"
#include "core/screens/qtext.h"
#include "core/screens/scriptedprompts.h"
#include "core/screens/userfont.h"
#include "core/startup.h"
#include "core/text.h"
#include "core/workspace.h"
#include "dialogs/frmLauncherFolder.h"
#include "games/screens/frmEditGame.h"
#include "maps/screens/frmCustomMapEditor.h"
#include "plugins/screens/frmEditPlugInSetup.h"
#include "profiles/screens/frmMain.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QPluginLoader>
#include <QPointer>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>
#include <QStylePlugin>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

// The first screen the command line asks for.
QWidget* openFirstScreen(const rd::StartupDecision& decision, const std::filesystem::path& root) {
    switch (decision.screen) {
    case rd::FirstScreen::GameEditor:
        // Modeless; without a record it says so and closes at once, which ends the program.
        return new rd::frmEditGame(root, decision.argument);
    case rd::FirstScreen::PluginEditor:
        // Modeless; when the bot has no folder it says so and closes itself, ending the program.
        return new rd::frmEditPlugInSetup(root, decision.argument);
    case rd::FirstScreen::MainWindow:
        break;
    case rd::FirstScreen::CustomMaps:
        return new rd::frmCustomMapEditor(root);
    }
    return new rd::frmMain(root);
}

#ifdef _WIN32
// On Windows the program lives in the launcher's folder, where every folder is a profile: Qt's
// plugins lie beside the program, not in platforms\ and styles\ folders of their own.
void usePluginsBesideTheProgram(const std::filesystem::path& folder) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM_PLUGIN_PATH"))
        qputenv("QT_QPA_PLATFORM_PLUGIN_PATH", QString::fromStdU16String(folder.u16string()).toLocal8Bit());
}

// The Windows style of the desktop the program runs on, from its plugin beside the program.
void useWindowsStyleBesideTheProgram(const std::filesystem::path& folder) {
    if (qEnvironmentVariableIsSet("QT_STYLE_OVERRIDE") ||
        QStyleFactory::keys().contains(QStringLiteral("windowsvista")))
        return;
    QPluginLoader loader(QString::fromStdU16String((folder / "qwindowsvistastyle.dll").u16string()));
    if (auto* plugin = qobject_cast<QStylePlugin*>(loader.instance()))
        if (QStyle* style = plugin->create(QStringLiteral("windowsvista")))
            QApplication::setStyle(style);
}
#endif

} // namespace

int main(int argc, char** argv) {
    // The launcher's free-text command line, taken before Qt looks at the arguments.
    const std::string commandLine = rd::utf8ToCp1252(rd::joinCommandLine(argc, argv));

#ifdef _WIN32
    usePluginsBesideTheProgram(rd::programFolder(argv[0]));
#endif
    QApplication app(argc, argv);
#ifdef _WIN32
    useWindowsStyleBesideTheProgram(rd::programFolder(argv[0]));
#endif
    // The settings (the launcher's folder, remembered) live under these names.
    QApplication::setOrganizationName(QStringLiteral("RosterDesk"));
    QApplication::setApplicationName(QStringLiteral("RosterDesk"));
    rd::setProgramIdentity(&app);

    const rd::StartupDecision decision = rd::decideStartup(commandLine);
    rd::setUserFont(rd::UserFont{decision.fontSize, decision.fontName});
    rd::installHelpKey(&app);
    const bool scripted = rd::installScriptedPromptsFromEnvironment();

    const char* chooseAgain = std::getenv("ROSTERDESK_CHOOSE_FOLDER");
    QSettings settings;
    const std::optional<rd::DesktopRoot> workspace =
        rd::OpenDesktopWorkspace(rd::programFolder(argv[0]), settings, chooseAgain && *chooseAgain,
                                 scripted ? rd::LauncherFolderPrompt : rd::LauncherFolderWindow);
    if (!workspace)
        return 0; // the user cancelled the first-start window: nothing was touched
    const std::filesystem::path& root = workspace->folder;
    app.setProperty("helpFile", QString::fromStdString(rd::helpFilePath(root).string()));

    QWidget* first = openFirstScreen(decision, root);
    first->setAttribute(Qt::WA_DeleteOnClose);
    first->show();
    // The first screen may close itself (and be deleted) before the report below runs.
    const QString firstName = first->objectName();

    if (const char* report = std::getenv("ROSTERDESK_REPORT_START"); report && *report) {
        QTimer::singleShot(0, [&] {
            std::printf("root=%s\nrootFrom=%s\nroute=%s\nargument=%s\nscreen=%s\nfontSize=%d\nfontName=%s\n",
                        QString::fromStdU16String(root.u16string()).toUtf8().constData(),
                        rd::rootSourceName(workspace->source), rd::firstScreenName(decision.screen),
                        rd::cp1252ToUtf8(decision.argument).c_str(), firstName.toUtf8().constData(),
                        decision.fontSize, rd::cp1252ToUtf8(decision.fontName).c_str());
            // The window icon as drawn at 32 pixels ("none" when there is none to draw).
            const QImage icon = QApplication::windowIcon().pixmap(32, 32).toImage();
            std::printf(
                "desktopFileName=%s\nwindowIcon=%s\nplatform=%s\n",
                QGuiApplication::desktopFileName().toUtf8().constData(),
                icon.isNull()
                    ? "none"
                    : QStringLiteral("%1x%2").arg(icon.width()).arg(icon.height()).toUtf8().constData(),
                QGuiApplication::platformName().toUtf8().constData());
            std::fflush(stdout);
            QApplication::quit();
        });
    }
    if (const char* shot = std::getenv("ROSTERDESK_SCREENSHOT"); shot && *shot) {
        const QString file = QString::fromLocal8Bit(shot);
        QTimer::singleShot(800, [first = QPointer<QWidget>(first), file] {
            const bool saved = first && first->grab().save(file);
            std::printf(saved ? "Screenshot of the first screen saved to %s\n"
                              : "Could not save a screenshot to %s\n",
                        file.toLocal8Bit().constData());
            std::fflush(stdout);
            QApplication::exit(saved ? 0 : 1);
        });
    }
    return QApplication::exec();
}
