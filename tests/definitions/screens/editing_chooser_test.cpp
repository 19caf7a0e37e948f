// The definition set chooser (frmEditing): which file the option list or the flag list opens
// on, and the main window's Edit Options that opens it.

#include "definitions/screens/frmDMflags.h"
#include "definitions/screens/frmEditing.h"
#include "definitions/screens/frmOptions.h"
#include "profiles/screens/frmMain.h"
#include "tests/definitions/screens/screen_steps.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace editing_chooser_test {

using namespace rd;
using namespace rd::test;

class Chooser : public ::testing::Test {
protected:
    void SetUp() override {
        ws.folder("Game-Paths/LanParty");
        ws.folder("Game-Paths/Quake2");
        ws.write("Game-Paths/readme.txt", "not a game");
        ws.writeLines("Plug-Ins/ACE/Setup.cfg", {"AceGame", "ace"});
        ws.folder("Plug-Ins/Bare");
        ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2", "Eraser"});
        ws.writeLines("Game-Paths/Quake2/Options.cfg", {"[Game Play]"});
        form = std::make_unique<frmEditing>(ws.root());
        EXPECT_TRUE(showActive(form.get()));
    }
    void pick(int list, int row) {
        clickChoice(form->optEditType[static_cast<std::size_t>(list)]);
        QListWidget* names = form->lstList[static_cast<std::size_t>(list)];
        const QRect rect = names->visualItemRect(names->item(row));
        QTest::mouseClick(names->viewport(), Qt::LeftButton, {}, rect.center());
    }
    // What the option list opened with: the file it shows and its game name.
    std::pair<QString, std::string> openedOptions(QPushButton* button) {
        QString file;
        std::string game;
        ModalDriver driver([&](QDialog* d) {
            auto* options = qobject_cast<frmOptions*>(d);
            ASSERT_NE(options, nullptr);
            file = options->lblFilename->text();
            game = options->gameName();
            options->reject();
        });
        click(button);
        EXPECT_TRUE(driver.acted());
        return {file, game};
    }
    QString openedFlags() {
        QString file;
        ModalDriver driver([&](QDialog* d) {
            auto* flags = qobject_cast<frmDMflags*>(d);
            ASSERT_NE(flags, nullptr);
            file = flags->lblFilename->text();
            flags->reject();
        });
        click(form->cmdDMflag);
        EXPECT_TRUE(driver.acted());
        return file;
    }
    QString path(const char* relative) const { return QString::fromStdString(ws.path(relative).string()); }

    TempWorkspace ws;
    PromptRecorder prompts;
    std::unique_ptr<frmEditing> form;
};

QStringList entries(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

TEST_F(Chooser, ShowsTheGamesAndTheBotsWithItsCaptionsAndTooltips) {
    EXPECT_EQ(form->objectName(), QString("frmEditing"));
    EXPECT_EQ(form->windowTitle(), QString("Editing Options"));
    EXPECT_EQ(form->fraWhich->title(), QString("Edit Which Options?"));
    EXPECT_EQ(form->fraType->title(), QString("Type"));
    EXPECT_EQ(form->optEditType[0]->text(), QString("For the Game:"));
    EXPECT_EQ(form->optEditType[1]->text(), QString("For the Bot"));
    EXPECT_EQ(form->optType[0]->text(), QString("Edit the Built-in Settings"));
    EXPECT_EQ(form->optType[0]->toolTip(),
              QString("Note - changes here may be overwritten when you upgrade Tarnwick"));
    EXPECT_EQ(form->optType[1]->text(), QString("Edit Your Custom Settings"));
    EXPECT_EQ(form->optType[1]->toolTip(),
              QString("Changes here should never be lost when upgrading Tarnwick"));
    EXPECT_EQ(form->cmdOptions->text(), QString("Edit &Options"));
    EXPECT_EQ(form->cmdDMflag->text(), QString("Edit DM&Flags"));
    EXPECT_EQ(form->cmdClose->text(), QString("&Close"));
    EXPECT_EQ(entries(form->lstList[0]), (QStringList{"LanParty", "Quake2"}));
    EXPECT_EQ(entries(form->lstList[1]), (QStringList{"ACE", "Bare", "Eraser"}));
    for (QListWidget* list : form->lstList)
        EXPECT_FALSE(list->accessibleName().isEmpty());
}

TEST_F(Chooser, TheGameChoiceEnablesTheGameListAndTheBotChoiceTheBotList) {
    EXPECT_TRUE(form->optEditType[0]->isChecked());
    EXPECT_TRUE(form->lstList[0]->isEnabled());
    EXPECT_FALSE(form->lstList[1]->isEnabled());
    clickChoice(form->optEditType[1]);
    EXPECT_FALSE(form->lstList[0]->isEnabled());
    EXPECT_TRUE(form->lstList[1]->isEnabled());
    clickChoice(form->optEditType[0]);
    EXPECT_TRUE(form->lstList[0]->isEnabled());
    EXPECT_FALSE(form->lstList[1]->isEnabled());
}

TEST_F(Chooser, WithNothingSelectedBothButtonsDoNothingAndSayNothing) {
    ModalDriver driver([](QDialog* d) { d->reject(); }, 1500);
    click(form->cmdOptions);
    click(form->cmdDMflag);
    clickChoice(form->optEditType[1]);
    click(form->cmdOptions);
    click(form->cmdDMflag);
    EXPECT_FALSE(driver.acted());
    EXPECT_TRUE(prompts.calls().empty());
}

TEST_F(Chooser, AGameSelectedInTheOtherListDoesNotCount) {
    pick(0, 1);
    clickChoice(form->optEditType[1]);
    ModalDriver driver([](QDialog* d) { d->reject(); }, 1500);
    click(form->cmdOptions);
    EXPECT_FALSE(driver.acted());
}

TEST_F(Chooser, BuiltInAndCustomChooseTheOptionFileOfAGameNamedAfterIt) {
    pick(0, 1);
    clickChoice(form->optType[0]);
    auto [builtIn, game] = openedOptions(form->cmdOptions);
    EXPECT_EQ(builtIn, path("Game-Paths/Quake2/Options.cfg"));
    EXPECT_EQ(game, "Quake2");
    clickChoice(form->optType[1]);
    auto [custom, game2] = openedOptions(form->cmdOptions);
    EXPECT_EQ(custom, path("Game-Paths/Quake2/Opt-User.cfg"));
    EXPECT_EQ(game2, "Quake2");
}

TEST_F(Chooser, BuiltInAndCustomChooseTheFlagFile) {
    pick(1, 2);
    clickChoice(form->optType[0]);
    EXPECT_EQ(openedFlags(), path("Plug-Ins/Eraser/DMflags.cfg"));
    clickChoice(form->optType[1]);
    EXPECT_EQ(openedFlags(), path("Plug-Ins/Eraser/DMcustom.cfg"));
}

TEST_F(Chooser, ABotTakesItsGameNameFromTheFirstLineOfItsSetup) {
    pick(1, 2);
    auto [file, game] = openedOptions(form->cmdOptions);
    EXPECT_EQ(file, path("Plug-Ins/Eraser/Opt-User.cfg"));
    EXPECT_EQ(game, "Quake2");
}

TEST_F(Chooser, TheFirstBotOfTheListNeverGetsAGameName) {
    pick(1, 0);
    auto [file, game] = openedOptions(form->cmdOptions);
    EXPECT_EQ(file, path("Plug-Ins/ACE/Opt-User.cfg"));
    EXPECT_EQ(game, "");
}

TEST_F(Chooser, ABotWithoutSetupCfgStillOpensItsOptionListWithAnEmptyGameName) {
    pick(1, 1);
    auto [file, game] = openedOptions(form->cmdOptions);
    EXPECT_EQ(file, path("Plug-Ins/Bare/Opt-User.cfg"));
    EXPECT_EQ(game, "");
    EXPECT_TRUE(prompts.calls().empty());
}

TEST_F(Chooser, FilesThatDoNotExistOpenEmptyAndOKCreatesThem) {
    pick(0, 0);
    int rows = -1;
    ModalDriver driver([&](QDialog* d) {
        auto* options = qobject_cast<frmOptions*>(d);
        rows = options->lvOptions->topLevelItemCount();
        click(options->cmdOK);
    });
    click(form->cmdOptions);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(ws.read("Game-Paths/LanParty/Opt-User.cfg"), "");
    ModalDriver flags([&](QDialog* d) {
        auto* list = qobject_cast<frmDMflags*>(d);
        rows = list->lvFlags->topLevelItemCount();
        click(list->cmdOK);
    });
    click(form->cmdDMflag);
    ASSERT_TRUE(flags.acted());
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(ws.read("Game-Paths/LanParty/DMcustom.cfg"), "");
}

TEST_F(Chooser, KeyboardAloneReachesAFileList) {
    form->lstList[0]->setFocus();
    QTest::keyClick(form->lstList[0], Qt::Key_Down);
    ASSERT_NE(form->lstList[0]->currentItem(), nullptr);
    ASSERT_TRUE(form->lstList[0]->currentItem()->isSelected());
    ModalDriver driver([](QDialog* d) { d->reject(); });
    QTest::keyClick(form.get(), Qt::Key_O, Qt::AltModifier);
    QTest::qWait(200); // the shortcut clicks the button after its short animation
    EXPECT_TRUE(driver.acted());
}

TEST_F(Chooser, CloseClosesTheScreen) {
    click(form->cmdClose);
    EXPECT_FALSE(form->isVisible());
}

TEST(MainWindowOptions, EditOptionsOpensTheDefinitionSetChooser) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    frmMain main(ws.root());
    ASSERT_TRUE(showActive(&main));
    ASSERT_TRUE(main.cmdEditOptions->isEnabled());
    QString opened, caption;
    QStringList games;
    ModalDriver driver([&](QDialog* d) {
        opened = d->objectName();
        caption = d->windowTitle();
        games = entries(d->findChild<QListWidget*>("lstList_0"));
        d->reject();
    });
    click(main.cmdEditOptions);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(opened, QString("frmEditing"));
    EXPECT_EQ(caption, QString("Editing Options"));
    EXPECT_EQ(games, (QStringList{"Quake2"}));
}

} // namespace editing_chooser_test
