#include "profiles/screens/frmAddBot.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/userfont.h"
#include "core/screens/zoomtextbox.h"
#include "core/steprunner.h"
#include "core/workspace.h"
#include "plugins/screens/frmEditPlugInSetup.h"
#include "profiles/botcommands.h"

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

namespace rd {

void AddBotDialog(QWidget* owner, const std::filesystem::path& root, QListWidget* recognisedBots) {
    frmAddBot dialog(root, recognisedBots, owner);
    dialog.exec();
}

frmAddBot::frmAddBot(std::filesystem::path root, QListWidget* recognisedBots, QWidget* owner)
    : QDialog(owner), root_(std::move(root)), recognisedBots_(recognisedBots) {
    setObjectName(QStringLiteral("frmAddBot"));
    setWindowTitle(fromBytes(kAddBotTitle));

    lblBotName = new QLabel(QStringLiteral("Name of the New Bot:"), this);
    lblBotName->setObjectName(QStringLiteral("lblBotName"));
    txtBotName = new QLineEdit(this);
    txtBotName->setObjectName(QStringLiteral("txtBotName"));
    txtBotName->setMinimumWidth(txtBotName->fontMetrics().averageCharWidth() * 32);
    lblBotName->setBuddy(txtBotName);

    lblBotbase = new QLabel(QStringLiteral("Base on Which Other Bot:"), this);
    lblBotbase->setObjectName(QStringLiteral("lblBotbase"));
    cboBotbase = new QComboBox(this);
    cboBotbase->setObjectName(QStringLiteral("cboBotbase"));
    cboBotbase->setEditable(false);
    lblBotbase->setBuddy(cboBotbase);

    auto* fields = new QFormLayout;
    fields->addRow(lblBotName, txtBotName);
    fields->addRow(lblBotbase, cboBotbase);
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    cmdOK->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addStretch(1);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmAddBot::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmAddBot::cmdCancel_Click);
    giveZoomKey(txtBotName);

    applyUserFont(this);
    // One empty entry (no base bot), then every recognised bot in the main window's order. The
    // empty entry is chosen: a new bot starts empty unless the user picks a base.
    cboBotbase->addItem(QString());
    if (recognisedBots_) {
        for (int i = 0; i < recognisedBots_->count(); ++i)
            cboBotbase->addItem(recognisedBots_->item(i)->text());
    }
    cboBotbase->setCurrentIndex(0);
}

void frmAddBot::cmdOK_Click() {
    const std::string name = toBytes(txtBotName->text());
    if (name.empty()) {
        showMessage(this, fromBytes(kNoBotName), PromptIcon::Exclamation);
        return;
    }
    if (const auto refusal = refuseNewName(name)) {
        showMessage(this, fromBytes(*refusal), PromptIcon::Exclamation);
        return;
    }
    StepRunner trap(screenTrap(this, fromBytes(kAddBotErrorTitle)));
    const AddBotOutcome created = CreateBotFolder(root_, name, trap);
    switch (created.result) {
    case AddBotResult::Created:
        break;
    case AddBotResult::AlreadyExists:
        showMessage(this, fromBytes(kBotAlreadyExists), PromptIcon::Exclamation);
        return;
    case AddBotResult::NoName:
    case AddBotResult::RefusedName:
    case AddBotResult::Failed:
        return; // shown above, or reported by the trap: the dialog stays open
    }
    if (recognisedBots_) {
        recognisedBots_->addItem(txtBotName->text());
        recognisedBots_->setCurrentRow(recognisedBots_->count() - 1);
    }
    const std::string base = toBytes(cboBotbase->currentText());
    if (!CopyBaseBotFiles(root_, name, base, trap))
        showMessage(this, fromBytes(baseBotNotFoundMessage(base)), PromptIcon::Exclamation);
    if (trap.aborted()) {
        accept(); // the bot exists; the user stopped the copying, so no editor opens
        return;
    }
    // The setup editor takes the dialog's place: it opens owned by the main window, and the
    // dialog closes when the editor is done.
    hide();
    EditPlugInSetup(parentWidget(), root_, name);
    QApplication::processEvents();
    accept();
}

void frmAddBot::cmdCancel_Click() {
    reject();
}

} // namespace rd
