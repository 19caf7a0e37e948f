// The main window's way to the games: "Edit &Game Paths" opens the games list.

#include "games/screens/frmGame.h"
#include "profiles/screens/frmMain.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/workspace_data.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace mainwindow_games_test {

using namespace rd;
using rd::test::ModalDriver;
using rd::test::TempWorkspace;

TEST(MainWindowGames, EditGamePathsOpensTheGamesList) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    ws.folder("Game-Paths/LanParty");
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    ASSERT_TRUE(form.cmdGame->isEnabled());
    QString caption;
    QStringList games;
    ModalDriver driver([&](QDialog* dialog) {
        auto* list = qobject_cast<frmGame*>(dialog);
        ASSERT_NE(list, nullptr);
        caption = list->windowTitle();
        for (int i = 0; i < list->lstGames->count(); ++i)
            games << list->lstGames->item(i)->text();
        QTest::mouseClick(list->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(form.cmdGame, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(caption, QString("Game Path Editor"));
    EXPECT_EQ(games, (QStringList{"LanParty", "Quake2"}));
    EXPECT_TRUE(form.isVisible());
}

TEST(MainWindowGames, AltGOpensTheGamesListFromTheKeyboard) {
    TempWorkspace ws;
    frmMain form(ws.root());
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    ModalDriver driver([](QDialog* dialog) { dialog->done(QDialog::Accepted); });
    QTest::keyClick(&form, Qt::Key_G, Qt::AltModifier);
    // A button's key presses it the way a click does, a moment later.
    EXPECT_TRUE(QTest::qWaitFor([&] { return driver.acted(); }, 3000));
}

} // namespace mainwindow_games_test
