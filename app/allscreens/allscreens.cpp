#include "app/allscreens/allscreens.h"

#include "core/screens/frmZoom.h"
#include "core/screens/help.h"
#include "core/screens/qtext.h"
#include "core/winepaths.h"
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
#include "dialogs/frmLauncherFolder.h"
#include "dialogs/frmPickFromLV.h"
#include "dialogs/frmRDabout.h"
#include "games/gamerecord.h"
#include "games/screens/desktop.h"
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

#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>
#include <memory>

namespace rd {

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

} // namespace

QStringList allScreenNames() {
    return {"frmMain",          "frmAddBot",        "frmEditPlugInSetup", "frmEditAutoWiz",
            "frmEditWiz",       "frmGame",          "frmEditGame",        "frmGameTemplate",
            "frmEditing",       "frmOptions",       "frmEditOption",      "frmNumberRange",
            "frmChooseList",    "frmEditList",      "frmEditItem",        "frmPickFromLV",
            "frmDMflags",       "frmEditDMflag",    "frmCustomMapEditor", "frmCustomMaps",
            "frmEditCustomMap", "frmAddMaps",       "frmArenas",          "frmEditArena",
            "frmSex",           "frmFindFolder",    "frmRDabout",         "frmZoom",
            "frmHelp",          "frmLauncherFolder"};
}

bool forEachScreen(const std::filesystem::path& root, const std::function<bool(QWidget*)>& visit) {
    const auto game = [&root](const char* relative) { return root / "Game-Paths" / "Quake2" / relative; };

    rd::frmMain main(root);
    selectEntry(main.lstRecognisedBots, QStringLiteral("Eraser"));
    if (!visit(&main))
        return false;
    if (!visit(std::make_unique<rd::frmAddBot>(root, main.lstRecognisedBots, &main).get()))
        return false;

    if (!visit(std::make_unique<rd::frmEditPlugInSetup>(root, "Eraser").get()))
        return false;
    rd::frmEditAutoWiz wizard(root, "Eraser");
    if (!visit(&wizard))
        return false;
    selectRow(wizard.lvCommands, [](auto*) { return true; });
    if (!visit(std::make_unique<rd::frmEditWiz>(wizard.lvCommands, 1, &wizard).get()))
        return false;

    if (!visit(std::make_unique<rd::frmGame>(root).get()))
        return false;
    if (!visit(std::make_unique<rd::frmEditGame>(root, "Quake2").get()))
        return false;
    if (!visit(std::make_unique<rd::frmGameTemplate>(root, "Quake2").get()))
        return false;

    if (!visit(std::make_unique<rd::frmEditing>(root).get()))
        return false;
    rd::frmOptions options(game("Options.cfg"), "Quake2", root);
    if (!visit(&options))
        return false;
    const int number = selectRow(options.lvOptions, [](QTreeWidgetItem* row) { return row->text(4) == "3"; });
    if (!visit(std::make_unique<rd::frmEditOption>(options.lvOptions, false, number, "Quake2", root, &options)
                   .get()))
        return false;
    QLineEdit parameter(QStringLiteral("1:16"));
    if (!visit(std::make_unique<rd::frmNumberRange>(&parameter, &options).get()))
        return false;
    QLineEdit listName(QStringLiteral("skill.val"));
    if (!visit(std::make_unique<rd::frmChooseList>(root, "Quake2", true, &listName, &options).get()))
        return false;
    rd::frmEditList list(root / "Game-Paths" / "Quake2", "skill.val", true);
    if (!visit(&list))
        return false;
    selectRow(list.lvList, [](auto*) { return true; });
    if (!visit(std::make_unique<rd::frmEditItem>(list.lvList, false, 1, true, &list).get()))
        return false;
    QLineEdit checked;
    if (!visit(std::make_unique<rd::frmPickFromLV>(options.lvOptions, &checked, 1,
                                                   QStringLiteral("Choose Category to Enable"), &options)
                   .get()))
        return false;
    rd::frmDMflags flags(game("DMflags.cfg"));
    if (!visit(&flags))
        return false;
    const int flag = selectRow(flags.lvFlags, [](QTreeWidgetItem* row) { return !row->text(1).isEmpty(); });
    if (!visit(std::make_unique<rd::frmEditDMflag>(flags.lvFlags, false, flag, &flags).get()))
        return false;

    if (!visit(std::make_unique<rd::frmCustomMapEditor>(root).get()))
        return false;
    rd::frmCustomMaps category(root, "Quake2", "Deathmatch", game("Deathmatch.map"));
    if (!visit(&category))
        return false;
    selectRow(category.lvMaps, [](auto*) { return true; });
    if (!visit(std::make_unique<rd::frmEditCustomMap>(category.lvMaps, QStringLiteral("Deathmatch"), false,
                                                      root, "Quake2")
                   .get()))
        return false;
    // The add-map screen with a map selected, so its card shows.
    auto addMaps = std::make_unique<rd::frmAddMaps>(root, "Quake2", false, nullptr, category.lvMaps);
    selectRow(addMaps->lvMaps, [](QTreeWidgetItem* row) { return row->text(0) == QStringLiteral("q2dm1"); });
    if (!visit(addMaps.get()))
        return false;
    if (!visit(std::make_unique<rd::frmArenas>(root).get()))
        return false;
    if (!visit(std::make_unique<rd::frmEditArena>(game("q2dm1.ra2"), "q2dm1").get()))
        return false;
    if (!visit(std::make_unique<rd::frmSex>(root).get()))
        return false;

    // The folder picker as the game editor opens it: at the game's program folder.
    StepRunner quiet([](const std::string&) { return TrapChoice::Ignore; });
    const std::optional<GamePathRecord> record = LoadGameRecord(root, "Quake2", quiet);
    const WinePrefix wine = findWinePrefix(root);
    const QString start = record ? platformPath(fromBytes(record->txtLocationOfExe), wine)
                                 : QString::fromStdString(root.string());
    if (!visit(std::make_unique<rd::frmFindFolder>(start, nullptr, wine).get()))
        return false;
    if (!visit(std::make_unique<rd::frmRDabout>().get()))
        return false;
    if (!visit(std::make_unique<rd::frmZoom>(QStringLiteral("+set deathmatch 1 +set fraglimit 25"), false)
                   .get()))
        return false;
    auto help = std::make_unique<rd::frmHelp>();
    help->showPage(rd::kHelpIndexPage);
    if (!visit(help.get()))
        return false;
    // The first-start window of an installed program, offering the workspace as a launcher folder
    // found.
    return visit(std::make_unique<rd::frmLauncherFolder>(std::vector<std::filesystem::path>{root}).get());
}

} // namespace rd
