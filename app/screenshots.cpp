// rosterdesk-screenshots: renders every screen of the program on a workspace into PNG pictures,
// one per screen, named for the screen (frmMain.png, frmEditGame.png, ...). The user guide and
// the README show them; scripts/screenshots makes them from the demo workspace.
//
//   rosterdesk-screenshots WORKSPACE OUTPUT-FOLDER   render every screen
//   rosterdesk-screenshots --list                    print the screens' names, one a line
//
// The screens open on a copy of the workspace, so nothing in it can change. Message and input
// boxes a screen raises while it opens are answered with their escape buttons.

#include "app/allscreens/allscreens.h"
#include "core/screens/scriptedprompts.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

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

// Shows the screen, lets it settle and saves its picture into `output`.
bool shoot(QWidget* screen, const QString& output) {
    const QString name = screen->objectName();
    screen->show();
    settle();
    const bool saved = screen->grab().save(QDir(output).filePath(name + QStringLiteral(".png")));
    std::printf("%s %s\n", saved ? "saved" : "FAILED", name.toUtf8().constData());
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
    if (argc != 3) {
        std::fprintf(stderr, "usage: rosterdesk-screenshots WORKSPACE OUTPUT-FOLDER | --list\n");
        return 2;
    }
    // A copy under a fixed name, so the paths the screens show are the same in every picture run.
    std::error_code ec;
    const fs::path copy = fs::temp_directory_path(ec) / "RosterDesk Demo";
    fs::remove_all(copy, ec);
    fs::copy(fs::path(argv[1]), copy, fs::copy_options::recursive, ec);
    if (ec) {
        std::fprintf(stderr, "cannot copy the workspace %s: %s\n", argv[1], ec.message().c_str());
        return 1;
    }
    const QString output = QString::fromLocal8Bit(argv[2]);
    QDir().mkpath(output);
    rd::ScriptedPrompts quiet({}, {});
    rd::Prompts::install(&quiet);
    const bool ok = rd::forEachScreen(copy, [&](QWidget* screen) { return shoot(screen, output); });
    fs::remove_all(copy, ec);
    return ok ? 0 : 1;
}
