// The option editor (frmEditOption): its fields, the type-dependent layout, the buttons, the
// checks made when a field loses focus (moved by Tab or by a click, text typed key by key), and
// what OK writes into the option list and from there to disk.

#include "core/screens/frmZoom.h"
#include "definitions/options.h"
#include "definitions/screens/frmChooseList.h"
#include "definitions/screens/frmEditOption.h"
#include "definitions/screens/frmNumberRange.h"
#include "definitions/screens/frmOptions.h"
#include "dialogs/frmPickFromLV.h"
#include "tests/definitions/screens/screen_steps.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace option_editor_test {

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

const QString kWarning =
    QString("Incorrect format - this needs to be : \r\nmin:max\r\nWhere 'min' is the minimum "
            "integer allowed and 'max' the maximum.  For example:\r\n1:10\r\nThis specifies "
            "a range from 1 to 10");

class OptionEditor : public ::testing::Test {
protected:
    void SetUp() override {
        ws.writeLines(kFile, kSample);
        ws.writeLines("Game-Paths/Quake2/weapons.val", {"Blaster", "1", "Railgun", "9"});
        ws.writeLines("Game-Paths/Quake2/skill.val", {"Easy", "0"});
        ws.writeLines("Game-Paths/Quake2/maps.lst", {"q2dm1"});
        list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    }
    // The editor opened as the list opens it, shown and active (not modal, so the test goes on).
    frmEditOption* edit(bool newRow, int index) {
        editor =
            std::make_unique<frmEditOption>(list->lvOptions, newRow, index, "Quake2", ws.root(), list.get());
        EXPECT_TRUE(showActive(editor.get()));
        return editor.get();
    }
    // Selects a type with the keyboard, as a user does in the drop-down.
    void selectType(int index) {
        QComboBox* type = editor->cboType;
        type->setFocus();
        QTest::keyClick(type, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            QTest::keyClick(type, Qt::Key_Down);
        ASSERT_EQ(type->currentIndex(), index);
    }
    // OK in the editor, then OK in the list: the bytes on disk.
    std::string saved() {
        click(editor->cmdOK);
        EXPECT_FALSE(editor->isVisible());
        list->cmdOK_Click();
        return ws.read(kFile);
    }
    std::size_t messages() const {
        std::size_t n = 0;
        for (const auto& call : prompts.calls())
            n += call.kind == PromptCall::Kind::Message;
        return n;
    }

    TempWorkspace ws;
    PromptRecorder prompts;
    std::unique_ptr<frmOptions> list;
    std::unique_ptr<frmEditOption> editor;
};

std::vector<std::string> withRow(std::vector<std::string> lines, std::size_t at,
                                 const std::vector<std::string>& rows) {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), rows.begin(), rows.end());
    return lines;
}

TEST_F(OptionEditor, NewOptionShowsItsTitleFramesLabelsAndTooltips) {
    auto* e = edit(true, 0);
    EXPECT_EQ(e->objectName(), QString("frmEditOption"));
    EXPECT_EQ(e->windowTitle(), QString("Add new Option"));
    EXPECT_EQ(e->fraDetails->title(), QString("Option Details"));
    EXPECT_EQ(e->fraFormat->title(), QString("Data Format"));
    EXPECT_EQ(e->fraWhere->title(), QString("Where to Add It..."));
    const std::vector<std::tuple<QLabel*, QString, QWidget*>> labels = {
        {e->lblName, "Option Name:", e->txtName},
        {e->lblKey, "Unique ID Key:", e->txtKey},
        {e->lblParam1, "Syntax When Checked", e->txtChecked},
        {e->lblParam2, "Syntax When Unchecked", e->txtUnchecked},
        {e->lblHelp, "Help Text:", e->txtHelp},
        {e->lblType, "Type of Option:", e->cboType},
        {e->lblParameter, "n/a", e->txtParameter}};
    for (const auto& [label, caption, buddy] : labels) {
        EXPECT_EQ(label->text(), caption);
        EXPECT_EQ(label->buddy(), buddy) << caption.toStdString();
    }
    EXPECT_EQ(e->txtName->toolTip(), QString("The name that appears in the list"));
    EXPECT_EQ(e->txtKey->toolTip(), QString("A key of your choice that uniquely identifies this option"));
    EXPECT_EQ(e->txtChecked->toolTip(), QString("What to add when this item is checked or contains data"));
    EXPECT_EQ(e->txtUnchecked->toolTip(),
              QString("What to add when this item is not checked or does not contain data"));
    EXPECT_EQ(e->txtHelp->toolTip(), QString("A help description to make life easier"));
    EXPECT_EQ(e->cboType->toolTip(), QString("The data type of the option"));
    EXPECT_EQ(e->cmdTypeHelp->toolTip(), QString("Help about the option type"));
    EXPECT_EQ(e->txtParameter->toolTip(), QString("The option's extra parameter"));
    EXPECT_EQ(e->lblNoParam->text(), QString("This parameter does not require any extra options"));
    EXPECT_EQ(e->optWhere[0]->text(), QString("Add to the &Command Line"));
    EXPECT_EQ(e->optWhere[1]->text(), QString("Add to Console &Before Map Change"));
    EXPECT_EQ(e->optWhere[2]->text(), QString("Add to Console &After Map Change"));
    EXPECT_EQ(e->optWhere[0]->toolTip(), QString("This option should be added to the command-line"));
    EXPECT_EQ(
        e->optWhere[1]->toolTip(),
        QString("This option should be added to a config file to be executed before the map is loaded"));
    EXPECT_EQ(e->optWhere[2]->toolTip(),
              QString("This option should be added to a config file to be executed after the map is loaded"));
    EXPECT_EQ(e->cmdSyntax[0]->text(), QString("..."));
    EXPECT_EQ(e->cmdParameter->text(), QString("..."));
    EXPECT_EQ(e->cmdOK->text(), QString("&OK"));
    EXPECT_EQ(e->cmdCancel->text(), QString("&Cancel"));
    // A new row starts as a yes-or-no checkbox added to the command line, every field empty.
    EXPECT_EQ(e->cboType->currentIndex(), 0);
    EXPECT_TRUE(e->optWhere[0]->isChecked());
    for (QLineEdit* box :
         {e->txtName, e->txtKey, e->txtChecked, e->txtUnchecked, e->txtHelp, e->txtParameter})
        EXPECT_TRUE(box->text().isEmpty());
    EXPECT_EQ(QApplication::focusWidget(), e->txtName);
    EXPECT_FALSE(e->cmdTypeHelp->accessibleName().isEmpty());
}

TEST_F(OptionEditor, TypeListHoldsTheTwelveCaptionsInIndexOrder) {
    auto* e = edit(true, 0);
    QStringList captions;
    for (int i = 0; i < e->cboType->count(); ++i)
        captions << e->cboType->itemText(i);
    EXPECT_EQ(captions, (QStringList{"Yes or No Checkbox", "Tristate Checkbox", "Normal Text String",
                                     "Number", "Model/Skin", "Weapon List", "Text List", "Value List",
                                     "Filename", "Enable/Disable Categories", "Always Add", "Folder name"}));
}

TEST_F(OptionEditor, ExistingOptionFillsEveryFieldAndTheTitle) {
    auto* e = edit(false, 3);
    EXPECT_EQ(e->windowTitle(), QString("Editing Skill"));
    EXPECT_EQ(e->txtName->text(), QString("Skill"));
    EXPECT_EQ(e->txtKey->text(), QString("optSkill"));
    EXPECT_EQ(e->txtChecked->text(), QString("+set skill %s"));
    EXPECT_EQ(e->txtUnchecked->text(), QString(""));
    EXPECT_EQ(e->txtHelp->text(), QString("How hard"));
    EXPECT_EQ(e->cboType->currentText(), QString("Value List"));
    EXPECT_EQ(e->txtParameter->text(), QString("skill.val"));
    EXPECT_TRUE(e->optWhere[1]->isChecked());
    EXPECT_EQ(e->lblParameter->text(), QString("Value List"));
}

TEST_F(OptionEditor, EnableTypeShowsTheSyntaxButtonsAndTheCategoryLabels) {
    auto* e = edit(true, 0);
    EXPECT_FALSE(e->cmdSyntax[0]->isVisible());
    const int fullWidth = e->txtChecked->width();
    selectType(9);
    QCoreApplication::processEvents();
    EXPECT_TRUE(e->cmdSyntax[0]->isVisible());
    EXPECT_TRUE(e->cmdSyntax[1]->isVisible());
    EXPECT_LT(e->txtChecked->width(), fullWidth);
    EXPECT_EQ(e->lblParam1->text(), QString("Category to Enable"));
    EXPECT_EQ(e->lblParam2->text(), QString("Category to Disable"));
    EXPECT_TRUE(e->lblNoParam->isVisible());
    selectType(10);
    QCoreApplication::processEvents();
    EXPECT_FALSE(e->cmdSyntax[0]->isVisible());
    EXPECT_FALSE(e->cmdSyntax[1]->isVisible());
    EXPECT_EQ(e->txtChecked->width(), fullWidth);
    EXPECT_EQ(e->lblParam1->text(), QString("Syntax When Checked"));
    EXPECT_EQ(e->lblParam2->text(), QString("Syntax When Unchecked"));
}

TEST_F(OptionEditor, TheParameterShowsOnlyForTypesThatTakeOneWithTheirOwnLabel) {
    auto* e = edit(true, 0);
    const QString labels[12] = {"n/a",       "n/a",        "n/a", "Number Range", "n/a", "Weapons List",
                                "Text List", "Value List", "n/a", "n/a",          "n/a", "Trailing Slash?"};
    for (int type = 0; type < 12; ++type) {
        selectType(type);
        const bool takesOne = labels[type] != "n/a";
        EXPECT_EQ(e->lblParameter->text(), labels[type]) << type;
        EXPECT_EQ(e->txtParameter->isVisible(), takesOne) << type;
        EXPECT_EQ(e->lblParameter->isVisible(), takesOne) << type;
        EXPECT_EQ(e->cmdParameter->isVisible(), takesOne) << type;
        EXPECT_EQ(e->lblNoParam->isVisible(), !takesOne) << type;
    }
}

TEST_F(OptionEditor, TypeHelpShowsTheTypesHelpTitledWithItsCaption) {
    auto* e = edit(true, 0);
    selectType(3);
    click(e->cmdTypeHelp);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Number"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Information);
    EXPECT_EQ(prompts.last().text,
              QString("This allows the user to either type in a number or use a scrollbar to "
                      "select the number.  You must give minimum and maximum values "
                      "separated by a colon (:)."));
    selectType(1);
    click(e->cmdTypeHelp);
    EXPECT_EQ(prompts.last().title, QString("Tristate Checkbox"));
    EXPECT_EQ(
        prompts.last().text,
        QString("This gives the user three options - yes, no or 'don't care'.  If 'don't care' is selected "
                "then the option will be ignored by Tarnwick"));
}

TEST_F(OptionEditor, TypeHelpWithNoTypeSelectedShowsNothing) {
    ws.writeLines(kFile, {"Odd", "x", "Odd\t\t\t\t0\t"});
    list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    auto* e = edit(false, 1);
    ASSERT_EQ(e->cboType->currentIndex(), -1);
    click(e->cmdTypeHelp);
    EXPECT_TRUE(prompts.calls().empty());
}

TEST_F(OptionEditor, NameBeginningWithABracketIsRefusedWhenTabLeavesTheField) {
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "[Bots");
    QTest::keyClick(e->txtName, Qt::Key_Tab);
    settle();
    ASSERT_EQ(messages(), 1u);
    EXPECT_EQ(prompts.last().text,
              QString("Sorry, the option name cannot begin with a [ (open square bracket) "));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(QApplication::focusWidget(), e->txtName);
    EXPECT_EQ(e->txtName->text(), QString("[Bots"));
    EXPECT_EQ(e->txtKey->text(), QString("")); // no key is made from a refused name
    settle();
    EXPECT_EQ(messages(), 1u); // the focus going back raises no second message
}

TEST_F(OptionEditor, NameBeginningWithABracketIsRefusedWhenAClickLeavesTheField) {
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "[x");
    click(e->txtHelp);
    settle();
    ASSERT_EQ(messages(), 1u);
    EXPECT_EQ(prompts.last().text,
              QString("Sorry, the option name cannot begin with a [ (open square bracket) "));
    EXPECT_EQ(QApplication::focusWidget(), e->txtName);
    EXPECT_EQ(e->txtName->text(), QString("[x"));
}

TEST_F(OptionEditor, RefusedNameLeavesTheRowUnsavedUntilCorrected) {
    ws.writeLines(kFile, {});
    list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "[Bots]");
    click(e->cmdOK);
    settle();
    EXPECT_EQ(messages(), 1u);
    EXPECT_TRUE(e->isVisible());
    EXPECT_EQ(list->lvOptions->topLevelItemCount(), 0);
    EXPECT_EQ(QApplication::focusWidget(), e->txtName);
    QTest::keyClick(e->txtName, Qt::Key_Home);
    QTest::keyClick(e->txtName, Qt::Key_Delete);
    QTest::keyClick(e->txtName, Qt::Key_Tab);
    settle();
    EXPECT_EQ(messages(), 1u);
    EXPECT_EQ(e->txtKey->text(), QString("Bots]"));
    EXPECT_EQ(saved(), crlf({"Bots]", "0", "Bots]\t\t\t\t0\t"}));
}

TEST_F(OptionEditor, ClickingCancelAfterARefusableNameClosesWithoutAWord) {
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "[nope");
    click(e->cmdCancel);
    settle();
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_FALSE(e->isVisible());
    EXPECT_EQ(list->lvOptions->topLevelItemCount(), 5);
}

TEST_F(OptionEditor, KeyIsMadeFromTheNameWhenTheKeyIsEmpty) {
    ws.writeLines(kFile, {});
    list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "Skill Level");
    QTest::keyClick(e->txtName, Qt::Key_Tab);
    settle();
    EXPECT_EQ(e->txtKey->text(), QString("Skill"));
    EXPECT_EQ(QApplication::focusWidget(), e->txtKey);
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(saved(), crlf({"Skill Level", "0", "Skill\t\t\t\t0\t"}));
}

TEST_F(OptionEditor, SecondOptionWithTheSameNameGetsALongerPrefix) {
    ws.writeLines(kFile, {"Skill Level", "0", "Skill\t\t\t\t0\t"});
    list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "Skill Level");
    click(e->txtChecked);
    settle();
    EXPECT_EQ(e->txtKey->text(), QString("SkillL"));
    EXPECT_EQ(saved(),
              crlf({"Skill Level", "0", "Skill\t\t\t\t0\t", "Skill Level", "0", "SkillL\t\t\t\t0\t"}));
}

TEST_F(OptionEditor, ShortNameThatClashesGetsACounter) {
    ws.writeLines(kFile, {"Frag", "0", "Frag\t\t\t\t0\t", "Frag", "0", "Frag1\t\t\t\t0\t"});
    list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    auto* e = edit(true, 0);
    QTest::keyClicks(e->txtName, "Frag");
    QTest::keyClick(e->txtName, Qt::Key_Tab);
    settle();
    EXPECT_EQ(e->txtKey->text(), QString("Frag2"));
}

TEST_F(OptionEditor, EmptyNameGivesOptThenOpt1) {
    ws.writeLines(kFile, {});
    list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    auto* e = edit(true, 0);
    QTest::keyClick(e->txtName, Qt::Key_Tab);
    settle();
    EXPECT_EQ(e->txtKey->text(), QString("Opt"));
    click(e->cmdOK);
    auto* second = edit(true, 0);
    QTest::keyClick(second->txtName, Qt::Key_Tab);
    settle();
    EXPECT_EQ(second->txtKey->text(), QString("Opt1"));
    EXPECT_EQ(saved(), crlf({"", "0", "Opt\t\t\t\t0\t", "", "0", "Opt1\t\t\t\t0\t"}));
}

TEST_F(OptionEditor, KeyTypedByHandIsKeptWhenTheNameLosesFocus) {
    auto* e = edit(true, 0);
    click(e->txtKey); // leaving the empty name makes the key Opt
    settle();
    ASSERT_EQ(e->txtKey->text(), QString("Opt"));
    typeInto(e->txtKey, "mine");
    click(e->txtName);
    settle();
    QTest::keyClicks(e->txtName, "Whatever Name");
    QTest::keyClick(e->txtName, Qt::Key_Tab);
    settle();
    EXPECT_EQ(e->txtKey->text(), QString("mine"));
    EXPECT_TRUE(prompts.calls().empty());
}

TEST_F(OptionEditor, KeyThatDiffersOnlyInCaseIsRefusedAndTheFieldKeepsFocus) {
    auto* e = edit(true, 0);
    click(e->txtKey);
    settle();
    typeInto(e->txtKey, "OPTSKILL");
    QTest::keyClick(e->txtKey, Qt::Key_Tab);
    settle();
    ASSERT_EQ(messages(), 1u);
    EXPECT_EQ(prompts.last().text, QString("An option already exists with that key, please try another."));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(QApplication::focusWidget(), e->txtKey);
    EXPECT_EQ(e->txtKey->text(), QString("OPTSKILL"));
    // Back-tab and a click are focus changes as well.
    QTest::keyClick(e->txtKey, Qt::Key_Backtab);
    settle();
    EXPECT_EQ(messages(), 2u);
    EXPECT_EQ(QApplication::focusWidget(), e->txtKey);
    QTest::keyClicks(e->txtKey, "2");
    click(e->txtHelp);
    settle();
    EXPECT_EQ(messages(), 2u);
    EXPECT_EQ(QApplication::focusWidget(), e->txtHelp);
}

TEST_F(OptionEditor, AnOptionDoesNotClashWithItsOwnKey) {
    auto* e = edit(false, 3);
    click(e->txtKey);
    QTest::keyClick(e->txtKey, Qt::Key_End);
    QTest::keyClick(e->txtKey, Qt::Key_Tab);
    settle();
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(QApplication::focusWidget(), e->txtChecked);
}

TEST_F(OptionEditor, NumberRangeWithTheGreaterNumberFirstIsSwapped) {
    auto* e = edit(false, 5);
    ASSERT_EQ(e->cboType->currentText(), QString("Number"));
    typeInto(e->txtParameter, "10:1");
    QTest::keyClick(e->txtParameter, Qt::Key_Tab);
    settle();
    EXPECT_EQ(e->txtParameter->text(), QString("1:10"));
    EXPECT_TRUE(prompts.calls().empty());
    auto expected = kSample;
    expected[10] = "BotCo\t1:10\t+set bots %s\t\t2\tHow many bots";
    EXPECT_EQ(saved(), crlf(expected));
}

TEST_F(OptionEditor, NumberRangesWithoutMinColonMaxAreRefusedWithTheWarning) {
    auto* e = edit(false, 5);
    std::size_t expectedMessages = 0;
    for (const QString& bad : {QString("a:5"), QString(":5"), QString("5"), QString("5:-")}) {
        typeInto(e->txtParameter, bad);
        click(e->txtHelp);
        settle();
        ASSERT_EQ(messages(), ++expectedMessages) << bad.toStdString();
        EXPECT_EQ(prompts.last().text, kWarning);
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
        EXPECT_EQ(e->txtParameter->text(), bad);
        EXPECT_EQ(QApplication::focusWidget(), e->txtParameter) << bad.toStdString();
    }
}

TEST_F(OptionEditor, EmptyNumberRangeIsAcceptedWithoutACheck) {
    auto* e = edit(false, 5);
    typeInto(e->txtParameter, "");
    QTest::keyClick(e->txtParameter, Qt::Key_Tab);
    settle();
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(e->txtParameter->text(), QString(""));
}

TEST_F(OptionEditor, DecimalRangeWhoseEndsRoundAlikeIsNotSwapped) {
    auto* e = edit(false, 5);
    typeInto(e->txtParameter, "1.4:1.2");
    QTest::keyClick(e->txtParameter, Qt::Key_Tab);
    settle();
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(e->txtParameter->text(), QString("1.4:1.2"));
}

TEST_F(OptionEditor, FolderFlagIsNormalisedWhenTheFieldLosesFocus) {
    auto* e = edit(true, 0);
    selectType(11);
    const std::vector<std::pair<QString, QString>> cases = {{"yes", "1"}, {"True", "1"}, {"ok", "1"},
                                                            {"-1", "1"},  {"1", "1"},    {"nope", "0"},
                                                            {"", "0"},    {"2", "0"}};
    for (const auto& [typed, stored] : cases) {
        typeInto(e->txtParameter, typed);
        QTest::keyClick(e->txtParameter, Qt::Key_Tab);
        settle();
        EXPECT_EQ(e->txtParameter->text(), stored) << typed.toStdString();
    }
    EXPECT_TRUE(prompts.calls().empty());
}

TEST_F(OptionEditor, ParameterButtonOfAFolderAsksAboutTheTrailingSlash) {
    auto* e = edit(true, 0);
    selectType(11);
    prompts.answer(PromptAnswer::Yes);
    click(e->cmdParameter);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Include trailing slash in pathname returned?"));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNo);
    EXPECT_EQ(e->txtParameter->text(), QString("1"));
    prompts.answer(PromptAnswer::No);
    click(e->cmdParameter);
    EXPECT_EQ(e->txtParameter->text(), QString("0"));
}

TEST_F(OptionEditor, ParameterButtonOfANumberOpensTheRangeDialogOnTheField) {
    auto* e = edit(false, 5);
    QString title, min, max;
    ModalDriver driver([&](QDialog* d) {
        auto* range = qobject_cast<frmNumberRange*>(d);
        ASSERT_NE(range, nullptr);
        title = range->windowTitle();
        min = range->txtMin->text();
        max = range->txtmax->text();
        typeInto(range->txtmax, "32");
        click(range->cmdOK);
    });
    click(e->cmdParameter);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(title, QString("Number Range"));
    EXPECT_EQ(min, QString("0"));
    EXPECT_EQ(max, QString("16"));
    EXPECT_EQ(e->txtParameter->text(), QString("0:32"));
}

TEST_F(OptionEditor, ParameterButtonOfAValueListOpensTheGamesValueLists) {
    auto* e = edit(false, 3);
    QString title;
    QStringList offered;
    ModalDriver driver([&](QDialog* d) {
        auto* chooser = qobject_cast<frmChooseList*>(d);
        ASSERT_NE(chooser, nullptr);
        title = chooser->windowTitle();
        for (int i = 0; i < chooser->File1->count(); ++i)
            offered << chooser->File1->item(i)->text();
        chooser->File1->setCurrentRow(1);
        click(chooser->cmdOK);
    });
    click(e->cmdParameter);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(title, QString("Choose a Quake2 Value List"));
    EXPECT_EQ(offered, (QStringList{"skill.val", "weapons.val"}));
    EXPECT_EQ(e->txtParameter->text(), QString("weapons.val"));
}

TEST_F(OptionEditor, ParameterButtonOfAWeaponListAlsoOffersValueLists) {
    auto* e = edit(true, 0);
    selectType(5);
    QString title;
    ModalDriver driver([&](QDialog* d) {
        title = d->windowTitle();
        d->reject();
    });
    click(e->cmdParameter);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(title, QString("Choose a Quake2 Value List"));
}

TEST_F(OptionEditor, ParameterButtonOfATextListOffersTextLists) {
    auto* e = edit(true, 0);
    selectType(6);
    QString title;
    ModalDriver driver([&](QDialog* d) {
        auto* chooser = qobject_cast<frmChooseList*>(d);
        title = chooser->windowTitle();
        ASSERT_EQ(chooser->File1->count(), 1);
        const QRect rect = chooser->File1->visualItemRect(chooser->File1->item(0));
        QTest::mouseClick(chooser->File1->viewport(), Qt::LeftButton, {}, rect.center());
        QTest::mouseDClick(chooser->File1->viewport(), Qt::LeftButton, {}, rect.center());
    });
    click(e->cmdParameter);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(title, QString("Choose a Quake2 Text List"));
    EXPECT_EQ(e->txtParameter->text(), QString("maps.lst"));
}

TEST_F(OptionEditor, BothSyntaxButtonsPickACategoryIntoTheCheckedField) {
    auto* e = edit(true, 0);
    selectType(9);
    for (int button = 0; button < 2; ++button) {
        QString title;
        QStringList offered;
        ModalDriver driver([&](QDialog* d) {
            auto* picker = qobject_cast<frmPickFromLV*>(d);
            ASSERT_NE(picker, nullptr);
            title = picker->windowTitle();
            for (int i = 0; i < picker->List1->count(); ++i)
                offered << picker->List1->item(i)->text();
            picker->List1->setCurrentRow(button);
            click(picker->cmdOK);
        });
        click(e->cmdSyntax[static_cast<std::size_t>(button)]);
        ASSERT_TRUE(driver.acted());
        EXPECT_EQ(title, QString("Choose Category to Enable"));
        EXPECT_EQ(offered, (QStringList{"Game Play", "Bots"}));
        EXPECT_EQ(e->txtChecked->text(), button == 0 ? QString("Game Play") : QString("Bots"));
        EXPECT_EQ(e->txtUnchecked->text(), QString(""));
    }
}

TEST_F(OptionEditor, SwitchingFromValueListToCheckboxHidesTheParameterButKeepsItsText) {
    auto* e = edit(false, 3);
    ASSERT_TRUE(e->txtParameter->isVisible());
    selectType(0);
    EXPECT_FALSE(e->txtParameter->isVisible());
    EXPECT_TRUE(e->lblNoParam->isVisible());
    EXPECT_EQ(e->txtParameter->text(), QString("skill.val"));
    auto expected = kSample;
    expected[5] = "0";
    EXPECT_EQ(saved(), crlf(expected));
}

TEST_F(OptionEditor, OKWritesEveryFieldIntoTheRow) {
    auto* e = edit(false, 2);
    typeInto(e->txtName, "Death Match");
    typeInto(e->txtKey, "DM");
    typeInto(e->txtChecked, "+set deathmatch 1 ");
    typeInto(e->txtUnchecked, "");
    typeInto(e->txtHelp, "Everybody against everybody");
    selectType(1);
    clickChoice(e->optWhere[2]);
    auto expected = kSample;
    expected[1] = "Death Match";
    expected[2] = "1";
    expected[3] = "DM\t\t+set deathmatch 1 \t\t2\tEverybody against everybody";
    EXPECT_EQ(saved(), crlf(expected));
}

TEST_F(OptionEditor, NewRowIsInsertedAtItsIndex) {
    auto* e = edit(true, 2);
    QTest::keyClicks(e->txtName, "Co-op");
    QTest::keyClick(e->txtName, Qt::Key_Tab);
    settle();
    typeInto(e->txtChecked, "+set coop 1");
    clickChoice(e->optWhere[1]);
    EXPECT_EQ(saved(), crlf(withRow(kSample, 1, {"Co-op", "0", "Co-op\t\t+set coop 1\t\t1\t"})));
}

TEST_F(OptionEditor, CancelLeavesTheListAsItWas) {
    auto* e = edit(false, 3);
    typeInto(e->txtName, "Changed");
    selectType(2);
    click(e->cmdCancel);
    EXPECT_FALSE(e->isVisible());
    EXPECT_EQ(list->lvOptions->topLevelItem(2)->text(0), QString("Skill"));
    list->cmdOK_Click();
    EXPECT_EQ(ws.read(kFile), crlf(kSample));
}

TEST_F(OptionEditor, RowWithAnUnknownTypeOrWhereKeepsThemOnOK) {
    ws.writeLines(kFile, {"Odd", "x", "Odd\tp\ton\toff\t7\thelp"});
    list = std::make_unique<frmOptions>(ws.path(kFile), "Quake2", ws.root());
    auto* e = edit(false, 1);
    EXPECT_EQ(e->cboType->currentIndex(), -1);
    for (QRadioButton* where : e->optWhere)
        EXPECT_FALSE(where->isChecked());
    EXPECT_EQ(saved(), crlf({"Odd", "x", "Odd\tp\ton\toff\t7\thelp"}));
}

TEST_F(OptionEditor, F2OpensTheZoomEditorWithEachFieldsTitle) {
    auto* e = edit(false, 5);
    const std::vector<std::pair<QLineEdit*, QString>> fields = {{e->txtName, "Option Name"},
                                                                {e->txtChecked, "Checked Value"},
                                                                {e->txtUnchecked, "Unchecked Value"},
                                                                {e->txtHelp, "Help Text"},
                                                                {e->txtParameter, "Number Range"}};
    for (const auto& [field, title] : fields) {
        QString caption, shown;
        ModalDriver driver([&](QDialog* d) {
            caption = d->windowTitle();
            shown = d->findChild<QPlainTextEdit*>("txtText")->toPlainText();
            d->reject();
        });
        field->setFocus();
        QTest::keyClick(field, Qt::Key_F2);
        ASSERT_TRUE(driver.acted()) << title.toStdString();
        EXPECT_EQ(caption, title);
        EXPECT_EQ(shown, field->text());
    }
    EXPECT_TRUE(prompts.calls().empty()); // the zoom editor taking the focus is no focus change here
}

TEST_F(OptionEditor, ZoomedNameComesBackIntoTheField) {
    auto* e = edit(true, 0);
    ModalDriver driver([&](QDialog* d) {
        auto* zoom = qobject_cast<frmZoom*>(d);
        QTest::keyClicks(zoom->txtText, "Long Name");
        click(zoom->cmdOK);
    });
    QTest::keyClick(e->txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(e->txtName->text(), QString("Long Name"));
}

} // namespace option_editor_test
