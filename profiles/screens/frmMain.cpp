#include "profiles/screens/frmMain.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/fatalerror.h"
#include "core/screens/help.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "core/workspace.h"
#include "definitions/screens/frmEditing.h"
#include "dialogs/frmRDabout.h"
#include "games/screens/frmGame.h"
#include "maps/screens/frmArenas.h"
#include "maps/screens/frmCustomMapEditor.h"
#include "models/screens/frmSex.h"
#include "plugins/screens/frmEditPlugInSetup.h"
#include "profiles/botcommands.h"
#include "profiles/profiles.h"
#include "profiles/screens/frmAddBot.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace rd {

namespace {

const char* const kReadyMark = "readyMark";

// The hourglass while a list is rebuilt; restored on every way out.
class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

// The selected entry of a single-selection list, or null when nothing is selected (an entry
// that only has the focus frame is not selected).
QListWidgetItem* selectedEntry(const QListWidget* list) {
    const QList<QListWidgetItem*> selected = list->selectedItems();
    return selected.isEmpty() ? nullptr : selected.first();
}

} // namespace

frmMain::frmMain(std::filesystem::path root, QWidget* parent) : QDialog(parent), root_(std::move(root)) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Roster Desk"));
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    lblRecognisedBots = new QLabel(QStringLiteral("Recognised Bots:"), this);
    lblRecognisedBots->setObjectName(QStringLiteral("lblRecognisedBots"));
    lstRecognisedBots = new QListWidget(this);
    lstRecognisedBots->setObjectName(QStringLiteral("lstRecognisedBots"));
    lstRecognisedBots->setSelectionMode(QAbstractItemView::SingleSelection);
    lblRecognisedBots->setBuddy(lstRecognisedBots);
    lstRecognisedBots->setAccessibleName(QStringLiteral("Recognised Bots"));

    lblProfiles = new QLabel(QStringLiteral("Available Profiles"), this);
    lblProfiles->setObjectName(QStringLiteral("lblProfiles"));
    lstProfiles = new QListWidget(this);
    lstProfiles->setObjectName(QStringLiteral("lstProfiles"));
    lstProfiles->setSelectionMode(QAbstractItemView::SingleSelection);
    lstProfiles->setProperty(kReadyMark, QString());
    lblProfiles->setBuddy(lstProfiles);
    lstProfiles->setAccessibleName(QStringLiteral("Available Profiles"));

    chkOnlyShow = new QCheckBox(QStringLiteral("Show profiles for selected bot only"), this);
    chkOnlyShow->setObjectName(QStringLiteral("chkOnlyShow"));

    cmdAddBot = makeButton(this, "cmdAddBot", QStringLiteral("&Add"));
    cmdEditBot = makeButton(this, "cmdEditBot", QStringLiteral("&Edit"));
    cmdDeleteBot = makeButton(this, "cmdDeleteBot", QStringLiteral("De&lete"));
    cmdRename = makeButton(this, "cmdRename", QStringLiteral("&Rename"));
    cmdDeleteProfile = makeButton(this, "cmdDeleteProfile", QStringLiteral("&Delete"));
    cmdGame = makeButton(this, "cmdGame", QStringLiteral("Edit &Game Paths"));
    cmdEditOptions = makeButton(this, "cmdEditOptions", QStringLiteral("Edit &Options"));
    cmdCustomMaps = makeButton(this, "cmdCustomMaps", QStringLiteral("Custom &Map Lists"));
    cmdEditArena = makeButton(this, "cmdEditArena", QStringLiteral("Edit Are&nas"));
    cmdLadies = makeButton(this, "cmdLadies", QStringLiteral("Se&x Editor"));
    cmdHelp = makeButton(this, "cmdHelp", QStringLiteral("&Help Index"));
    cmdAbout = makeButton(this, "cmdAbout", QStringLiteral("A&bout..."));
    cmdOK = makeButton(this, "cmdOK", QStringLiteral("&Quit"));

    // Layout: the two lists side by side with their buttons below; editors on the right.
    auto* botsBox = new QVBoxLayout;
    botsBox->addWidget(lblRecognisedBots);
    botsBox->addWidget(lstRecognisedBots, 1);
    auto* botButtons = new QHBoxLayout;
    botButtons->addWidget(cmdAddBot);
    botButtons->addWidget(cmdEditBot);
    botButtons->addWidget(cmdDeleteBot);
    botsBox->addLayout(botButtons);

    auto* profilesBox = new QVBoxLayout;
    profilesBox->addWidget(lblProfiles);
    profilesBox->addWidget(lstProfiles, 1);
    auto* profileButtons = new QHBoxLayout;
    profileButtons->addWidget(cmdRename);
    profileButtons->addWidget(cmdDeleteProfile);
    profilesBox->addLayout(profileButtons);

    auto* lists = new QHBoxLayout;
    lists->addLayout(botsBox, 1);
    lists->addLayout(profilesBox, 1);

    auto* left = new QVBoxLayout;
    left->addLayout(lists, 1);
    left->addWidget(chkOnlyShow);

    auto* editors = new QVBoxLayout;
    for (QPushButton* b : {cmdGame, cmdEditOptions, cmdCustomMaps, cmdEditArena, cmdLadies})
        editors->addWidget(b);
    editors->addStretch(1);
    for (QPushButton* b : {cmdHelp, cmdAbout, cmdOK})
        editors->addWidget(b);

    auto* top = new QHBoxLayout(this);
    top->addLayout(left, 1);
    top->addLayout(editors);

    connect(chkOnlyShow, &QCheckBox::clicked, this, &frmMain::chkOnlyShow_Click);
    // The bots list's Click is any change of its selection, by mouse or keyboard. (The current
    // row changes before a mouse click selects the entry, so the selection is what is followed.)
    connect(lstRecognisedBots, &QListWidget::itemSelectionChanged, this, &frmMain::lstRecognisedBots_Click);
    connect(lstRecognisedBots, &QListWidget::itemDoubleClicked, this, &frmMain::lstRecognisedBots_DblClick);
    connect(cmdAddBot, &QPushButton::clicked, this, &frmMain::cmdAddBot_Click);
    connect(cmdEditBot, &QPushButton::clicked, this, &frmMain::cmdEditBot_Click);
    connect(cmdDeleteBot, &QPushButton::clicked, this, &frmMain::cmdDeleteBot_Click);
    connect(cmdRename, &QPushButton::clicked, this, &frmMain::cmdRename_Click);
    connect(cmdDeleteProfile, &QPushButton::clicked, this, &frmMain::cmdDeleteProfile_Click);
    connect(cmdGame, &QPushButton::clicked, this, &frmMain::cmdGame_Click);
    connect(cmdEditOptions, &QPushButton::clicked, this, &frmMain::cmdEditOptions_Click);
    connect(cmdCustomMaps, &QPushButton::clicked, this, &frmMain::cmdCustomMaps_Click);
    connect(cmdEditArena, &QPushButton::clicked, this, &frmMain::cmdEditArena_Click);
    connect(cmdLadies, &QPushButton::clicked, this, &frmMain::cmdLadies_Click);
    connect(cmdHelp, &QPushButton::clicked, this, &frmMain::cmdHelp_Click);
    connect(cmdAbout, &QPushButton::clicked, this, &frmMain::cmdAbout_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmMain::cmdOK_Click);

    openAtTextSize(this, 106, 30);
    Form_Load();
}

QString frmMain::readyMark() const {
    return lstProfiles->property(kReadyMark).toString();
}

void frmMain::Form_Load() {
    StepRunner trap(screenTrap(this, QStringLiteral("Initialising Main Window")));
    trap.step([this] { applyUserFont(this); });
    trap.step([this] { GetProfileList(); });
    std::vector<std::string> bots;
    trap.step([&] { bots = listPluginBots(root_); });
    trap.step([&] {
        // One batch: a long list is not laid out again for every entry.
        const QSignalBlocker quiet(lstRecognisedBots);
        lstRecognisedBots->setUpdatesEnabled(false);
        lstRecognisedBots->addItems(fromBytesList(bots));
        lstRecognisedBots->setUpdatesEnabled(true);
    });
}

void frmMain::GetProfileList() {
    WaitCursor hourglass;
    lstProfiles->setProperty(kReadyMark, QString());
    lstProfiles->clear();

    StepRunner trap(screenTrap(this, QStringLiteral("Getting Profile List")));
    std::vector<std::string> names;
    trap.step([&] { names = listProfiles(root_); });

    const bool onlyShow = chkOnlyShow->isChecked();
    std::optional<std::string> selectedBot;
    if (QListWidgetItem* bot = selectedEntry(lstRecognisedBots))
        selectedBot = toBytes(bot->text());
    const auto reportOwnerError = [this](const std::string& description) {
        reportFailure(this, QStringLiteral("Loading Config File"), description,
                      QStringLiteral("Oh Lord, we have some problems..."));
    };
    QStringList shown;
    for (const auto& name : names) {
        trap.step([&] {
            if (profileShown(onlyShow, selectedBot,
                             [&] { return ReadProfileOwner(root_, name, reportOwnerError); }))
                shown.append(fromBytes(name));
        });
    }
    trap.step([&] {
        lstProfiles->setUpdatesEnabled(false);
        lstProfiles->addItems(shown);
        lstProfiles->setUpdatesEnabled(true);
    });
    trap.step([&] {
        if (lstProfiles->count() > 0)
            lstProfiles->setCurrentRow(0);
    });
    lstProfiles->setProperty(kReadyMark, QStringLiteral("OK"));
}

void frmMain::chkOnlyShow_Click() {
    GetProfileList();
}

void frmMain::lstRecognisedBots_Click() {
    if (chkOnlyShow->isChecked())
        GetProfileList();
}

void frmMain::lstRecognisedBots_DblClick() {
    // Double-clicking a bot does what the Edit button does.
    cmdEditBot->click();
}

void frmMain::cmdAddBot_Click() {
    AddBotDialog(this, root_, lstRecognisedBots);
}

void frmMain::cmdEditBot_Click() {
    QListWidgetItem* bot = selectedEntry(lstRecognisedBots);
    if (!bot)
        return;
    EditPlugInSetup(this, root_, toBytes(bot->text()));
}

// Delete bot, rename profile and delete profile have no error trap: a failure ends the program.
void frmMain::cmdDeleteBot_Click() {
    QListWidgetItem* bot = selectedEntry(lstRecognisedBots);
    if (!bot)
        return;
    if (showMessage(this, fromBytes(kDeleteBotQuestion), PromptIcon::Exclamation, bot->text(),
                    PromptButtons::YesNoCancel) != PromptAnswer::Yes)
        return;
    try {
        DeleteBot(root_, toBytes(bot->text()));
    } catch (const std::exception& e) {
        fatalError(this, e.what());
    }
    // Taking the entry away is no click on the list: the profile list stays as it is.
    const QSignalBlocker quiet(lstRecognisedBots);
    delete lstRecognisedBots->takeItem(lstRecognisedBots->row(bot));
    lstRecognisedBots->clearSelection();
}

void frmMain::cmdRename_Click() {
    QListWidgetItem* profile = selectedEntry(lstProfiles);
    if (!profile)
        return;
    const std::optional<QString> answer =
        askInput(this, fromBytes(kRenameProfilePrompt), fromBytes(kRenameProfileTitle), profile->text());
    if (!answer || answer->isEmpty())
        return;
    const std::string newName = toBytes(*answer);
    if (const auto refusal = refuseNewName(newName)) {
        showMessage(this, fromBytes(*refusal), PromptIcon::Exclamation);
        return;
    }
    try {
        RenameProfile(root_, toBytes(profile->text()), newName);
    } catch (const std::exception& e) {
        fatalError(this, e.what());
    }
    profile->setText(*answer);
}

void frmMain::cmdDeleteProfile_Click() {
    QListWidgetItem* profile = selectedEntry(lstProfiles);
    if (!profile)
        return;
    if (showMessage(this, fromBytes(kDeleteProfileQuestion), PromptIcon::Exclamation, profile->text(),
                    PromptButtons::YesNoCancel) != PromptAnswer::Yes)
        return;
    try {
        DeleteProfile(root_, toBytes(profile->text()));
    } catch (const std::exception& e) {
        fatalError(this, e.what());
    }
    delete lstProfiles->takeItem(lstProfiles->row(profile));
}

void frmMain::cmdGame_Click() {
    EditGamePaths(this, root_);
}

void frmMain::cmdEditOptions_Click() {
    frmEditing chooser(root_, this);
    chooser.exec();
}

void frmMain::cmdCustomMaps_Click() {
    frmCustomMapEditor chooser(root_, this);
    chooser.exec();
}

void frmMain::cmdEditArena_Click() {
    frmArenas chooser(root_, this);
    chooser.exec();
}

void frmMain::cmdLadies_Click() {
    frmSex editor(root_, this);
    editor.exec();
}

void frmMain::cmdHelp_Click() {
    HelpIndex(this, root_);
}

void frmMain::cmdAbout_Click() {
    ShowAbout(this);
}

void frmMain::cmdOK_Click() {
    close();
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace rd
