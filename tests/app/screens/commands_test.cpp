// How a user finds the commands of every screen: the lists whose commands live in a popup menu or
// on keys say so in their tooltips, and command buttons leave room around their captions.
#include "app/allscreens/allscreens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMap>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <gtest/gtest.h>

namespace commands_test {

namespace fs = std::filesystem;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

struct DemoCopy {
    TempWorkspace ws;
    fs::path root = ws.path("demo");
    DemoCopy() { fs::copy(ROSTERDESK_DEMO_WORKSPACE, root, fs::copy_options::recursive); }
};

const QString kCommandsTip = QStringLiteral(
    "Right-click for commands. Insert adds, Delete removes, Enter edits, Ctrl+U / Ctrl+D move.");

TEST(ListsWithPopupMenus, EachListNamesItsCommandsInItsTooltip) {
    // The screens and their lists whose commands live in a popup menu and on keys.
    const QMap<QString, QPair<QString, QString>> expected{
        {"frmEditAutoWiz", {"lvCommands", kCommandsTip}},
        {"frmOptions", {"lvOptions", kCommandsTip}},
        {"frmEditList", {"lvList", kCommandsTip}},
        {"frmDMflags", {"lvFlags", kCommandsTip}},
        {"frmEditArena", {"lstArenas", kCommandsTip}},
        {"frmCustomMaps",
         {"lvMaps",
          "Right-click for commands, Get Installed Maps... among them. Insert adds, Delete removes, "
          "Enter edits, Ctrl+U / Ctrl+D move."}},
    };
    DemoCopy demo;
    PromptRecorder prompts;
    QStringList withMenus;
    rd::forEachScreen(demo.root, [&](QWidget* screen) {
        const QString name = screen->objectName();
        // Every screen with a popup menu is one of the screens above.
        const bool hasPopup = screen->findChild<QMenu*>(QStringLiteral("mnuPopup")) != nullptr;
        if (hasPopup)
            withMenus << name;
        if (expected.contains(name)) {
            auto* list = screen->findChild<QAbstractItemView*>(expected[name].first);
            EXPECT_NE(list, nullptr) << name.toStdString();
            if (list) {
                EXPECT_EQ(list->toolTip(), expected[name].second) << name.toStdString();
            }
        }
        return true;
    });
    withMenus.sort();
    QStringList named = expected.keys();
    named.sort();
    EXPECT_EQ(withMenus, named) << "a screen with a popup menu has no tooltip that names its commands";
}

// The buttons whose long captions used to touch their edges.
TEST(CommandButtons, LongCaptionsHaveRoomOnEitherSide) {
    const QMap<QString, QStringList> buttons{
        {"frmMain", {"cmdGame", "cmdEditOptions", "cmdCustomMaps"}},
        {"frmEditing", {"cmdOptions", "cmdDMflag"}},
        {"frmEditCustomMap", {"cmdGetMapName"}},
        {"frmAddMaps", {"cmdAdd"}},
    };
    DemoCopy demo;
    PromptRecorder prompts;
    int seen = 0;
    rd::forEachScreen(demo.root, [&](QWidget* screen) {
        if (!buttons.contains(screen->objectName()))
            return true;
        screen->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(screen));
        for (const QString& name : buttons[screen->objectName()]) {
            auto* button = screen->findChild<QPushButton*>(name);
            EXPECT_NE(button, nullptr) << name.toStdString();
            if (!button)
                continue;
            const QFontMetrics metrics = button->fontMetrics();
            const int caption = metrics.size(Qt::TextShowMnemonic, button->text()).width();
            // At least a line's height of room beside the caption on either side.
            EXPECT_GE(button->width() - caption, 2 * metrics.height())
                << screen->objectName().toStdString() << ": " << name.toStdString() << " \""
                << button->text().toStdString() << "\"";
            ++seen;
        }
        screen->hide();
        return true;
    });
    EXPECT_EQ(seen, 7);
}

} // namespace commands_test
