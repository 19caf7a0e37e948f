// Checks that keyboard users cannot skip, and saves that survive faults, on the option screens:
// the option editor's OK checks every field it writes however it is reached (Alt+O straight from
// the field, or after the focus was pressed onto Cancel and dragged off); the option list's OK
// survives a full disk, a failed flush and a refused rename; the definition set chooser's Abort
// after a failed read of Setup.cfg leaves the activity.

#include "core/screens/errortrap.h"
#include "core/workspace.h"
#include "definitions/options.h"
#include "definitions/screens/frmEditOption.h"
#include "definitions/screens/frmEditing.h"
#include "definitions/screens/frmOptions.h"
#include "tests/definitions/screens/screen_steps.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace definitions_saves_test {

using namespace rd;
using namespace rd::test;

const std::vector<std::string> kSample = {
    "[Game Play]",
    "Deathmatch",
    "0",
    "Deathm\t\t+set deathmatch 1\t+set deathmatch 0\t0\tPlay a deathmatch game",
    "Skill",
    "7",
    "optSkill\tskill.val\t+set skill %s\t\t1\tHow hard",
    "[Bots]",
    "Bot Count",
    "3",
    "BotCo\t0:16\t+set bots %s\t\t2\tHow many bots",
};
const char* const kFile = "Game-Paths/Quake2/Options.cfg";
const QString kBracketRefusal =
    QString("Sorry, the option name cannot begin with a [ (open square bracket) ");

class OptionChecks : public ::testing::Test {
protected:
    void SetUp() override {
        ws.writeLines(kFile, kSample);
        ws.writeLines("Game-Paths/Quake2/skill.val", {"Easy", "0"});
        list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    }
    frmEditOption* edit(bool newRow, int index) {
        editor =
            std::make_unique<frmEditOption>(list->lvOptions, newRow, index, "Quake2", ws.root(), list.get());
        EXPECT_TRUE(showActive(editor.get()));
        return editor.get();
    }
    // Presses the mouse on Cancel (the focus goes there) and lets go beside it: no click.
    void pressCancelAndDragOff() {
        QTest::mousePress(editor->cmdCancel, Qt::LeftButton, {}, editor->cmdCancel->rect().center());
        ASSERT_EQ(QApplication::focusWidget(), editor->cmdCancel);
        QTest::mouseMove(editor->cmdCancel, QPoint(-40, -40));
        QTest::mouseRelease(editor->cmdCancel, Qt::LeftButton, {}, QPoint(-40, -40));
        settle();
        ASSERT_TRUE(editor->isVisible());
        ASSERT_TRUE(prompts.calls().empty());
    }
    std::size_t messages() const { return prompts.calls().size(); }

    TempWorkspace ws;
    PromptRecorder prompts;
    std::unique_ptr<frmOptions> list;
    std::unique_ptr<frmEditOption> editor;
};

TEST_F(OptionChecks, AltOStraightFromANameBeginningWithABracketRefusesItAndAddsNoRow) {
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "[Bots");
    QTest::keyClick(e->txtName, Qt::Key_O, Qt::AltModifier);
    QTest::qWait(250); // the button shows itself pressed for a moment before it acts
    settle();
    ASSERT_EQ(messages(), 1u);
    EXPECT_EQ(prompts.last().text, kBracketRefusal);
    EXPECT_TRUE(e->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), e->txtName);
    EXPECT_EQ(list->lvOptions->topLevelItemCount(), 5);
}

TEST_F(OptionChecks, OkAfterPressingCancelAndDraggingOffStillRefusesANameBeginningWithABracket) {
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "[Bots");
    pressCancelAndDragOff();
    click(e->cmdOK);
    settle();
    ASSERT_EQ(messages(), 1u);
    EXPECT_EQ(prompts.last().text, kBracketRefusal);
    EXPECT_TRUE(e->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), e->txtName);
    EXPECT_EQ(list->lvOptions->topLevelItemCount(), 5);
}

TEST_F(OptionChecks, OkAfterPressingCancelAndDraggingOffStillRefusesAKeyThatIsTaken) {
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "Frag Limit");
    click(e->txtKey); // the name passes and a key is made from it
    settle();
    typeInto(e->txtKey, "DEATHM");
    pressCancelAndDragOff();
    click(e->cmdOK);
    settle();
    ASSERT_EQ(messages(), 1u);
    EXPECT_EQ(prompts.last().text, QString(kKeyClash));
    EXPECT_EQ(QApplication::focusWidget(), e->txtKey);
    EXPECT_EQ(list->lvOptions->topLevelItemCount(), 5);
}

TEST_F(OptionChecks, OkAfterPressingCancelAndDraggingOffStillRefusesABadNumberRange) {
    auto* e = edit(false, 5); // Bot Count, a NUMBER with the range 0:16
    typeInto(e->txtParameter, "lots");
    pressCancelAndDragOff();
    click(e->cmdOK);
    settle();
    ASSERT_EQ(messages(), 1u);
    EXPECT_EQ(prompts.last().text, QString::fromStdString(numberRangeWarning()));
    EXPECT_EQ(list->lvOptions->topLevelItem(4)->text(5), QString("0:16"));
}

TEST_F(OptionChecks, ChangingTheTypeMakesOkCheckTheParameterForTheNewType) {
    auto* e = edit(false, 3); // Skill, a VALUE LIST whose parameter is skill.val
    e->cboType->setFocus();
    e->cboType->setCurrentIndex(3); // NUMBER: "skill.val" is no number range
    click(e->cmdOK);
    settle();
    ASSERT_EQ(messages(), 1u);
    EXPECT_EQ(prompts.last().text, QString::fromStdString(numberRangeWarning()));
    EXPECT_TRUE(e->isVisible());
    EXPECT_EQ(list->lvOptions->topLevelItem(2)->text(4), QString("7"));
}

TEST_F(OptionChecks, OkChecksOnlyWhatChangedSoARowWithAnOldKeyClashStillSaves) {
    // Two options of the file share a key; editing another field of one of them is no reason to
    // refuse its key now.
    ws.writeLines(kFile, {"One", "0", "Dup\t\t\t\t0\t", "Two", "0", "dup\t\t\t\t0\t"});
    list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    auto* e = edit(false, 2);
    typeInto(e->txtHelp, "Now with help");
    click(e->cmdOK);
    settle();
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_FALSE(e->isVisible());
    EXPECT_EQ(list->lvOptions->topLevelItem(1)->text(3), QString("Now with help"));
}

TEST_F(OptionChecks, EscapeAfterARefusableNameClosesWithoutAWord) {
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "[nope");
    QTest::keyClick(e->txtName, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_FALSE(e->isVisible());
    EXPECT_EQ(list->lvOptions->topLevelItemCount(), 5);
}

// The option list's OK under faults -------------------------------------------------------------

TEST(OptionListSaves, OkSurvivesEveryFaultAndRetrySavesTheList) {
    std::vector<std::string> edited = kSample;
    edited.erase(edited.begin() + 1, edited.begin() + 4); // Deathmatch deleted
    const std::string newBytes = crlf(edited);
    for (const auto& point : saveFaultPoints(newBytes)) {
        SCOPED_TRACE(point.name);
        TempWorkspace ws;
        ws.writeLines(kFile, kSample);
        const std::string old = ws.read(kFile);
        PromptRecorder prompts;
        frmOptions form(ws.path(kFile), "Quake2", ws.root());
        ASSERT_TRUE(showActive(&form));
        form.lvOptions->setCurrentItem(form.lvOptions->topLevelItem(1));
        prompts.answer(PromptAnswer::Yes); // delete this option
        form.mnuPopupDelete_Click();
        ASSERT_EQ(form.lvOptions->topLevelItemCount(), 4);
        InjectedSaveFault fault(point.fault);
        prompts.answer(PromptAnswer::Retry);
        prompts.onPrompt = [&](const PromptCall& call) {
            if (call.title != QString("Saving Options"))
                return;
            EXPECT_EQ(ws.read(kFile), old);
            EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
            EXPECT_TRUE(form.isVisible());
            fault.lift();
        };
        click(form.cmdOK);
        ASSERT_EQ(prompts.calls().size(), 2u);
        EXPECT_EQ(prompts.last().title, QString("Saving Options"));
        EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
        EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead + "\n"));
        EXPECT_TRUE(prompts.last().text.contains(QString::fromStdString(pathText(ws.path(kFile)))))
            << prompts.last().text.toStdString();
        EXPECT_EQ(ws.read(kFile), newBytes);
        EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
        EXPECT_FALSE(form.isVisible());
    }
}

TEST(OptionListSaves, OkSavesRowsAsReadUnlessTheyWereChangedOrPutBackAfterAChange) {
    TempWorkspace ws;
    ws.writeLines(kFile, kSample);
    PromptRecorder prompts;
    frmOptions form(ws.path(kFile), "Quake2", ws.root());
    // A row changed in place, and a row taken out of the list, changed and put back.
    form.lvOptions->topLevelItem(2)->setText(kOptHelpText, "Harder");
    QTreeWidgetItem* bots = form.lvOptions->takeTopLevelItem(4);
    bots->setText(kOptKey, "Bots");
    form.lvOptions->insertTopLevelItem(4, bots);
    form.cmdOK_Click();
    auto expected = kSample;
    expected[6] = "optSkill\tskill.val\t+set skill %s\t\t1\tHarder";
    expected[10] = "Bots\t0:16\t+set bots %s\t\t2\tHow many bots";
    EXPECT_EQ(ws.read(kFile), crlf(expected));

    // Unchanged, the rows are written back exactly as read.
    frmOptions again(ws.path(kFile), "Quake2", ws.root());
    again.cmdOK_Click();
    EXPECT_EQ(ws.read(kFile), crlf(expected));
}

TEST(OptionListSaves, AbortAfterAFailedSaveKeepsTheListOpenAndTheFileWhole) {
    TempWorkspace ws;
    ws.writeLines(kFile, kSample);
    PromptRecorder prompts;
    frmOptions form(ws.path(kFile), "Quake2", ws.root());
    ASSERT_TRUE(showActive(&form));
    InjectedSaveFault fault({native::SaveFault::Step::Write, 40});
    prompts.answer(PromptAnswer::Abort);
    click(form.cmdOK);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(ws.read(kFile), crlf(kSample));
    EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
}

// The definition set chooser -------------------------------------------------------------------

#ifndef _WIN32

class ChooserAfterAFailedRead : public ::testing::Test {
protected:
    void SetUp() override {
        ws.folder("Game-Paths/Quake2");
        ws.writeLines("Plug-Ins/ACE/Setup.cfg", {"AceGame"});
        ws.folder("Plug-Ins/Eraser");
        // Setup.cfg is there, but reading it fails.
        ASSERT_EQ(::mkfifo(ws.path("Plug-Ins/Eraser/Setup.cfg").c_str(), 0644), 0);
        form = std::make_unique<frmEditing>(ws.root());
        ASSERT_TRUE(showActive(form.get()));
        clickChoice(form->optEditType[1]);
        QListWidget* bots = form->lstList[1];
        QTest::mouseClick(bots->viewport(), Qt::LeftButton, {}, bots->visualItemRect(bots->item(1)).center());
        ASSERT_EQ(bots->currentItem()->text(), QString("Eraser"));
    }
    TempWorkspace ws;
    PromptRecorder prompts;
    std::unique_ptr<frmEditing> form;
};

TEST_F(ChooserAfterAFailedRead, AbortLeavesWithoutOpeningTheOptionList) {
    prompts.answer(PromptAnswer::Abort);
    QString opened;
    ModalDriver driver(
        [&](QDialog* d) {
            opened = d->objectName();
            d->reject();
        },
        3000);
    click(form->cmdOptions);
    QTest::qWait(100);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Editing Options"));
    EXPECT_TRUE(prompts.last().text.contains("is not a plain file")) << prompts.last().text.toStdString();
    EXPECT_FALSE(driver.acted()) << opened.toStdString() << " opened after Abort";
    EXPECT_TRUE(form->isVisible());
}

TEST_F(ChooserAfterAFailedRead, IgnoreOpensTheOptionListWithoutAGameName) {
    prompts.answer(PromptAnswer::Ignore);
    std::string game = "not opened";
    ModalDriver driver([&](QDialog* d) {
        auto* options = qobject_cast<frmOptions*>(d);
        ASSERT_NE(options, nullptr);
        game = options->gameName();
        options->reject();
    });
    click(form->cmdOptions);
    EXPECT_TRUE(driver.acted());
    EXPECT_EQ(game, "");
}

#endif

} // namespace definitions_saves_test
