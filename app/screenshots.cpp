// rosterdesk-screenshots: renders every screen of the program on a workspace into PNG pictures,
// named for the screen (frmMain.png, frmEditGame.png, ...); a screen with tabs gets one picture
// more for each further tab, named for the screen and the tab (frmEditGame-Advanced.png). The user
// guide and the README show them; scripts/screenshots makes them from the demo workspace.
//
//   rosterdesk-screenshots WORKSPACE OUTPUT-FOLDER [COMMAND-LINE...]
//                                                    render every screen; the launcher's command
//                                                    line items after the folders set the font
//                                                    (FONTSIZE=14, "FONTNAME='DejaVu Serif'")
//   rosterdesk-screenshots --list                    print the screens' names, one a line
//
// The screens open on WORKSPACE itself and write nothing to it; the paths it holds show in the
// pictures, so render a copy that lies where a user's launcher would (scripts/screenshots does).
// Message and input boxes a screen raises while it opens are answered with their escape buttons.

#include "app/allscreens/allscreens.h"
#include "core/screens/scriptedprompts.h"
#include "core/screens/userfont.h"
#include "core/startup.h"
#include "core/text.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QTabWidget>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <string>

namespace {

// Long enough for layouts, icons and the about box's opening animation.
void settle() {
    for (int i = 0; i < 40; ++i) {
        QApplication::processEvents();
        QEventLoop loop;
        QTimer::singleShot(10, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

bool save(QWidget* screen, const QString& output, const QString& name) {
    const bool saved = screen->grab().save(QDir(output).filePath(name + QStringLiteral(".png")));
    std::printf("%s %s\n", saved ? "saved" : "FAILED", name.toUtf8().constData());
    return saved;
}

// A tab's caption as part of a file name: its words, each with a capital, without "&" and blanks
// ("C&hat and AutoExec" gives "ChatAndAutoExec").
QString tabPart(QString caption) {
    caption.remove(QLatin1Char('&'));
    QString part;
    for (const QString& word : caption.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        QString letters;
        for (const QChar c : word)
            if (c.isLetterOrNumber())
                letters += c;
        if (!letters.isEmpty())
            part += letters.front().toUpper() + letters.mid(1);
    }
    return part;
}

// Shows the screen, lets it settle and saves its picture into `output`, then one picture of each
// further tab of its tab controls.
bool shoot(QWidget* screen, const QString& output) {
    const QString name = screen->objectName();
    screen->show();
    settle();
    bool saved = save(screen, output, name);
    for (QTabWidget* tabs : screen->findChildren<QTabWidget*>()) {
        if (!tabs->isVisibleTo(screen))
            continue;
        const int shown = tabs->currentIndex();
        for (int tab = 0; tab < tabs->count(); ++tab) {
            if (tab == shown)
                continue;
            tabs->setCurrentIndex(tab);
            settle();
            saved = save(screen, output, name + QLatin1Char('-') + tabPart(tabs->tabText(tab))) && saved;
        }
        tabs->setCurrentIndex(shown);
    }
    screen->hide();
    return saved;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc == 2 && std::string(argv[1]) == "--list") {
        for (const QString& name : rd::allScreenNames())
            std::printf("%s\n", name.toUtf8().constData());
        return 0;
    }
    if (argc < 3) {
        std::fprintf(stderr,
                     "usage: rosterdesk-screenshots WORKSPACE OUTPUT-FOLDER [COMMAND-LINE...] | --list\n");
        return 2;
    }
    // The launcher's command line after the two folders (the first of the arguments handed on
    // stands where the program's name stands): the user font.
    const rd::StartupDecision decision = rd::decideStartup(
        rd::utf8ToCp1252(rd::joinCommandLine(argc - 2, const_cast<const char* const*>(argv) + 2)));
    rd::setUserFont(rd::UserFont{decision.fontSize, decision.fontName});

    const QString output = QString::fromLocal8Bit(argv[2]);
    QDir().mkpath(output);
    rd::ScriptedPrompts quiet({}, {});
    rd::Prompts::install(&quiet);
    const bool ok = rd::forEachScreen(std::filesystem::path(argv[1]),
                                      [&](QWidget* screen) { return shoot(screen, output); });
    return ok ? 0 : 1;
}
