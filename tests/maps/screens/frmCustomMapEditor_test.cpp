#include "maps/screens/frmCustomMapEditor.h"
#include "maps/screens/frmCustomMaps.h"
#include "tests/maps/screens/maps_screen_helpers.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace frmCustomMapEditor_test {

using namespace rd;
using rd::test::clickRow;
using rd::test::crlf;
using rd::test::doubleClickRow;
using rd::test::ModalDriver;
using rd::test::PromptCall;
using rd::test::PromptRecorder;
using rd::test::snapshot;
using rd::test::TempWorkspace;
using rd::test::texts;

const QString kNoGamesMessage =
    "No games have yet been created.\r\nMost likely, you have not installed Tarnwick "
    "properly.Run the main program first before trying this";

// Two games: LanParty (listed first) with two categories in both layouts and things that are not
// categories, Quake2 with one.
void fillWorkspace(const TempWorkspace& ws) {
    ws.writeLines("Game-Paths/LanParty/LanParty.Gme", {"c:\\quake2\\", "c:\\quake2\\baseq2\\maps\\"});
    ws.writeLines("Game-Paths/LanParty/Lan.map", {"[V2]", "q2dm1", "The Edge"});
    ws.writeLines("Game-Paths/LanParty/DM.MAP", {"q2dm2", "q2dm3"});
    ws.folder("Game-Paths/LanParty/Folder.map");
    ws.writeLines("Game-Paths/LanParty/notes.txt", {"x"});
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {"c:\\quake2\\", "c:\\quake2\\baseq2\\maps\\"});
    ws.writeLines("Game-Paths/Quake2/Deathmatch.map", {"[ARENA]", "q2dm8", "Warehouse"});
}

void show(QWidget& form) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
}

TEST(CategoryChooser, ShowsTheGamesAndTheCategoriesOfTheFirstWithoutTheirExtension) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmCustomMapEditor form(ws.root());
    EXPECT_EQ(form.objectName(), QString("frmCustomMapEditor"));
    EXPECT_EQ(form.windowTitle(), QString("Custom Map Editor"));
    EXPECT_EQ(texts(form.cboGame), (QStringList{"LanParty", "Quake2"}));
    EXPECT_EQ(form.cboGame->currentIndex(), 0);
    // DM.MAP is a category named DM; a folder and other files are not categories.
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"DM", "Lan"}));
    EXPECT_TRUE(form.tag().isEmpty());
}

TEST(CategoryChooser, ChoosingAGameWithTheArrowKeysRefillsTheCategories) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmCustomMapEditor form(ws.root());
    show(form);
    form.cboGame->setFocus();
    QTest::keyClick(form.cboGame, Qt::Key_Down);
    EXPECT_EQ(form.cboGame->currentText(), QString("Quake2"));
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"Deathmatch"}));
    QTest::keyClick(form.cboGame, Qt::Key_Up);
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"DM", "Lan"}));
}

TEST(CategoryChooser, ChoosingTheSameGameAgainReadsItsCategoriesFromDiskAgain) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmCustomMapEditor form(ws.root());
    show(form);
    ws.writeLines("Game-Paths/LanParty/Added.map", {"[V2]"});
    form.cboGame->setFocus();
    QTest::keyClick(form.cboGame, Qt::Key_Down);
    QTest::keyClick(form.cboGame, Qt::Key_Up);
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"Added", "DM", "Lan"}));
}

TEST(CategoryChooser, WithNoGamesItSaysSoAndClosesItselfOnceShown) {
    TempWorkspace ws;
    ws.folder("Game-Paths");
    ws.write("Game-Paths/Stray.Gme", "x");
    PromptRecorder prompts;
    QPointer<frmCustomMapEditor> form = new frmCustomMapEditor(ws.root());
    form->setAttribute(Qt::WA_DeleteOnClose);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, kNoGamesMessage);
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().title, QString("Roster Desk"));
    EXPECT_EQ(form->tag(), QString("UNLOAD"));
    form->show();
    // Closed as soon as it is shown; as the first screen it is the last window, so the program ends.
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.isNull(); }, 2000));
}

TEST(CategoryChooser, NewAsksForTheNameAndOpensTheEditorOnTheNewCategory) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    prompts.answerInput(QString("Deathmatch"));
    frmCustomMapEditor form(ws.root());
    show(form);
    QString opened, caption;
    int rowsShown = -1;
    ModalDriver driver([&](QDialog* dialog) {
        opened = dialog->objectName();
        caption = dialog->windowTitle();
        auto* editor = qobject_cast<frmCustomMaps*>(dialog);
        ASSERT_NE(editor, nullptr);
        rowsShown = editor->lvMaps->topLevelItemCount();
        QTest::mouseClick(editor->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(form.cmdNew, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    ASSERT_GE(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.calls()[0].kind, PromptCall::Kind::Input);
    EXPECT_EQ(prompts.calls()[0].text, QString("Type in the name of the map category to add"));
    EXPECT_EQ(prompts.calls()[0].title, QString("Arena Editor"));
    EXPECT_EQ(opened, QString("frmCustomMaps"));
    EXPECT_TRUE(caption.contains("Deathmatch"));
    EXPECT_EQ(rowsShown, 0);
    // Saved with the extension in lower case; the list is filled again when the editor closes.
    EXPECT_EQ(ws.read("Game-Paths/LanParty/Deathmatch.map"), crlf({"[V2]"}));
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"Deathmatch", "DM", "Lan"}));
}

TEST(CategoryChooser, ANewCategoryThatIsNeverSavedLeavesNoFileBehind) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    PromptRecorder prompts;
    prompts.answerInput(QString("Unsaved"));
    frmCustomMapEditor form(ws.root());
    show(form);
    ModalDriver driver([&](QDialog* dialog) {
        auto* editor = qobject_cast<frmCustomMaps*>(dialog);
        ASSERT_NE(editor, nullptr);
        QTest::mouseClick(editor->chkArena, Qt::LeftButton, {}, QPoint(6, editor->chkArena->height() / 2));
        QTest::mouseClick(editor->cmdCancel, Qt::LeftButton);
    });
    QTest::mouseClick(form.cmdNew, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(snapshot(ws.root()), before);
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"DM", "Lan"}));
}

TEST(CategoryChooser, NewWithTheNameOfACategoryInOtherCaseSaysItExists) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    PromptRecorder prompts;
    prompts.answerInput(QString("lan"));
    frmCustomMapEditor form(ws.root());
    show(form);
    ModalDriver driver([](QDialog* dialog) { dialog->reject(); }, 500);
    QTest::mouseClick(form.cmdNew, Qt::LeftButton);
    EXPECT_FALSE(driver.acted());
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text, QString("A map category already exists with that name"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().title, QString("Arena Editor"));
    EXPECT_EQ(snapshot(ws.root()), before);
}

TEST(CategoryChooser, NewWithAnEmptyAnswerOrCancelDoesNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    PromptRecorder prompts;
    prompts.answerInput(QString(""));
    prompts.answerInput(std::nullopt);
    frmCustomMapEditor form(ws.root());
    show(form);
    ModalDriver driver([](QDialog* dialog) { dialog->reject(); }, 500);
    QTest::mouseClick(form.cmdNew, Qt::LeftButton);
    QTest::mouseClick(form.cmdNew, Qt::LeftButton);
    EXPECT_FALSE(driver.acted());
    EXPECT_EQ(prompts.calls().size(), 2u); // the two input boxes and nothing else
    EXPECT_EQ(snapshot(ws.root()), before);
}

TEST(CategoryChooser, NamesWithSeparatorsOrDotsAreRefusedBeforeAnythingIsTouched) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    frmCustomMapEditor form(ws.root());
    show(form);
    for (const QString& name :
         {QString("a/b"), QString("a\\b"), QString("."), QString(".."), QString("../Lan")}) {
        PromptRecorder prompts;
        prompts.answerInput(name);
        ModalDriver driver([](QDialog* dialog) { dialog->reject(); }, 300);
        QTest::mouseClick(form.cmdNew, Qt::LeftButton);
        EXPECT_FALSE(driver.acted()) << name.toStdString();
        ASSERT_EQ(prompts.calls().size(), 2u) << name.toStdString();
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
        EXPECT_FALSE(prompts.last().text.isEmpty());

        clickRow(form.lstMapNames, 1);
        prompts.clear();
        prompts.answerInput(name);
        QTest::mouseClick(form.cmdRename, Qt::LeftButton);
        ASSERT_EQ(prompts.calls().size(), 2u) << name.toStdString();
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
        EXPECT_EQ(snapshot(ws.root()), before) << name.toStdString();
        EXPECT_EQ(texts(form.lstMapNames), (QStringList{"DM", "Lan"}));
    }
}

TEST(CategoryChooser, EditOpensTheEditorOnTheSelectedCategory) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmCustomMapEditor form(ws.root());
    show(form);
    clickRow(form.lstMapNames, 1);
    QStringList shown;
    ModalDriver driver([&](QDialog* dialog) {
        auto* editor = qobject_cast<frmCustomMaps*>(dialog);
        ASSERT_NE(editor, nullptr);
        shown = rd::test::rows(editor->lvMaps);
        dialog->reject();
    });
    QTest::mouseClick(form.cmdEdit, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(shown, (QStringList{"q2dm1|The Edge"}));
}

TEST(CategoryChooser, DoubleClickAndEnterOnACategoryEditIt) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmCustomMapEditor form(ws.root());
    show(form);
    QStringList shown;
    {
        ModalDriver driver([&](QDialog* dialog) {
            shown = rd::test::rows(qobject_cast<frmCustomMaps*>(dialog)->lvMaps);
            dialog->reject();
        });
        doubleClickRow(form.lstMapNames, 0);
        ASSERT_TRUE(driver.acted());
        // The old layout: each map's title is its name.
        EXPECT_EQ(shown, (QStringList{"q2dm2|q2dm2", "q2dm3|q2dm3"}));
    }
    {
        clickRow(form.lstMapNames, 1);
        ModalDriver driver([&](QDialog* dialog) {
            shown = rd::test::rows(qobject_cast<frmCustomMaps*>(dialog)->lvMaps);
            dialog->reject();
        });
        QTest::keyClick(form.lstMapNames, Qt::Key_Return);
        ASSERT_TRUE(driver.acted());
        EXPECT_EQ(shown, (QStringList{"q2dm1|The Edge"}));
    }
}

TEST(CategoryChooser, EditRenameAndDeleteWithNothingSelectedDoNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    PromptRecorder prompts;
    frmCustomMapEditor form(ws.root());
    show(form);
    ASSERT_EQ(rd::test::selectedRow(form.lstMapNames), -1);
    ModalDriver driver([](QDialog* dialog) { dialog->reject(); }, 300);
    QTest::mouseClick(form.cmdEdit, Qt::LeftButton);
    QTest::mouseClick(form.cmdRename, Qt::LeftButton);
    QTest::mouseClick(form.cmdDelete, Qt::LeftButton);
    EXPECT_FALSE(driver.acted());
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(snapshot(ws.root()), before);
}

TEST(CategoryChooser, RenameRenamesTheFileAndReplacesTheEntryInPlace) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const std::string bytes = ws.read("Game-Paths/LanParty/DM.MAP");
    PromptRecorder prompts;
    prompts.answerInput(QString("Duel"));
    frmCustomMapEditor form(ws.root());
    show(form);
    clickRow(form.lstMapNames, 0);
    QTest::mouseClick(form.cmdRename, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Type in a new name"));
    EXPECT_EQ(prompts.last().title, QString("DM"));
    EXPECT_EQ(prompts.last().defaultText, QString("DM"));
    EXPECT_FALSE(ws.exists("Game-Paths/LanParty/DM.MAP"));
    EXPECT_EQ(ws.read("Game-Paths/LanParty/Duel.map"), bytes);
    // Replaced where it was, not sorted again.
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"Duel", "Lan"}));
}

TEST(CategoryChooser, RenamingDmToDMDoesNothing) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/dm.map", {"[V2]"});
    const auto before = snapshot(ws.root());
    PromptRecorder prompts;
    prompts.answerInput(QString("DM"));
    prompts.answerInput(QString(""));
    frmCustomMapEditor form(ws.root());
    show(form);
    clickRow(form.lstMapNames, 0);
    QTest::mouseClick(form.cmdRename, Qt::LeftButton);
    QTest::mouseClick(form.cmdRename, Qt::LeftButton);
    EXPECT_EQ(prompts.calls().size(), 2u); // the input boxes only
    EXPECT_EQ(snapshot(ws.root()), before);
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"dm"}));
}

TEST(CategoryChooser, RenameToAnExistingCategorySaysItExists) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws.root());
    PromptRecorder prompts;
    prompts.answerInput(QString("LAN"));
    frmCustomMapEditor form(ws.root());
    show(form);
    clickRow(form.lstMapNames, 0);
    QTest::mouseClick(form.cmdRename, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text, QString("A map category already exists with that name"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(snapshot(ws.root()), before);
}

TEST(CategoryChooser, DeleteAsksAndOnlyYesDeletes) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::No);
    prompts.answer(PromptAnswer::Cancel);
    prompts.answer(PromptAnswer::Yes);
    frmCustomMapEditor form(ws.root());
    show(form);
    clickRow(form.lstMapNames, 1);
    QTest::mouseClick(form.cmdDelete, Qt::LeftButton);
    QTest::mouseClick(form.cmdDelete, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text, QString("Delete this map category, are you sure?"));
    EXPECT_EQ(prompts.last().title, QString("Lan"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNoCancel);
    EXPECT_TRUE(ws.exists("Game-Paths/LanParty/Lan.map"));
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"DM", "Lan"}));

    QTest::mouseClick(form.cmdDelete, Qt::LeftButton);
    EXPECT_FALSE(ws.exists("Game-Paths/LanParty/Lan.map"));
    EXPECT_TRUE(ws.exists("Game-Paths/LanParty/DM.MAP"));
    EXPECT_EQ(texts(form.lstMapNames), (QStringList{"DM"}));
}

TEST(CategoryChooser, CloseClosesTheScreen) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmCustomMapEditor form(ws.root());
    show(form);
    QTest::mouseClick(form.cmdClose, Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
}

TEST(CategoryChooser, LabelsNameTheirControlsAndTheButtonsCarryTheirCaptions) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmCustomMapEditor form(ws.root());
    EXPECT_EQ(form.lblGame->buddy(), form.cboGame);
    EXPECT_EQ(form.lblMapNames->buddy(), form.lstMapNames);
    EXPECT_FALSE(form.lstMapNames->accessibleName().isEmpty());
    EXPECT_EQ(form.cmdNew->text(), QString("&New"));
    EXPECT_EQ(form.cmdRename->text(), QString("&Rename"));
    EXPECT_EQ(form.cmdDelete->text(), QString("&Delete"));
    EXPECT_EQ(form.cmdEdit->text(), QString("&Edit"));
    EXPECT_EQ(form.cmdClose->text(), QString("&Close"));
}

} // namespace frmCustomMapEditor_test
