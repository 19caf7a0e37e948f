// rosterdesk-screenshots: renders every screen of the program on a workspace into PNG pictures,
// one per screen, named for the screen (frmMain.png, frmEditGame.png, ...). The user guide and
// the README show them; scripts/screenshots makes them from the demo workspace.
//
//   rosterdesk-screenshots WORKSPACE OUTPUT-FOLDER   render every screen
//   rosterdesk-screenshots --list                    print the screens' names, one a line
//
// The screens open on a copy of the workspace, so nothing in it can change. Message and input
// boxes a screen raises while it opens are answered with their escape buttons.

#include "core/screens/frmZoom.h"
#include "core/screens/help.h"
#include "core/screens/scriptedprompts.h"
#include "definitions/screens/frmChooseList.h"
#include "definitions/screens/frmDMflags.h"
#include "definitions/screens/frmEditDMflag.h"
#include "definitions/screens/frmEditItem.h"
#include "definitions/screens/frmEditList.h"
#include "definitions/screens/frmEditOption.h"
#include "definitions/screens/frmEditing.h"
#include "definitions/screens/frmNumberRange.h"
#include "definitions/screens/frmOptions.h"
#include "dialogs/frmFindFolder.h"
#include "dialogs/frmPickFromLV.h"
#include "dialogs/frmRDabout.h"
#include "games/screens/frmEditGame.h"
#include "games/screens/frmGame.h"
#include "games/screens/frmGameTemplate.h"
#include "maps/screens/frmAddMaps.h"
#include "maps/screens/frmArenas.h"
#include "maps/screens/frmCustomMapEditor.h"
#include "maps/screens/frmCustomMaps.h"
#include "maps/screens/frmEditArena.h"
#include "maps/screens/frmEditCustomMap.h"
#include "models/screens/frmSex.h"
#include "plugins/screens/frmEditAutoWiz.h"
#include "plugins/screens/frmEditPlugInSetup.h"
#include "plugins/screens/frmEditWiz.h"
#include "profiles/screens/frmAddBot.h"
#include "profiles/screens/frmMain.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

// Selects the first top-level row of a list view that `wanted` accepts; returns its 1-based
// position (0 when none does).
int selectRow(QTreeWidget* list, const std::function<bool(QTreeWidgetItem*)>& wanted) {
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        if (wanted(list->topLevelItem(i))) {
            list->setCurrentItem(list->topLevelItem(i));
            return i + 1;
        }
    }
    return 0;
}

void selectEntry(QListWidget* list, const QString& text) {
    const auto found = list->findItems(text, Qt::MatchFixedString);
    if (!found.isEmpty())
        list->setCurrentItem(found.first());
}

class Renderer {
public:
    Renderer(fs::path root, QString output) : root_(std::move(root)), output_(std::move(output)) {}

    // Shows the screen, lets it settle, saves its picture and closes it.
    bool shoot(QWidget* screen) {
        const QString name = screen->objectName();
        screen->show();
        settle();
        const bool saved = screen->grab().save(QDir(output_).filePath(name + QStringLiteral(".png")));
        std::printf("%s %s\n", saved ? "saved" : "FAILED", name.toUtf8().constData());
        screen->hide();
        return saved;
    }

    bool all() {
        bool ok = true;
        const auto game = [this](const char* relative) { return root_ / "Game-Paths" / "Quake2" / relative; };

        rd::frmMain main(root_);
        selectEntry(main.lstRecognisedBots, QStringLiteral("Eraser"));
        ok &= shoot(&main);
        ok &= shoot(std::make_unique<rd::frmAddBot>(root_, main.lstRecognisedBots, &main).get());

        ok &= shoot(std::make_unique<rd::frmEditPlugInSetup>(root_, "Eraser").get());
        rd::frmEditAutoWiz wizard(root_, "Eraser");
        ok &= shoot(&wizard);
        selectRow(wizard.lvCommands, [](auto*) { return true; });
        ok &= shoot(std::make_unique<rd::frmEditWiz>(wizard.lvCommands, 1, &wizard).get());

        ok &= shoot(std::make_unique<rd::frmGame>(root_).get());
        ok &= shoot(std::make_unique<rd::frmEditGame>(root_, "Quake2").get());
        ok &= shoot(std::make_unique<rd::frmGameTemplate>(root_, "Quake2").get());

        ok &= shoot(std::make_unique<rd::frmEditing>(root_).get());
        rd::frmOptions options(game("Options.cfg"), "Quake2", root_);
        ok &= shoot(&options);
        const int number =
            selectRow(options.lvOptions, [](QTreeWidgetItem* row) { return row->text(4) == "3"; });
        ok &= shoot(
            std::make_unique<rd::frmEditOption>(options.lvOptions, false, number, "Quake2", root_, &options)
                .get());
        QLineEdit parameter(QStringLiteral("1:16"));
        ok &= shoot(std::make_unique<rd::frmNumberRange>(&parameter, &options).get());
        QLineEdit listName(QStringLiteral("skill.val"));
        ok &= shoot(std::make_unique<rd::frmChooseList>(root_, "Quake2", true, &listName, &options).get());
        rd::frmEditList list(root_ / "Game-Paths" / "Quake2", "skill.val", true);
        ok &= shoot(&list);
        selectRow(list.lvList, [](auto*) { return true; });
        ok &= shoot(std::make_unique<rd::frmEditItem>(list.lvList, false, 1, true, &list).get());
        QLineEdit checked;
        ok &= shoot(std::make_unique<rd::frmPickFromLV>(options.lvOptions, &checked, 1,
                                                        QStringLiteral("Choose Category to Enable"), &options)
                        .get());
        rd::frmDMflags flags(game("DMflags.cfg"));
        ok &= shoot(&flags);
        const int flag =
            selectRow(flags.lvFlags, [](QTreeWidgetItem* row) { return !row->text(1).isEmpty(); });
        ok &= shoot(std::make_unique<rd::frmEditDMflag>(flags.lvFlags, false, flag, &flags).get());

        ok &= shoot(std::make_unique<rd::frmCustomMapEditor>(root_).get());
        rd::frmCustomMaps category(root_, "Quake2", "Deathmatch", game("Deathmatch.map"));
        ok &= shoot(&category);
        selectRow(category.lvMaps, [](auto*) { return true; });
        ok &= shoot(std::make_unique<rd::frmEditCustomMap>(category.lvMaps, QStringLiteral("Deathmatch"),
                                                           false, root_, "Quake2")
                        .get());
        ok &= shoot(std::make_unique<rd::frmAddMaps>(root_, "Quake2", false, nullptr, category.lvMaps).get());
        ok &= shoot(std::make_unique<rd::frmArenas>(root_).get());
        ok &= shoot(std::make_unique<rd::frmEditArena>(game("q2dm1.ra2"), "q2dm1").get());
        ok &= shoot(std::make_unique<rd::frmSex>(root_).get());

        ok &= shoot(std::make_unique<rd::frmFindFolder>(QString::fromStdString(root_.string())).get());
        ok &= shoot(std::make_unique<rd::frmRDabout>().get());
        ok &=
            shoot(std::make_unique<rd::frmZoom>(QStringLiteral("+set deathmatch 1 +set fraglimit 25"), false)
                      .get());
        auto help = std::make_unique<rd::frmHelp>();
        help->showPage(rd::kHelpIndexPage);
        ok &= shoot(help.get());
        return ok;
    }

private:
    static void settle() {
        // Long enough for layouts, icons and the about box's opening animation.
        for (int i = 0; i < 40; ++i) {
            QApplication::processEvents();
            QTimer timer;
            timer.setSingleShot(true);
            QEventLoop loop;
            QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
            timer.start(10);
            loop.exec();
        }
    }

    fs::path root_;
    QString output_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc == 2 && std::string(argv[1]) == "--list") {
        for (const char* name : {"frmMain",          "frmAddBot",     "frmEditPlugInSetup", "frmEditAutoWiz",
                                 "frmEditWiz",       "frmGame",       "frmEditGame",        "frmGameTemplate",
                                 "frmEditing",       "frmOptions",    "frmEditOption",      "frmNumberRange",
                                 "frmChooseList",    "frmEditList",   "frmEditItem",        "frmPickFromLV",
                                 "frmDMflags",       "frmEditDMflag", "frmCustomMapEditor", "frmCustomMaps",
                                 "frmEditCustomMap", "frmAddMaps",    "frmArenas",          "frmEditArena",
                                 "frmSex",           "frmFindFolder", "frmRDabout",         "frmZoom",
                                 "frmHelp"})
            std::printf("%s\n", name);
        return 0;
    }
    if (argc != 3) {
        std::fprintf(stderr, "usage: rosterdesk-screenshots WORKSPACE OUTPUT-FOLDER | --list\n");
        return 2;
    }
    QTemporaryDir scratch;
    const fs::path copy = fs::path(scratch.path().toStdString()) / "workspace";
    std::error_code ec;
    fs::copy(fs::path(argv[1]), copy, fs::copy_options::recursive, ec);
    if (ec || !scratch.isValid()) {
        std::fprintf(stderr, "cannot copy the workspace %s: %s\n", argv[1], ec.message().c_str());
        return 1;
    }
    QDir().mkpath(QString::fromLocal8Bit(argv[2]));
    rd::ScriptedPrompts quiet({}, {});
    rd::Prompts::install(&quiet);
    return Renderer(copy, QString::fromLocal8Bit(argv[2])).all() ? 0 : 1;
}
