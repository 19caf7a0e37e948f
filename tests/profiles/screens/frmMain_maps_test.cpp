// The main window's buttons that open the map category chooser, the arena chooser and the model
// gender editor.
#include "profiles/screens/frmMain.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace frmMain_maps_test {

using namespace rd;
using rd::test::ModalDriver;
using rd::test::TempWorkspace;

struct Opened {
    QString name;
    QString caption;
    int games = -1;
};

// Clicks `button` of the main window and notes the modal screen it opens, which is then closed.
Opened openFrom(const TempWorkspace& ws, QPushButton* frmMain::*button) {
    frmMain form(ws.root());
    form.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&form));
    Opened opened;
    EXPECT_TRUE((form.*button)->isEnabled());
    ModalDriver driver([&](QDialog* dialog) {
        opened.name = dialog->objectName();
        opened.caption = dialog->windowTitle();
        if (auto* games = dialog->findChild<QComboBox*>("cboGame"))
            opened.games = games->count();
        dialog->reject();
    });
    QTest::mouseClick(form.*button, Qt::LeftButton);
    EXPECT_TRUE(driver.acted());
    EXPECT_TRUE(form.isVisible());
    return opened;
}

void fillWorkspace(const TempWorkspace& ws) {
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {"c:\\quake2\\", "", "", "", ws.path("players").string()});
    ws.folder("players/male");
}

TEST(MainWindowMaps, CustomMapListsOpensTheMapCategoryChooser) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const Opened opened = openFrom(ws, &frmMain::cmdCustomMaps);
    EXPECT_EQ(opened.name, QString("frmCustomMapEditor"));
    EXPECT_EQ(opened.caption, QString("Custom Map Editor"));
    EXPECT_EQ(opened.games, 1);
}

TEST(MainWindowMaps, EditArenasOpensTheArenaChooser) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const Opened opened = openFrom(ws, &frmMain::cmdEditArena);
    EXPECT_EQ(opened.name, QString("frmArenas"));
    EXPECT_EQ(opened.caption, QString("Arena Editor"));
    EXPECT_EQ(opened.games, 1);
}

TEST(MainWindowMaps, SexEditorOpensTheModelGenderEditor) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const Opened opened = openFrom(ws, &frmMain::cmdLadies);
    EXPECT_EQ(opened.name, QString("frmSex"));
    EXPECT_EQ(opened.caption, QString("Quake2 Sex Editor"));
    EXPECT_EQ(opened.games, 1);
}

TEST(MainWindowMaps, TheButtonsWorkFromTheKeyboard) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QString opened;
    ModalDriver driver([&](QDialog* dialog) {
        opened = dialog->objectName();
        dialog->reject();
    });
    QTest::keyClick(&form, Qt::Key_N, Qt::AltModifier); // Edit Are&nas
    // A mnemonic presses its button after showing it pressed for a moment.
    EXPECT_TRUE(QTest::qWaitFor([&] { return driver.acted(); }, 3000));
    EXPECT_EQ(opened, QString("frmArenas"));
}

} // namespace frmMain_maps_test
