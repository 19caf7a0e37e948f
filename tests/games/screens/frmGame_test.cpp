// The games list on screen: listing, adding, editing and deleting games, and its layout.

#include "core/screens/help.h"
#include "games/screens/frmEditGame.h"
#include "games/screens/frmGame.h"
#include "tests/games/screens/games_screens_support.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace frmGame_test {

using namespace rd;
using rd::test::crlf;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

const std::vector<std::string> kCreationLines{"c:\\quake2\\",
                                              "c:\\quake2\\baseq2\\maps\\",
                                              "quake2.exe",
                                              "",
                                              "c:\\quake2\\baseq2\\players",
                                              "_i.pcx",
                                              ""};

QStringList texts(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

void clickItem(QListWidget* list, const QString& text) {
    const auto items = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(items.first()).center());
}

void fillWorkspace(const TempWorkspace& ws) {
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", kCreationLines);
    ws.writeLines("Game-Paths/Quake2/Template.cfg", {"<PATH>"});
    ws.writeLines("Game-Paths/lanparty/lanparty.Gme", kCreationLines);
    ws.write("Game-Paths/Stray.Gme", "not a game");
    ws.folder("Game-Paths/Empty");
}

std::unique_ptr<frmGame> openList(const TempWorkspace& ws) {
    auto form = std::make_unique<frmGame>(ws.root());
    EXPECT_TRUE(rd::test::showActive(form.get()));
    return form;
}

// Every file below Game-Paths with its bytes, to show that nothing was touched.
std::map<std::string, std::string> snapshot(const TempWorkspace& ws) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ws.root()))
        files[std::filesystem::relative(entry.path(), ws.root()).string()] =
            entry.is_regular_file() ? ws.read(std::filesystem::relative(entry.path(), ws.root()).string())
                                    : "<folder>";
    return files;
}

TEST(GamesList, ListsEveryGameFolderInListingOrder) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    frmGame form(ws.root());
    EXPECT_EQ(form.windowTitle(), QString("Game Path Editor"));
    EXPECT_EQ(texts(form.lstGames), (QStringList{"Empty", "lanparty", "Quake2"}));
    EXPECT_EQ(form.lstGames->currentItem() ? form.lstGames->currentItem()->isSelected() : false, false);
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(GamesList, WithoutGamePathsTheListIsEmptyAndNothingIsSaid) {
    TempWorkspace ws;
    PromptRecorder prompts;
    frmGame form(ws.root());
    EXPECT_EQ(form.lstGames->count(), 0);
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(GamesList, CaptionsLabelAndAccessibleNames) {
    TempWorkspace ws;
    frmGame form(ws.root());
    EXPECT_EQ(form.Label1->text(), QString("Available Games"));
    EXPECT_EQ(form.Label1->buddy(), form.lstGames);
    EXPECT_EQ(form.lstGames->accessibleName(), QString("Available Games"));
    EXPECT_EQ(form.cmdAdd->text(), QString("&Add"));
    EXPECT_EQ(form.cmdEdit->text(), QString("&Edit"));
    EXPECT_EQ(form.cmdDelete->text(), QString("&Delete"));
    EXPECT_EQ(form.cmdOK->text(), QString("&OK"));
}

TEST(GamesList, AddAsksForTheNameAndCreatesTheGameWithItsSevenLines) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    prompts.answerInput(QString("Rocket Arena"));
    auto form = openList(ws);
    QTest::mouseClick(form->cmdAdd, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().kind, rd::test::PromptCall::Kind::Input);
    EXPECT_EQ(prompts.last().text, QString("Type in the name of the game you want to add"));
    EXPECT_EQ(prompts.last().title, QString("Roster Desk"));
    EXPECT_EQ(prompts.last().defaultText, QString());
    // At the end of the list, not in listing order.
    EXPECT_EQ(texts(form->lstGames), (QStringList{"Empty", "lanparty", "Quake2", "Rocket Arena"}));
    EXPECT_EQ(ws.read("Game-Paths/Rocket Arena/Rocket Arena.Gme"), crlf(kCreationLines));
}

TEST(GamesList, AddingANameThatIsAPlainFileInGamePathsIsRefused) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    prompts.answerInput(QString("Stray.Gme"));
    auto form = openList(ws);
    const auto before = snapshot(ws);
    QTest::mouseClick(form->cmdAdd, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text, QString("Game already exists..!"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(texts(form->lstGames), (QStringList{"Empty", "lanparty", "Quake2"}));
    EXPECT_EQ(snapshot(ws), before);
}

TEST(GamesList, AddingAGameThatExistsInOtherLetterCaseIsRefused) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    prompts.answerInput(QString("QUAKE2"));
    auto form = openList(ws);
    const auto before = snapshot(ws);
    QTest::mouseClick(form->cmdAdd, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text, QString("Game already exists..!"));
    EXPECT_EQ(form->lstGames->count(), 3);
    EXPECT_EQ(snapshot(ws), before);
}

TEST(GamesList, AddWithAnEmptyOrCancelledAnswerDoesNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    prompts.answerInput(QString(""));
    prompts.answerInput(std::nullopt);
    auto form = openList(ws);
    const auto before = snapshot(ws);
    QTest::mouseClick(form->cmdAdd, Qt::LeftButton);
    QTest::mouseClick(form->cmdAdd, Qt::LeftButton);
    EXPECT_EQ(prompts.calls().size(), 2u); // the two input boxes, nothing else
    EXPECT_EQ(form->lstGames->count(), 3);
    EXPECT_EQ(snapshot(ws), before);
}

TEST(GamesList, AddRefusesNamesWithSeparatorsOrDotsBeforeTouchingAnything) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const auto before = snapshot(ws);
    for (const QString& name : {QString("a/b"), QString("..\\escape"), QString("."), QString("..")}) {
        PromptRecorder prompts;
        prompts.answerInput(name);
        auto form = openList(ws);
        QTest::mouseClick(form->cmdAdd, Qt::LeftButton);
        ASSERT_EQ(prompts.calls().size(), 2u) << name.toStdString();
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
        EXPECT_NE(prompts.last().text, QString("Game already exists..!"));
        EXPECT_FALSE(prompts.last().text.isEmpty());
        EXPECT_EQ(form->lstGames->count(), 3) << name.toStdString();
        EXPECT_EQ(snapshot(ws), before) << name.toStdString();
    }
    EXPECT_FALSE(std::filesystem::exists(ws.root().parent_path() / "escape"));
}

TEST(GamesList, AddFailureIsReportedUnderCreatingANewGame) {
    TempWorkspace ws; // no Game-Paths folder: the game's folder cannot be made
    PromptRecorder prompts;
    prompts.answerInput(QString("Quake2"));
    prompts.answer(PromptAnswer::Abort);
    auto form = openList(ws);
    QTest::mouseClick(form->cmdAdd, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().title, QString("Creating a New Game"));
    EXPECT_TRUE(prompts.last().text.startsWith("Sod it!  Something has gone wrong!\n"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
    EXPECT_FALSE(ws.exists("Game-Paths"));
}

TEST(GamesList, EditOpensTheGameEditorForTheSelectedGame) {
    TempWorkspace ws;
    fillWorkspace(ws);
    auto form = openList(ws);
    clickItem(form->lstGames, "lanparty");
    QString opened;
    QString game;
    ModalDriver driver([&](QDialog* dialog) {
        opened = dialog->objectName();
        if (auto* editor = qobject_cast<frmEditGame*>(dialog)) {
            game = editor->lblGameName->text();
            QTest::mouseClick(editor->cmdCancel, Qt::LeftButton);
        }
    });
    QTest::mouseClick(form->cmdEdit, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(opened, QString("frmEditGame"));
    EXPECT_EQ(game, QString("lanparty"));
    EXPECT_TRUE(form->isVisible());
}

TEST(GamesList, DoubleClickOnAGameOpensTheGameEditor) {
    TempWorkspace ws;
    fillWorkspace(ws);
    auto form = openList(ws);
    const QRect rect = form->lstGames->visualItemRect(form->lstGames->item(2));
    QString game;
    ModalDriver driver([&](QDialog* dialog) {
        if (auto* editor = qobject_cast<frmEditGame*>(dialog))
            game = editor->lblGameName->text();
        dialog->done(QDialog::Rejected);
    });
    // A double-click as the mouse gives it: a click, then the second press.
    QTest::mouseClick(form->lstGames->viewport(), Qt::LeftButton, {}, rect.center());
    QTest::mouseDClick(form->lstGames->viewport(), Qt::LeftButton, {}, rect.center());
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(game, QString("Quake2"));
}

TEST(GamesList, EnterOnAGameChosenWithTheArrowKeysOpensTheGameEditor) {
    TempWorkspace ws;
    fillWorkspace(ws);
    auto form = openList(ws);
    form->lstGames->setFocus();
    QTest::keyClick(form->lstGames, Qt::Key_Home);
    QTest::keyClick(form->lstGames, Qt::Key_Down);
    QString game;
    ModalDriver driver([&](QDialog* dialog) {
        if (auto* editor = qobject_cast<frmEditGame*>(dialog))
            game = editor->lblGameName->text();
        dialog->done(QDialog::Rejected);
    });
    QTest::keyClick(form->lstGames, Qt::Key_Return);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(game, QString("lanparty"));
    EXPECT_TRUE(form->isVisible());
}

TEST(GamesList, EditingWithNoGameSelectedDoesNothingAndShowsNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    auto form = openList(ws);
    ModalDriver driver([](QDialog* dialog) { dialog->done(QDialog::Rejected); }, 1500);
    QTest::mouseClick(form->cmdEdit, Qt::LeftButton);
    QTest::keyClick(form->lstGames, Qt::Key_Return);
    EXPECT_FALSE(driver.acted());
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_TRUE(form->isVisible());
}

TEST(GamesList, DeletingWithNoGameSelectedDoesNothingAndShowsNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    auto form = openList(ws);
    const auto before = snapshot(ws);
    QTest::mouseClick(form->cmdDelete, Qt::LeftButton);
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(form->lstGames->count(), 3);
    EXPECT_EQ(snapshot(ws), before);
}

TEST(GamesList, DeleteAsksUnderTheGamesNameAndYesDeletesTheGameAndItsEntry) {
    TempWorkspace ws;
    fillWorkspace(ws);
    ws.write("Game-Paths/Quake2/q2dm1.ra2", "arena");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    auto form = openList(ws);
    clickItem(form->lstGames, "Quake2");
    QTest::mouseClick(form->cmdDelete, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Delete this game and its paths entirely, are you sure?!"));
    EXPECT_EQ(prompts.last().title, QString("Quake2"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNoCancel);
    EXPECT_FALSE(ws.exists("Game-Paths/Quake2"));
    EXPECT_EQ(texts(form->lstGames), (QStringList{"Empty", "lanparty"}));
    EXPECT_TRUE(ws.exists("Game-Paths/lanparty/lanparty.Gme"));
}

TEST(GamesList, DeleteAnsweredNoOrCancelKeepsEverything) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::No);
    prompts.answer(PromptAnswer::Cancel);
    auto form = openList(ws);
    const auto before = snapshot(ws);
    clickItem(form->lstGames, "lanparty");
    QTest::mouseClick(form->cmdDelete, Qt::LeftButton);
    QTest::mouseClick(form->cmdDelete, Qt::LeftButton);
    EXPECT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(form->lstGames->count(), 3);
    EXPECT_EQ(snapshot(ws), before);
}

TEST(GamesList, DeletingAGameWithASubFolderDeletesTheFilesThenFailsAndKeepsFolderAndEntry) {
    TempWorkspace ws;
    fillWorkspace(ws);
    ws.write("Game-Paths/Quake2/maps/keep.bsp", "map");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    prompts.answer(PromptAnswer::Abort);
    auto form = openList(ws);
    clickItem(form->lstGames, "Quake2");
    QTest::mouseClick(form->cmdDelete, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().title, QString("Deleting a Game"));
    EXPECT_TRUE(prompts.last().text.startsWith("Sod it!  Something has gone wrong!\n"));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
    EXPECT_FALSE(ws.exists("Game-Paths/Quake2/Quake2.Gme"));
    EXPECT_FALSE(ws.exists("Game-Paths/Quake2/Template.cfg"));
    EXPECT_EQ(ws.read("Game-Paths/Quake2/maps/keep.bsp"), "map");
    EXPECT_EQ(texts(form->lstGames), (QStringList{"Empty", "lanparty", "Quake2"}));
}

TEST(GamesList, DeleteFailureIgnoredGoesOnAndRemovesTheEntry) {
    TempWorkspace ws;
    fillWorkspace(ws);
    ws.write("Game-Paths/Quake2/maps/keep.bsp", "map");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    prompts.answer(PromptAnswer::Ignore);
    auto form = openList(ws);
    clickItem(form->lstGames, "Quake2");
    QTest::mouseClick(form->cmdDelete, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_TRUE(ws.exists("Game-Paths/Quake2/maps/keep.bsp"));
    EXPECT_EQ(texts(form->lstGames), (QStringList{"Empty", "lanparty"}));
}

TEST(GamesList, EditingAGameWhoseRecordWasRemovedShowsNotFound) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    auto form = openList(ws);
    clickItem(form->lstGames, "Empty");
    ModalDriver driver([](QDialog* dialog) { dialog->done(QDialog::Rejected); }, 1500);
    QTest::mouseClick(form->cmdEdit, Qt::LeftButton);
    EXPECT_FALSE(driver.acted());
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.endsWith("Empty.Gme - not found"));
    EXPECT_FALSE(ws.exists("Game-Paths/Empty/Empty.Gme"));
    EXPECT_TRUE(form->isVisible());
}

TEST(GamesList, OkClosesTheList) {
    TempWorkspace ws;
    fillWorkspace(ws);
    auto form = openList(ws);
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
}

TEST(GamesList, ListKeepsItsLeftMarginOnBothSidesWhenResized) {
    TempWorkspace ws;
    fillWorkspace(ws);
    auto form = openList(ws);
    for (const QSize size : {QSize(300, 260), QSize(700, 400), QSize(420, 500)}) {
        form->resize(size);
        QTest::qWait(20);
        QApplication::processEvents();
        const QRect list = form->lstGames->geometry();
        EXPECT_GT(list.left(), 0);
        EXPECT_EQ(list.width(), form->width() - 2 * list.left()) << size.width();
    }
}

TEST(GamesList, F1OpensTheGuidePageOfTheGamesList) {
    TempWorkspace ws;
    fillWorkspace(ws);
    auto form = openList(ws);
    QTest::keyClick(form->lstGames, Qt::Key_F1);
    auto* help = form->findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmGame.html"));
    help->close();
}

} // namespace frmGame_test
