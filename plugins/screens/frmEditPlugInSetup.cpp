#include "plugins/screens/frmEditPlugInSetup.h"

#include "core/conversions.h"
#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/listhelpers.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/scrollstep.h"
#include "core/screens/userfont.h"
#include "core/screens/zoomtextbox.h"
#include "core/steprunner.h"
#include "core/text.h"
#include "core/workspace.h"
#include "games/gamelist.h"
#include "games/screens/frmEditGame.h"
#include "plugins/screens/frmEditAutoWiz.h"
#include "plugins/setupfiles.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace rd {

namespace {

const char* const kAutoExecCaptions[] = {"Copy File (as above)", "Add to LAUNCHER.CFG", "Add to TW.CFG"};
const char* const kChatCaptions[] = {"None", "Eraser-style Bot File",
                                     "Individual Text Files (see list on right)"};
const char* const kSkillCaptions[] = {"Use Built-in Eraser Skills", "Use Skills List (Left)"};
const char* const kBotConfigCaptions[] = {"Save in Eraser Format", "Use Bot Template"};
const char* const kFolderChoices[] = {"Bot Path", "Game Path", "Maps Path"};

// The index of the AutoExec file's row among the copied files.
constexpr int kAutoExecRow = 3;

QLabel* makeLabel(QWidget* parent, const char* name, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

QLineEdit* makeTextBox(QWidget* parent, const QString& name) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    return box;
}

// An option group's buttons, named name_0, name_1, ... with the given captions, placed in `layout`.
template <std::size_t N>
QButtonGroup* makeOptions(QWidget* parent, const char* name, const char* const (&captions)[N],
                          std::array<QRadioButton*, N>& buttons, QBoxLayout* layout) {
    auto* group = new QButtonGroup(parent);
    for (std::size_t i = 0; i < N; ++i) {
        buttons[i] = new QRadioButton(QString::fromLatin1(captions[i]), parent);
        buttons[i]->setObjectName(QStringLiteral("%1_%2").arg(QString::fromLatin1(name)).arg(i));
        group->addButton(buttons[i], static_cast<int>(i));
        layout->addWidget(buttons[i]);
    }
    return group;
}

template <std::size_t N> int checkedIndex(const std::array<QRadioButton*, N>& buttons) {
    for (std::size_t i = 0; i < N; ++i) {
        if (buttons[i]->isChecked())
            return static_cast<int>(i);
    }
    return -1;
}

template <std::size_t N> void checkIndex(std::array<QRadioButton*, N>& buttons, int index) {
    if (index >= 0 && index < static_cast<int>(N))
        buttons[static_cast<std::size_t>(index)]->setChecked(true);
}

QStringList entries(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

// The selected entry's row of a single-selection list, -1 when nothing is selected.
int selectedRow(const QListWidget* list) {
    const QListWidgetItem* current = list->currentItem();
    return current && current->isSelected() ? list->row(current) : -1;
}

} // namespace

void EditPlugInSetup(QWidget* owner, const std::filesystem::path& root, const std::string& bot) {
    frmEditPlugInSetup editor(root, bot, owner);
    editor.exec();
}

frmEditPlugInSetup::frmEditPlugInSetup(std::filesystem::path root, std::string plugInName, QWidget* owner)
    : QDialog(owner), root_(std::move(root)), plugInName_(std::move(plugInName)) {
    setObjectName(QStringLiteral("frmEditPlugInSetup"));
    setWindowTitle(QStringLiteral("Edit Bot Plug-In Setup"));
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    lblEditing = makeLabel(this, "lblEditing", QStringLiteral("Editing Plug-In Bot"));
    lblPlugInName = makeLabel(this, "lblPlugInName", QString());
    QFont nameFont = lblPlugInName->font();
    nameFont.setBold(true);
    lblPlugInName->setFont(nameFont);
    lblPlugInName->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* heading = new QHBoxLayout;
    heading->addWidget(lblEditing);
    heading->addWidget(lblPlugInName, 1);

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    auto* pathsPage = new QWidget(SSTab1);
    auto* copyingPage = new QWidget(SSTab1);
    auto* chatPage = new QWidget(SSTab1);
    auto* skillsPage = new QWidget(SSTab1);
    buildPathsTab(pathsPage);
    buildCopyingTab(copyingPage);
    buildChatTab(chatPage);
    buildSkillsTab(skillsPage);
    SSTab1->addTab(pathsPage, QStringLiteral("&Paths and Files"));
    SSTab1->addTab(copyingPage, QStringLiteral("&File Copying"));
    SSTab1->addTab(chatPage, QStringLiteral("&Chat and AutoExec"));
    SSTab1->addTab(skillsPage, QStringLiteral("&Skill Levels"));

    QHBoxLayout* closing = okCancelRow(this, cmdOK, Cancel);
    Cancel->setObjectName(QStringLiteral("Cancel"));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(heading);
    layout->addWidget(SSTab1, 1);
    layout->addLayout(closing);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setSingleShot(true);
    Timer1->setInterval(1);
    connect(Timer1, &QTimer::timeout, this, &QDialog::close);

    connect(cmdOK, &QPushButton::clicked, this, &frmEditPlugInSetup::cmdOK_Click);
    connect(Cancel, &QPushButton::clicked, this, &frmEditPlugInSetup::Cancel_Click);

    // Every text box opens the text zoom editor on F2.
    for (QLineEdit* box : {txtBotFolder, txtRouteFolder, txtRouteFilter, txtExtraModelDir, txtReadme,
                           txtDefaultSkin, txtStartArena, txtStartSkill})
        giveZoomKey(box);
    for (QLineEdit* box : txtFile)
        giveZoomKey(box);

    Form_Load();
}

void frmEditPlugInSetup::buildPathsTab(QWidget* page) {
    fraPaths = new QGroupBox(QStringLiteral("Paths"), page);
    fraPaths->setObjectName(QStringLiteral("fraPaths"));
    lblGame = makeLabel(fraPaths, "lblGame", QStringLiteral("Which Game?"));
    cboGame = new QComboBox(fraPaths);
    cboGame->setObjectName(QStringLiteral("cboGame"));
    // The game saved is the name typed: no completion to a longer game name of the list.
    makeTypedOnly(cboGame);
    lblGame->setBuddy(cboGame);
    cmdEditGame = makeButton(fraPaths, "cmdEditGame", QStringLiteral("&Edit"));
    cmdEditGame->setToolTip(QStringLiteral("Edit this game's paths"));
    connect(cmdEditGame, &QPushButton::clicked, this, &frmEditPlugInSetup::cmdEditGame_Click);

    auto* grid = new QGridLayout(fraPaths);
    grid->addWidget(lblGame, 0, 0);
    grid->addWidget(cboGame, 0, 1);
    grid->addWidget(cmdEditGame, 0, 2);
    const struct {
        QLabel*& label;
        QLineEdit*& box;
        const char* labelName;
        const char* boxName;
        const char* caption;
    } rows[] = {
        {lblBotFolder, txtBotFolder, "lblBotFolder", "txtBotFolder", "Bot Sub-Folder"},
        {lblRouteFolder, txtRouteFolder, "lblRouteFolder", "txtRouteFolder", "Map Routes Sub-Folder:"},
        {lblRouteFilter, txtRouteFilter, "lblRouteFilter", "txtRouteFilter", "Map Routes Filter:"},
        {lblExtraModelDir, txtExtraModelDir, "lblExtraModelDir", "txtExtraModelDir", "Special Skins Folder:"},
        {lblReadme, txtReadme, "lblReadme", "txtReadme", "Name of ReadMe File:"},
        {lblDefaultSkin, txtDefaultSkin, "lblDefaultSkin", "txtDefaultSkin", "Default Model/Skin:"},
    };
    int row = 1;
    for (const auto& r : rows) {
        r.label = makeLabel(fraPaths, r.labelName, QString::fromLatin1(r.caption));
        r.box = makeTextBox(fraPaths, QString::fromLatin1(r.boxName));
        r.label->setBuddy(r.box);
        grid->addWidget(r.label, row, 0);
        grid->addWidget(r.box, row, 1, 1, 2);
        ++row;
    }
    grid->setColumnStretch(1, 1);

    fraArena = new QGroupBox(QStringLiteral("Arena Support"), page);
    fraArena->setObjectName(QStringLiteral("fraArena"));
    chkUseArena = new QCheckBox(QStringLiteral("Bot Uses Arenas?"), fraArena);
    chkUseArena->setObjectName(QStringLiteral("chkUseArena"));
    lblStartArena = makeLabel(fraArena, "lblStartArena", QStringLiteral("Start at Arena Number:"));
    txtStartArena = makeTextBox(fraArena, QStringLiteral("txtStartArena"));
    txtStartArena->setMaximumWidth(txtStartArena->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) +
                                   12);
    lblStartArena->setBuddy(txtStartArena);
    scrlStartArena = new QScrollBar(Qt::Vertical, fraArena);
    scrlStartArena->setObjectName(QStringLiteral("scrlStartArena"));
    scrlStartArena->setAccessibleName(QStringLiteral("Start at Arena Number up or down"));
    scrlStartArena->setFixedHeight(txtStartArena->sizeHint().height());
    giveSpinControl(scrlStartArena, txtStartArena, kFirstArena, kLastArena);
    connect(chkUseArena, &QCheckBox::toggled, this, &frmEditPlugInSetup::updateStates);

    auto* arenaRow = new QHBoxLayout;
    arenaRow->addWidget(chkUseArena);
    arenaRow->addSpacing(24);
    arenaRow->addWidget(lblStartArena);
    arenaRow->addWidget(txtStartArena);
    arenaRow->addWidget(scrlStartArena);
    arenaRow->addStretch(1);
    auto* arenaLayout = new QVBoxLayout(fraArena);
    arenaLayout->addLayout(arenaRow);

    auto* layout = new QVBoxLayout(page);
    layout->addWidget(fraPaths);
    layout->addWidget(fraArena);
    layout->addStretch(1);
}

void frmEditPlugInSetup::buildCopyingTab(QWidget* page) {
    fraCopied = new QGroupBox(QStringLiteral("Where the Files are Copied to:"), page);
    fraCopied->setObjectName(QStringLiteral("fraCopied"));
    auto* grid = new QGridLayout(fraCopied);
    for (int i = 0; i < kCopiedFileCount; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const QString role = QString::fromLatin1(kCopiedFileRoles[i]);
        lblFile[at] = new QLabel(role, fraCopied);
        lblFile[at]->setObjectName(QStringLiteral("lblFile_%1").arg(i));
        cboFolder[at] = new QComboBox(fraCopied);
        cboFolder[at]->setObjectName(QStringLiteral("cboFolder_%1").arg(i));
        for (const char* choice : kFolderChoices)
            cboFolder[at]->addItem(QString::fromLatin1(choice));
        lblFile[at]->setBuddy(cboFolder[at]);
        txtFile[at] = makeTextBox(fraCopied, QStringLiteral("txtFile_%1").arg(i));
        QString plainRole = role;
        if (plainRole.endsWith(QLatin1Char(':')))
            plainRole.chop(1);
        txtFile[at]->setAccessibleName(plainRole + QStringLiteral(" file name"));
        grid->addWidget(lblFile[at], i, 0);
        grid->addWidget(cboFolder[at], i, 1);
        grid->addWidget(txtFile[at], i, 2);
    }
    grid->setColumnStretch(2, 1);

    fraAutoExec = new QGroupBox(QStringLiteral("AutoExec File"), page);
    fraAutoExec->setObjectName(QStringLiteral("fraAutoExec"));
    auto* autoExecLayout = new QVBoxLayout(fraAutoExec);
    QButtonGroup* autoExec =
        makeOptions(fraAutoExec, "optAutoExec", kAutoExecCaptions, optAutoExec, autoExecLayout);
    autoExecLayout->addStretch(1);
    connect(autoExec, &QButtonGroup::idToggled, this, &frmEditPlugInSetup::updateStates);

    fraBotConfig = new QGroupBox(QStringLiteral("Bot Config File"), page);
    fraBotConfig->setObjectName(QStringLiteral("fraBotConfig"));
    auto* botConfigLayout = new QVBoxLayout(fraBotConfig);
    makeOptions(fraBotConfig, "optBotConfig", kBotConfigCaptions, optBotConfig, botConfigLayout);
    botConfigLayout->addStretch(1);

    auto* choices = new QHBoxLayout;
    choices->addWidget(fraAutoExec, 1);
    choices->addWidget(fraBotConfig, 1);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(fraCopied);
    layout->addLayout(choices);
    layout->addStretch(1);
}

void frmEditPlugInSetup::buildChatTab(QWidget* page) {
    fraChat = new QGroupBox(QStringLiteral("Bot Chat"), page);
    fraChat->setObjectName(QStringLiteral("fraChat"));
    auto* options = new QVBoxLayout;
    QButtonGroup* chat = makeOptions(fraChat, "optChat", kChatCaptions, optChat, options);
    options->addStretch(1);
    connect(chat, &QButtonGroup::idToggled, this, &frmEditPlugInSetup::updateStates);

    lstChatfiles = new QListWidget(fraChat);
    lstChatfiles->setObjectName(QStringLiteral("lstChatfiles"));
    lstChatfiles->setAccessibleName(QStringLiteral("Chat files"));
    lstChatfiles->setSelectionMode(QAbstractItemView::SingleSelection);
    lstChatfiles->installEventFilter(this);
    cmdAddChat = makeButton(fraChat, "cmdAddChat", QStringLiteral("Add"));
    cmdDeleteChat = makeButton(fraChat, "cmdDeleteChat", QStringLiteral("Delete"));
    connect(cmdAddChat, &QPushButton::clicked, this, &frmEditPlugInSetup::cmdAddChat_Click);
    connect(cmdDeleteChat, &QPushButton::clicked, this, &frmEditPlugInSetup::cmdDeleteChat_Click);
    auto* chatButtons = new QHBoxLayout;
    chatButtons->addWidget(cmdAddChat);
    chatButtons->addWidget(cmdDeleteChat);
    chatButtons->addStretch(1);
    auto* listColumn = new QVBoxLayout;
    listColumn->addWidget(lstChatfiles, 1);
    listColumn->addLayout(chatButtons);

    auto* chatLayout = new QHBoxLayout(fraChat);
    chatLayout->addLayout(options);
    chatLayout->addLayout(listColumn, 1);

    cmdAutoWiz = makeButton(page, "cmdAutoWiz", QStringLiteral("Edit AutoE&xec Wizard Commands"));
    connect(cmdAutoWiz, &QPushButton::clicked, this, &frmEditPlugInSetup::cmdAutoWiz_Click);
    lblAutoWizNote =
        makeLabel(page, "lblAutoWizNote",
                  QStringLiteral("To add scripts to the wizard, copy them into the main Tarnwick "
                                 "program folder with the file extension \".SPT\""));
    lblAutoWizNote->setWordWrap(true);
    auto* wizardRow = new QHBoxLayout;
    wizardRow->addWidget(cmdAutoWiz, 0, Qt::AlignTop);
    wizardRow->addWidget(lblAutoWizNote, 1);

    auto* layout = new QVBoxLayout(page);
    layout->addWidget(fraChat, 1);
    layout->addLayout(wizardRow);
}

void frmEditPlugInSetup::buildSkillsTab(QWidget* page) {
    fraSkills = new QGroupBox(QStringLiteral("Skill Levels"), page);
    fraSkills->setObjectName(QStringLiteral("fraSkills"));

    lstSkills = new QListWidget(fraSkills);
    lstSkills->setObjectName(QStringLiteral("lstSkills"));
    lstSkills->setAccessibleName(QStringLiteral("Skill levels"));
    lstSkills->setSelectionMode(QAbstractItemView::SingleSelection);
    lstSkills->installEventFilter(this);
    giveMoveKeys(lstSkills);
    connect(lstSkills, &QListWidget::itemDoubleClicked, this, &frmEditPlugInSetup::lstSkills_DblClick);

    cmdAddSkill = makeButton(fraSkills, "cmdAddSkill", QStringLiteral("&Add"));
    cmdRemoveSkill = makeButton(fraSkills, "cmdRemoveSkill", QStringLiteral("&Remove"));
    cmdMoveSkillUP = makeButton(fraSkills, "cmdMoveSkillUP", QStringLiteral("Move &Up"));
    cmdMoveSkillDown = makeButton(fraSkills, "cmdMoveSkillDown", QStringLiteral("Move &Down"));
    connect(cmdAddSkill, &QPushButton::clicked, this, &frmEditPlugInSetup::cmdAddSkill_Click);
    connect(cmdRemoveSkill, &QPushButton::clicked, this, &frmEditPlugInSetup::cmdRemoveSkill_Click);
    connect(cmdMoveSkillUP, &QPushButton::clicked, this, &frmEditPlugInSetup::cmdMoveSkillUP_Click);
    connect(cmdMoveSkillDown, &QPushButton::clicked, this, &frmEditPlugInSetup::cmdMoveSkillDown_Click);
    auto* skillButtons = new QGridLayout;
    skillButtons->addWidget(cmdAddSkill, 0, 0);
    skillButtons->addWidget(cmdRemoveSkill, 0, 1);
    skillButtons->addWidget(cmdMoveSkillUP, 1, 0);
    skillButtons->addWidget(cmdMoveSkillDown, 1, 1);
    auto* listColumn = new QVBoxLayout;
    listColumn->addWidget(lstSkills, 1);
    listColumn->addLayout(skillButtons);

    auto* options = new QVBoxLayout;
    QButtonGroup* skills = makeOptions(fraSkills, "optSkills", kSkillCaptions, optSkills, options);
    connect(skills, &QButtonGroup::idClicked, this, &frmEditPlugInSetup::optSkills_Click);
    lblStartSkill =
        makeLabel(fraSkills, "lblStartSkill", QStringLiteral("First skill in list is skill level"));
    txtStartSkill = makeTextBox(fraSkills, QStringLiteral("txtStartSkill"));
    txtStartSkill->setMaximumWidth(txtStartSkill->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) +
                                   12);
    lblStartSkill->setBuddy(txtStartSkill);
    txtStartSkill->installEventFilter(this);
    auto* startRow = new QHBoxLayout;
    startRow->addWidget(lblStartSkill);
    startRow->addWidget(txtStartSkill);
    startRow->addStretch(1);
    options->addSpacing(12);
    options->addLayout(startRow);
    options->addStretch(1);

    auto* skillsLayout = new QHBoxLayout(fraSkills);
    skillsLayout->addLayout(listColumn, 1);
    skillsLayout->addLayout(options, 1);

    auto* layout = new QVBoxLayout(page);
    layout->addWidget(fraSkills, 1);
}

void frmEditPlugInSetup::Form_Load() {
    applyUserFont(this);
    lblPlugInName->setText(fromBytes(plugInName_));
    const std::filesystem::path folder = pluginFolder(root_, plugInName_);
    if (!folderExists(folder)) {
        // Nothing to edit: the screen says so once it is shown, then closes itself.
        tag_ = QStringLiteral("UNLOAD");
        showSetup(PluginSetup{});
        return;
    }
    // Every file and every field of Setup.cfg is a step: Ignore goes on with the next field.
    StepRunner trap(screenTrap(this, QStringLiteral("Loading Bot Plug-In Setup")));
    showSetup(LoadPluginSetup(folder, trap).value_or(PluginSetup{}));
}

void frmEditPlugInSetup::showSetup(const PluginSetup& setup) {
    // Filled before the game's name is put in, so the name stays in the box even when it names
    // no game folder.
    StepRunner trap(screenTrap(this, QStringLiteral("Loading Bot Plug-In Setup")));
    std::vector<std::string> games;
    if (tag_.isEmpty())
        trap.step([&] { games = ListGames(root_); });
    cboGame->clear();
    cboGame->addItems(fromBytesList(games));
    const QString game = fromBytes(setup.game);
    cboGame->setCurrentIndex(cboGame->findText(game, Qt::MatchExactly));
    cboGame->setEditText(game);

    txtBotFolder->setText(fromBytes(setup.botFolder));
    txtRouteFolder->setText(fromBytes(setup.routeFolder));
    txtRouteFilter->setText(fromBytes(setup.routeFilter));
    txtExtraModelDir->setText(fromBytes(setup.skinsFolder));
    txtReadme->setText(fromBytes(setup.readme));
    txtDefaultSkin->setText(fromBytes(setup.defaultSkin));
    for (std::size_t i = 0; i < txtFile.size(); ++i) {
        cboFolder[i]->setCurrentIndex(
            setup.files[i].folder >= 0 && setup.files[i].folder <= 2 ? setup.files[i].folder : -1);
        txtFile[i]->setText(fromBytes(setup.files[i].name));
    }
    checkIndex(optAutoExec, setup.autoExec);
    checkIndex(optChat, setup.chat);
    // A bot config line that could not be read shows the choice a save writes for it.
    checkIndex(optBotConfig, setup.botConfig.value_or(0));
    chkUseArena->setChecked(setup.usesArenas);
    txtStartArena->setText(fromBytes(setup.startArena));

    lstChatfiles->clear();
    lstChatfiles->addItems(fromBytesList(setup.chatFiles));
    lstSkills->clear();
    lstSkills->addItems(fromBytesList(setup.skills));
    txtStartSkill->setText(fromBytes(setup.startSkill));
    checkIndex(optSkills, setup.skillHandling);
    updateStates();
}

PluginSetup frmEditPlugInSetup::setupShown() const {
    PluginSetup setup;
    setup.game = toBytes(cboGame->currentText());
    setup.botFolder = toBytes(txtBotFolder->text());
    for (std::size_t i = 0; i < txtFile.size(); ++i) {
        setup.files[i].folder = cboFolder[i]->currentIndex();
        setup.files[i].name = toBytes(txtFile[i]->text());
    }
    setup.autoExec = std::max(0, checkedIndex(optAutoExec));
    setup.chat = checkedIndex(optChat);
    setup.routeFolder = toBytes(txtRouteFolder->text());
    setup.routeFilter = toBytes(txtRouteFilter->text());
    setup.skinsFolder = toBytes(txtExtraModelDir->text());
    setup.readme = toBytes(txtReadme->text());
    setup.defaultSkin = toBytes(txtDefaultSkin->text());
    if (const int botConfig = checkedIndex(optBotConfig); botConfig >= 0)
        setup.botConfig = botConfig;
    setup.usesArenas = chkUseArena->isChecked();
    setup.startArena = toBytes(txtStartArena->text());
    setup.chatFiles = toBytesList(entries(lstChatfiles));
    setup.startSkill = toBytes(txtStartSkill->text());
    setup.skills = toBytesList(entries(lstSkills));
    setup.skillHandling = std::max(0, checkedIndex(optSkills));
    return setup;
}

void frmEditPlugInSetup::updateStates() {
    const bool chatFiles = optChat[2]->isChecked();
    lstChatfiles->setEnabled(chatFiles);
    cmdAddChat->setEnabled(chatFiles);
    cmdDeleteChat->setEnabled(chatFiles);
    const bool copyAutoExec = optAutoExec[0]->isChecked();
    cboFolder[kAutoExecRow]->setEnabled(copyAutoExec);
    txtFile[kAutoExecRow]->setEnabled(copyAutoExec);
    lblFile[kAutoExecRow]->setEnabled(copyAutoExec);
    const bool arenas = chkUseArena->isChecked();
    lblStartArena->setVisible(arenas);
    txtStartArena->setVisible(arenas);
    scrlStartArena->setVisible(arenas);
}

void frmEditPlugInSetup::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!shownOnce_) {
        shownOnce_ = true;
        if (tag_ == QStringLiteral("UNLOAD"))
            QTimer::singleShot(0, this, &frmEditPlugInSetup::reportMissingFolder);
    }
}

void frmEditPlugInSetup::reportMissingFolder() {
    showMessage(this, fromBytes(std::string(kCouldNotFind) + plugInName_), PromptIcon::Exclamation);
    Timer1->start();
}

void frmEditPlugInSetup::cmdOK_Click() {
    StepRunner trap(screenTrap(this, QStringLiteral("Saving Bot Plug-In Setup")));
    SavePluginSetup(pluginFolder(root_, plugInName_), setupShown(), trap);
    // After Abort the editor stays open, so the edits are not lost.
    if (!trap.aborted())
        accept();
}

void frmEditPlugInSetup::Cancel_Click() {
    reject();
}

void frmEditPlugInSetup::cmdAutoWiz_Click() {
    EditAutoWiz(this, root_, plugInName_);
}

void frmEditPlugInSetup::cmdEditGame_Click() {
    // The game named in the box, whether chosen from the list or typed.
    EditGame(this, root_, toBytes(cboGame->currentText()));
}

void frmEditPlugInSetup::cmdAddChat_Click() {
    const std::optional<QString> answer =
        askInput(this, QStringLiteral("Type in the name of a chat file to add"), kProgramTitle);
    if (!answer || answer->isEmpty())
        return;
    const std::string wanted = toBytes(*answer);
    for (int i = 0; i < lstChatfiles->count(); ++i) {
        if (equalsNoCase(toBytes(lstChatfiles->item(i)->text()), wanted)) {
            showMessage(this, QStringLiteral("Chat file is already in the list!"), PromptIcon::Exclamation);
            return;
        }
    }
    lstChatfiles->addItem(*answer);
}

void frmEditPlugInSetup::cmdDeleteChat_Click() {
    const int row = selectedRow(lstChatfiles);
    if (row >= 0)
        delete lstChatfiles->takeItem(row);
}

void frmEditPlugInSetup::cmdAddSkill_Click() {
    const std::optional<QString> answer =
        askInput(this, QStringLiteral("Type in the name of the skill level to add here:"), kProgramTitle);
    if (!answer || answer->isEmpty())
        return;
    // After the selected entry; with the first entry or nothing selected, at the end.
    const int row = selectedRow(lstSkills);
    if (row > 0)
        lstSkills->insertItem(row + 1, *answer);
    else
        lstSkills->addItem(*answer);
}

void frmEditPlugInSetup::cmdRemoveSkill_Click() {
    const int row = selectedRow(lstSkills);
    if (row >= 0)
        delete lstSkills->takeItem(row);
}

void frmEditPlugInSetup::cmdMoveSkillUP_Click() {
    moveSelectedEntryUp(lstSkills);
}

void frmEditPlugInSetup::cmdMoveSkillDown_Click() {
    moveSelectedEntryDown(lstSkills);
}

void frmEditPlugInSetup::lstSkills_DblClick() {
    QListWidgetItem* entry = lstSkills->currentItem();
    if (!entry)
        return;
    const std::optional<QString> answer = askInput(
        this, QStringLiteral("Type in the new name for the skill level below"), kProgramTitle, entry->text());
    if (answer && !answer->isEmpty())
        entry->setText(*answer);
}

void frmEditPlugInSetup::optSkills_Click(int index) {
    if (index == 1 && lstSkills->count() == 0) {
        showMessage(this,
                    QStringLiteral("You can't - the skills list is empty.  Try adding in some skills first"),
                    PromptIcon::Exclamation);
        optSkills[0]->setChecked(true);
    }
}

void frmEditPlugInSetup::txtStartSkill_LostFocus() {
    if (!isNumeric(toBytes(txtStartSkill->text())))
        txtStartSkill->setText(QStringLiteral("0"));
}

bool frmEditPlugInSetup::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtStartSkill && event->type() == QEvent::FocusOut) {
        // Leaving the box for another control; a message box or menu taking over is no leaving.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            txtStartSkill_LostFocus();
    } else if (event->type() == QEvent::KeyPress && (watched == lstSkills || watched == lstChatfiles)) {
        // The list keys: Insert adds, Delete removes, Enter renames a skill level.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() != Qt::NoModifier && key->modifiers() != Qt::KeypadModifier)
            return QDialog::eventFilter(watched, event);
        const bool skills = watched == lstSkills;
        switch (key->key()) {
        case Qt::Key_Insert:
            skills ? cmdAddSkill_Click() : cmdAddChat_Click();
            return true;
        case Qt::Key_Delete:
            skills ? cmdRemoveSkill_Click() : cmdDeleteChat_Click();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (skills) {
                lstSkills_DblClick();
                return true;
            }
            break;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
