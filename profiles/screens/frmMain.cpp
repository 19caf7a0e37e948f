#include "profiles/screens/frmMain.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/help.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "definitions/screens/frmEditing.h"
#include "dialogs/frmRDabout.h"
#include "games/screens/frmGame.h"
#include "maps/screens/frmArenas.h"
#include "maps/screens/frmCustomMapEditor.h"
#include "models/screens/frmSex.h"
#include "profiles/profiles.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
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

    lblProfiles = new QLabel(QStringLiteral("Available Profiles"), this);
    lblProfiles->setObjectName(QStringLiteral("lblProfiles"));
    lstProfiles = new QListWidget(this);
    lstProfiles->setObjectName(QStringLiteral("lstProfiles"));
    lstProfiles->setSelectionMode(QAbstractItemView::SingleSelection);
    lstProfiles->setProperty(kReadyMark, QString());
    lblProfiles->setBuddy(lstProfiles);

    chkOnlyShow = new QCheckBox(QStringLiteral("Show profiles for selected bot only"), this);
    chkOnlyShow->setObjectName(QStringLiteral("chkOnlyShow"));

    // Buttons whose editors are not part of the program yet stay disabled.
    cmdAddBot = makeButton(this, "cmdAddBot", QStringLiteral("&Add"), false);
    cmdEditBot = makeButton(this, "cmdEditBot", QStringLiteral("&Edit"), false);
    cmdDeleteBot = makeButton(this, "cmdDeleteBot", QStringLiteral("De&lete"), false);
    cmdRename = makeButton(this, "cmdRename", QStringLiteral("&Rename"), false);
    cmdDeleteProfile = makeButton(this, "cmdDeleteProfile", QStringLiteral("&Delete"), false);
    cmdGame = makeButton(this, "cmdGame", QStringLiteral("Edit &Game Paths"), true);
    cmdEditOptions = makeButton(this, "cmdEditOptions", QStringLiteral("Edit &Options"), true);
    cmdCustomMaps = makeButton(this, "cmdCustomMaps", QStringLiteral("Custom &Map Lists"), true);
    cmdEditArena = makeButton(this, "cmdEditArena", QStringLiteral("Edit Are&nas"), true);
    cmdLadies = makeButton(this, "cmdLadies", QStringLiteral("Se&x Editor"), true);
    cmdHelp = makeButton(this, "cmdHelp", QStringLiteral("&Help Index"), true);
    cmdAbout = makeButton(this, "cmdAbout", QStringLiteral("A&bout..."), true);
    cmdOK = makeButton(this, "cmdOK", QStringLiteral("&Quit"), true);

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
    connect(lstRecognisedBots, &QListWidget::itemClicked, this, &frmMain::lstRecognisedBots_Click);
    connect(lstRecognisedBots, &QListWidget::itemDoubleClicked, this, &frmMain::lstRecognisedBots_DblClick);
    connect(cmdGame, &QPushButton::clicked, this, &frmMain::cmdGame_Click);
    connect(cmdEditOptions, &QPushButton::clicked, this, &frmMain::cmdEditOptions_Click);
    connect(cmdCustomMaps, &QPushButton::clicked, this, &frmMain::cmdCustomMaps_Click);
    connect(cmdEditArena, &QPushButton::clicked, this, &frmMain::cmdEditArena_Click);
    connect(cmdLadies, &QPushButton::clicked, this, &frmMain::cmdLadies_Click);
    connect(cmdHelp, &QPushButton::clicked, this, &frmMain::cmdHelp_Click);
    connect(cmdAbout, &QPushButton::clicked, this, &frmMain::cmdAbout_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmMain::cmdOK_Click);

    resize(640, 420);
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
    for (const auto& bot : bots)
        trap.step([&] { lstRecognisedBots->addItem(fromBytes(bot)); });
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
    if (QListWidgetItem* bot = lstRecognisedBots->currentItem(); bot && bot->isSelected())
        selectedBot = toBytes(bot->text());
    const auto reportOwnerError = [this](const std::string& description) {
        reportFailure(this, QStringLiteral("Loading Config File"), description,
                      QStringLiteral("Oh Lord, we have some problems..."));
    };
    for (const auto& name : names) {
        trap.step([&] {
            if (profileShown(onlyShow, selectedBot,
                             [&] { return ReadProfileOwner(root_, name, reportOwnerError); }))
                lstProfiles->addItem(fromBytes(name));
        });
    }
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

} // namespace rd
