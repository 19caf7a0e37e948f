#include "maps/screens/frmArenas.h"
#include "maps/screens/frmEditArena.h"
#include "tests/maps/screens/maps_screen_helpers.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace frmArenas_test {

using namespace rd;
using rd::test::clickRow;
using rd::test::crlf;
using rd::test::doubleClickRow;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;
using rd::test::snapshot;
using rd::test::TempWorkspace;
using rd::test::texts;

void fillWorkspace(const TempWorkspace& ws) {
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {"c:\\quake2\\"});
    ws.writeLines("Game-Paths/Quake2/q2dm1.ra2", {"Upper Deck", "Rail Room"});
    ws.writeLines("Game-Paths/Quake2/Q2DM8.RA2", {"Loading Bay"});
    ws.writeLines("Game-Paths/Quake2/Deathmatch.map", {"[ARENA]", "q2dm1", "The Edge"});
    ws.folder("Game-Paths/Quake2/folder.ra2");
    ws.writeLines("Game-Paths/Tourney/Tourney.Gme", {"c:\\quake2\\"});
    ws.writeLines("Game-Paths/Tourney/ztn.ra2", {"Pit"});
}

void show(QWidget& form) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
}

TEST(ArenaChooser, ShowsTheGamesAndTheMapsWithArenaFiles) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmArenas form(ws.root());
    EXPECT_EQ(form.objectName(), QString("frmArenas"));
    EXPECT_EQ(form.windowTitle(), QString("Arena Editor"));
    EXPECT_EQ(form.lblGame->text(), QString("Choose Game:"));
    EXPECT_EQ(form.lblGame->buddy(), form.cboGame);
    EXPECT_EQ(form.lblMapNames->buddy(), form.lstMapNames);
    EXPECT_FALSE(form.lstMapNames->accessibleName().isEmpty());
    EXPECT_EQ(texts(form.cboGame), (QStringList{"Quake2", "Tourney"}));
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"q2dm1", "Q2DM8"}));
}

TEST(ArenaChooser, ChoosingAGameWithTheArrowKeysRefillsTheMaps) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmArenas form(ws.root());
    show(form);
    form.cboGame->setFocus();
    QTest::keyClick(form.cboGame, Qt::Key_Down);
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"ztn"}));
    QTest::keyClick(form.cboGame, Qt::Key_Home);
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"q2dm1", "Q2DM8"}));
}

TEST(ArenaChooser, WithNoGamesItSaysSoAndClosesItselfOnceShown) {
    TempWorkspace ws;
    PromptRecorder prompts;
    QPointer<frmArenas> form = new frmArenas(ws.root());
    form->setAttribute(Qt::WA_DeleteOnClose);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text,
              QString("No games have yet been created.\r\nMost likely, you have not installed "
                      "Tarnwick properly.Run the main program first before trying this"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(form->tag(), QString("UNLOAD"));
    form->show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.isNull(); }, 2000));
}

TEST(ArenaChooser, NewOpensTheArenaListOfTheMapAndTheMapsAreListedAgainWhenItCloses) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    prompts.answerInput(QString("q2dm3"));
    prompts.answerInput(QString("Top Floor"));
    frmArenas form(ws.root());
    show(form);
    QString opened, caption;
    ModalDriver driver([&](QDialog* dialog) {
        opened = dialog->objectName();
        caption = dialog->windowTitle();
        auto* editor = qobject_cast<frmEditArena*>(dialog);
        ASSERT_NE(editor, nullptr);
        QTest::keyClick(editor->lstArenas, Qt::Key_Insert);
        QTest::mouseClick(editor->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(form.cmdNew, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(prompts.calls()[0].text, QString("Type in the name of the map to add"));
    EXPECT_EQ(prompts.calls()[0].title, QString("Arena Editor"));
    EXPECT_EQ(opened, QString("frmEditArena"));
    EXPECT_EQ(caption, QString("Editing q2dm3 Arenas"));
    EXPECT_EQ(ws.read("Game-Paths/Quake2/q2dm3.ra2"), crlf({"Top Floor"}));
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"q2dm1", "q2dm3", "Q2DM8"}));
}

TEST(ArenaChooser, ANewMapWhoseListIsCancelledLeavesNoFile) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    PromptRecorder prompts;
    prompts.answerInput(QString("q2dm3"));
    frmArenas form(ws.root());
    show(form);
    ModalDriver driver([](QDialog* dialog) {
        QTest::mouseClick(qobject_cast<frmEditArena*>(dialog)->cmdCancel, Qt::LeftButton);
    });
    QTest::mouseClick(form.cmdNew, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(snapshot(ws.root()), before);
}

TEST(ArenaChooser, AMapNameTypedInAnotherCaseIsRefusedAsExisting) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    PromptRecorder prompts;
    prompts.answerInput(QString("q2DM1"));
    frmArenas form(ws.root());
    show(form);
    ModalDriver driver([](QDialog* dialog) { dialog->reject(); }, 300);
    QTest::mouseClick(form.cmdNew, Qt::LeftButton);
    EXPECT_FALSE(driver.acted());
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text, QString("An arena file already exists with that name"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(snapshot(ws.root()), before);
}

TEST(ArenaChooser, NewWithAnEmptyAnswerDoesNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    PromptRecorder prompts;
    prompts.answerInput(QString(""));
    frmArenas form(ws.root());
    show(form);
    ModalDriver driver([](QDialog* dialog) { dialog->reject(); }, 300);
    QTest::mouseClick(form.cmdNew, Qt::LeftButton);
    EXPECT_FALSE(driver.acted());
    EXPECT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(snapshot(ws.root()), before);
}

TEST(ArenaChooser, NamesWithSeparatorsOrDotsAreRefusedBeforeAnythingIsTouched) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    frmArenas form(ws.root());
    show(form);
    for (const QString& name : {QString("x/y"), QString("x\\y"), QString("."), QString("..")}) {
        PromptRecorder prompts;
        prompts.answerInput(name);
        ModalDriver driver([](QDialog* dialog) { dialog->reject(); }, 300);
        QTest::mouseClick(form.cmdNew, Qt::LeftButton);
        EXPECT_FALSE(driver.acted());
        ASSERT_EQ(prompts.calls().size(), 2u) << name.toStdString();
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);

        clickRow(form.lstMapNames, 0);
        prompts.clear();
        prompts.answerInput(name);
        QTest::mouseClick(form.cmdRename, Qt::LeftButton);
        ASSERT_EQ(prompts.calls().size(), 2u) << name.toStdString();
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
        EXPECT_EQ(snapshot(ws.root()), before) << name.toStdString();
    }
}

TEST(ArenaChooser, EditAndDoubleClickOpenTheListOfTheSelectedMap) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmArenas form(ws.root());
    show(form);
    QStringList shown;
    QString caption;
    {
        clickRow(form.lstMapNames, 1);
        ModalDriver driver([&](QDialog* dialog) {
            shown = texts(qobject_cast<frmEditArena*>(dialog)->lstArenas);
            caption = dialog->windowTitle();
            dialog->reject();
        });
        QTest::mouseClick(form.cmdEdit, Qt::LeftButton);
        ASSERT_TRUE(driver.acted());
        EXPECT_EQ(shown, (QStringList{"Loading Bay"}));
        EXPECT_EQ(caption, QString("Editing Q2DM8 Arenas"));
    }
    {
        ModalDriver driver([&](QDialog* dialog) {
            shown = texts(qobject_cast<frmEditArena*>(dialog)->lstArenas);
            dialog->reject();
        });
        doubleClickRow(form.lstMapNames, 0);
        ASSERT_TRUE(driver.acted());
        EXPECT_EQ(shown, (QStringList{"Upper Deck", "Rail Room"}));
    }
}

TEST(ArenaChooser, RenameRenamesTheFileInPlaceAndRefusesAnExistingName) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const std::string bytes = ws.read("Game-Paths/Quake2/q2dm1.ra2");
    PromptRecorder prompts;
    prompts.answerInput(QString("Q2DM8"));
    prompts.answerInput(QString("Q2DM1"));
    prompts.answerInput(QString("edge"));
    frmArenas form(ws.root());
    show(form);
    clickRow(form.lstMapNames, 0);
    QTest::mouseClick(form.cmdRename, Qt::LeftButton); // exists
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.calls()[0].text, QString("Type in a new name"));
    EXPECT_EQ(prompts.calls()[0].title, QString("q2dm1"));
    EXPECT_EQ(prompts.calls()[0].defaultText, QString("q2dm1"));
    EXPECT_EQ(prompts.last().text, QString("An arena file already exists with that name"));
    QTest::mouseClick(form.cmdRename, Qt::LeftButton); // the same name in other case: nothing
    EXPECT_EQ(prompts.calls().size(), 3u);
    EXPECT_TRUE(ws.exists("Game-Paths/Quake2/q2dm1.ra2"));
    QTest::mouseClick(form.cmdRename, Qt::LeftButton);
    EXPECT_FALSE(ws.exists("Game-Paths/Quake2/q2dm1.ra2"));
    EXPECT_EQ(ws.read("Game-Paths/Quake2/edge.ra2"), bytes);
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"edge", "Q2DM8"}));
}

TEST(ArenaChooser, DeleteAsksAndOnlyYesDeletes) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Cancel);
    prompts.answer(PromptAnswer::No);
    prompts.answer(PromptAnswer::Yes);
    frmArenas form(ws.root());
    show(form);
    clickRow(form.lstMapNames, 0);
    QTest::mouseClick(form.cmdDelete, Qt::LeftButton);
    QTest::keyClick(form.lstMapNames, Qt::Key_Delete);
    EXPECT_TRUE(ws.exists("Game-Paths/Quake2/q2dm1.ra2"));
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text, QString("Delete this map's arenas, are you sure?"));
    EXPECT_EQ(prompts.last().title, QString("q2dm1"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNoCancel);
    QTest::mouseClick(form.cmdDelete, Qt::LeftButton);
    EXPECT_FALSE(ws.exists("Game-Paths/Quake2/q2dm1.ra2"));
    EXPECT_TRUE(ws.exists("Game-Paths/Quake2/Deathmatch.map"));
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"Q2DM8"}));
}

TEST(ArenaChooser, SavingAnEmptiedListWritesZeroBytesAndTheMapStaysListed) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    frmArenas form(ws.root());
    show(form);
    clickRow(form.lstMapNames, 1);
    ModalDriver driver([](QDialog* dialog) {
        auto* editor = qobject_cast<frmEditArena*>(dialog);
        clickRow(editor->lstArenas, 0);
        QTest::keyClick(editor->lstArenas, Qt::Key_Delete);
        QTest::mouseClick(editor->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(form.cmdEdit, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Q2DM8.RA2"), std::string());
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"q2dm1", "Q2DM8"}));
}

TEST(ArenaChooser, AltCClosesTheScreen) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmArenas form(ws.root());
    show(form);
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QTest::keyClick(&form, Qt::Key_C, Qt::AltModifier);
    // A mnemonic presses its button as a click does, with the button shown pressed for a moment.
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }, 2000));
}

} // namespace frmArenas_test
