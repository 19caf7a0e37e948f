#include "definitions/screens/frmEditing.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "core/workspace.h"
#include "definitions/dmflags.h"
#include "definitions/options.h"
#include "definitions/screens/frmDMflags.h"
#include "definitions/screens/frmOptions.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace rd {

frmEditing::frmEditing(std::filesystem::path root, QWidget* parent)
    : QDialog(parent), root_(std::move(root)) {
    setObjectName(QStringLiteral("frmEditing"));
    setWindowTitle(QStringLiteral("Editing Options"));
    setSizeGripEnabled(true);

    fraWhich = new QGroupBox(QStringLiteral("Edit Which Options?"), this);
    fraWhich->setObjectName(QStringLiteral("fraWhich"));
    const char* whichCaptions[2] = {"For the Game:", "For the Bot"};
    auto* which = new QHBoxLayout(fraWhich);
    for (int i = 0; i < 2; ++i) {
        optEditType[i] = new QRadioButton(QString::fromLatin1(whichCaptions[i]), fraWhich);
        optEditType[i]->setObjectName(QStringLiteral("optEditType_%1").arg(i));
        lstList[i] = new QListWidget(fraWhich);
        lstList[i]->setObjectName(QStringLiteral("lstList_%1").arg(i));
        lstList[i]->setSelectionMode(QAbstractItemView::SingleSelection);
        lstList[i]->setAccessibleName(i == 0 ? QStringLiteral("Games") : QStringLiteral("Bots"));
        auto* column = new QVBoxLayout;
        column->addWidget(optEditType[i]);
        column->addWidget(lstList[i], 1);
        which->addLayout(column, 1);
    }

    fraType = new QGroupBox(QStringLiteral("Type"), this);
    fraType->setObjectName(QStringLiteral("fraType"));
    optType[0] = new QRadioButton(QStringLiteral("Edit the Built-in Settings"), fraType);
    optType[0]->setObjectName(QStringLiteral("optType_0"));
    optType[0]->setToolTip(
        QStringLiteral("Note - changes here may be overwritten when you upgrade Tarnwick"));
    optType[1] = new QRadioButton(QStringLiteral("Edit Your Custom Settings"), fraType);
    optType[1]->setObjectName(QStringLiteral("optType_1"));
    optType[1]->setToolTip(QStringLiteral("Changes here should never be lost when upgrading Tarnwick"));
    auto* type = new QVBoxLayout(fraType);
    type->addWidget(optType[0]);
    type->addWidget(optType[1]);

    cmdOptions = makeButton(this, "cmdOptions", QStringLiteral("Edit &Options"));
    cmdDMflag = makeButton(this, "cmdDMflag", QStringLiteral("Edit DM&Flags"));
    cmdClose = makeButton(this, "cmdClose", QStringLiteral("&Close"));

    auto* commands = new QHBoxLayout;
    commands->addWidget(cmdOptions);
    commands->addWidget(cmdDMflag);
    commands->addStretch(1);
    commands->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraWhich, 1);
    layout->addWidget(fraType);
    layout->addLayout(commands);

    connect(optEditType[0], &QRadioButton::clicked, this, [this] { optEditType_Click(0); });
    connect(optEditType[1], &QRadioButton::clicked, this, [this] { optEditType_Click(1); });
    connect(cmdOptions, &QPushButton::clicked, this, &frmEditing::cmdOptions_Click);
    connect(cmdDMflag, &QPushButton::clicked, this, &frmEditing::cmdDMflag_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmEditing::cmdClose_Click);

    openAtTextSize(this, 76, 27);
    Form_Load();
}

void frmEditing::Form_Load() {
    applyUserFont(this);
    baseFolder_[0] = resolvePath(root_, "Game-Paths");
    baseFolder_[1] = resolvePath(root_, "Plug-Ins");
    StepRunner trap(screenTrap(this, QStringLiteral("Editing Options")));
    for (std::size_t i = 0; i < 2; ++i) {
        trap.step([&] {
            for (const auto& name : listFolders(baseFolder_[i]))
                lstList[i]->addItem(fromBytes(name));
        });
    }
    // The custom settings are preset: an upgrade of the launcher never overwrites them.
    optType[1]->setChecked(true);
    optEditType[0]->setChecked(true);
    optEditType_Click(0);
}

void frmEditing::optEditType_Click(int index) {
    lstList[0]->setEnabled(index == 0);
    lstList[1]->setEnabled(index == 1);
}

int frmEditing::editType() const {
    return optEditType[1]->isChecked() ? 1 : 0;
}

std::optional<std::filesystem::path> frmEditing::selectedFolder() const {
    const QListWidget* list = lstList[static_cast<std::size_t>(editType())];
    const QListWidgetItem* item = list->currentItem();
    if (!item || !item->isSelected())
        return std::nullopt;
    return joinName(baseFolder_[static_cast<std::size_t>(editType())], toBytes(item->text()));
}

void frmEditing::cmdOptions_Click() {
    const auto folder = selectedFolder();
    if (!folder)
        return;
    const bool builtIn = optType[0]->isChecked();
    const std::filesystem::path file = resolvePath(*folder, builtIn ? kOptionsFile : kUserOptionsFile);
    std::string gameName;
    const QListWidget* list = lstList[static_cast<std::size_t>(editType())];
    if (editType() == 0) {
        gameName = toBytes(list->currentItem()->text());
    } else if (list->currentRow() > 0) {
        // The first bot of the list never gets a game name this way; this is kept as it is.
        StepRunner trap(screenTrap(this, QStringLiteral("Editing Options")));
        trap.step([&] { gameName = botGameName(root_, toBytes(list->currentItem()->text())); });
        // Abort leaves the activity: the option list does not open. (Ignore opens it without
        // a game name.)
        if (trap.aborted())
            return;
    }
    frmOptions options(file, gameName, root_, this);
    options.exec();
}

void frmEditing::cmdDMflag_Click() {
    const auto folder = selectedFolder();
    if (!folder)
        return;
    const bool builtIn = optType[0]->isChecked();
    frmDMflags flags(resolvePath(*folder, builtIn ? kFlagsFile : kUserFlagsFile), this);
    flags.exec();
}

void frmEditing::cmdClose_Click() {
    close();
}

} // namespace rd
