#include "plugins/screens/frmEditWiz.h"

#include "core/screens/controls.h"
#include "core/screens/userfont.h"
#include "core/screens/zoomtextbox.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace rd {

void EditWizardCommand(QWidget* owner, QTreeWidget* commands, int index) {
    frmEditWiz dialog(commands, index, owner);
    dialog.exec();
}

frmEditWiz::frmEditWiz(QTreeWidget* commands, int index, QWidget* owner)
    : QDialog(owner), commands_(commands), index_(index) {
    setObjectName(QStringLiteral("frmEditWiz"));
    setWindowTitle(QStringLiteral("Edit AutoExec Wizard"));
    setSizeGripEnabled(true);

    lblCommand = new QLabel(QStringLiteral("Command:"), this);
    lblCommand->setObjectName(QStringLiteral("lblCommand"));
    txtCommand = new QLineEdit(this);
    txtCommand->setObjectName(QStringLiteral("txtCommand"));
    txtCommand->setMinimumWidth(txtCommand->fontMetrics().averageCharWidth() * 48);
    lblCommand->setBuddy(txtCommand);
    lblDescription = new QLabel(QStringLiteral("Description:"), this);
    lblDescription->setObjectName(QStringLiteral("lblDescription"));
    txtDescription = new QLineEdit(this);
    txtDescription->setObjectName(QStringLiteral("txtDescription"));
    lblDescription->setBuddy(txtDescription);

    auto* fields = new QFormLayout;
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    fields->addRow(lblCommand, txtCommand);
    fields->addRow(lblDescription, txtDescription);
    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    cmdOK->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addStretch(1);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmEditWiz::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditWiz::cmdCancel_Click);
    giveZoomKey(txtCommand);
    giveZoomKey(txtDescription);

    applyUserFont(this);
    if (index_ == 0) {
        setWindowTitle(QStringLiteral("Add New Command to the Wizard"));
    } else if (commands_ && index_ >= 1 && index_ <= commands_->topLevelItemCount()) {
        const QTreeWidgetItem* row = commands_->topLevelItem(index_ - 1);
        txtCommand->setText(row->text(0));
        txtDescription->setText(row->text(1));
    }
}

void frmEditWiz::cmdOK_Click() {
    if (commands_) {
        if (index_ == 0) {
            // Directly below the selected row, or at the end when none is selected.
            QTreeWidgetItem* selected = commands_->currentItem();
            const int at = selected && selected->isSelected() ? commands_->indexOfTopLevelItem(selected) + 1
                                                              : commands_->topLevelItemCount();
            auto* row = new QTreeWidgetItem;
            row->setText(0, txtCommand->text());
            row->setText(1, txtDescription->text());
            commands_->insertTopLevelItem(at, row);
            commands_->setCurrentItem(row);
            commands_->scrollToItem(row);
        } else if (index_ >= 1 && index_ <= commands_->topLevelItemCount()) {
            QTreeWidgetItem* row = commands_->topLevelItem(index_ - 1);
            row->setText(0, txtCommand->text());
            row->setText(1, txtDescription->text());
        }
    }
    accept();
}

void frmEditWiz::cmdCancel_Click() {
    reject();
}

} // namespace rd
