#include "definitions/screens/frmEditDMflag.h"

#include "core/screens/controls.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/userfont.h"
#include "core/screens/zoomtextbox.h"
#include "definitions/dmflags.h"
#include "definitions/screens/frmDMflags.h"
#include "definitions/screens/listparts.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace rd {

namespace {

// An editable drop-down whose text stays exactly as typed: no completion from its entries (so
// "12" is not completed to "128"), and Enter adds nothing to the list.
QComboBox* makeEditableDropDown(QWidget* parent, const char* name, const QString& tip) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(QString::fromLatin1(name));
    makeTypedOnly(combo);
    combo->setToolTip(tip);
    return combo;
}

} // namespace

frmEditDMflag::frmEditDMflag(QTreeWidget* list, bool newRow, int index, QWidget* owner)
    : QDialog(owner), list_(list), newRow_(newRow), index_(index) {
    setObjectName(QStringLiteral("frmEditDMflag"));
    setSizeGripEnabled(true);

    txtFlagName = new QLineEdit(this);
    txtFlagName->setObjectName(QStringLiteral("txtFlagName"));
    lblFlagName = makeLabel(this, "lblFlagName", QStringLiteral("Flag Name:"), txtFlagName);
    cboChecked = makeEditableDropDown(
        this, "cboChecked", QStringLiteral("If the option is selected, this number is added to DMflags"));
    lblChecked = makeLabel(this, "lblChecked", QStringLiteral("Value to Add When Checked:"), cboChecked);
    cboUnchecked = makeEditableDropDown(
        this, "cboUnchecked",
        QStringLiteral("If the option is NOT selected, this number is added to DMflags"));
    lblUnchecked =
        makeLabel(this, "lblUnchecked", QStringLiteral("Value to Add When Unchecked:"), cboUnchecked);
    cboBitmap = makeEditableDropDown(
        this, "cboBitmap", QStringLiteral("Change this only if you want to set up your own bitmap"));
    lblBitmap = makeLabel(this, "lblBitmap", QStringLiteral("Bitmap (leave if unsure) :"), cboBitmap);
    txtHelp = new QLineEdit(this);
    txtHelp->setObjectName(QStringLiteral("txtHelp"));
    lblHelp = makeLabel(this, "lblHelp", QStringLiteral("Help:"), txtHelp);

    auto* grid = new QGridLayout;
    grid->addWidget(lblFlagName, 0, 0);
    grid->addWidget(txtFlagName, 0, 1);
    grid->addWidget(lblChecked, 1, 0);
    grid->addWidget(cboChecked, 1, 1);
    grid->addWidget(lblUnchecked, 2, 0);
    grid->addWidget(cboUnchecked, 2, 1);
    grid->addWidget(lblBitmap, 3, 0);
    grid->addWidget(cboBitmap, 3, 1);
    grid->addWidget(lblHelp, 4, 0);
    grid->addWidget(txtHelp, 4, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(1, 260);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmEditDMflag::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditDMflag::cmdCancel_Click);
    giveZoomKey(txtFlagName, QStringLiteral("Deathmatch Flag Name"));
    giveZoomKey(txtHelp, QStringLiteral("Deathmatch Flag Help Text"));

    Form_Load();
}

void frmEditDMflag::Form_Load() {
    applyUserFont(this);
    for (QComboBox* combo : {cboChecked, cboUnchecked}) {
        for (const auto& value : dmflagValues())
            combo->addItem(fromBytes(value));
        combo->setCurrentIndex(-1);
        combo->setEditText(QString());
    }
    cboBitmap->addItem(QString::fromLatin1(kDefaultBitmap));
    cboBitmap->setEditText(QString::fromLatin1(kDefaultBitmap));

    const QTreeWidgetItem* item = nullptr;
    if (!newRow_ && index_ >= 1 && index_ <= list_->topLevelItemCount())
        item = list_->topLevelItem(index_ - 1);
    if (!item) {
        setWindowTitle(QStringLiteral("Add New Deathmatch Flag"));
    } else {
        setWindowTitle(QStringLiteral("Editing ") + item->text(kFlagName));
        txtFlagName->setText(item->text(kFlagName));
        cboChecked->setEditText(item->text(kFlagChecked));
        cboUnchecked->setEditText(item->text(kFlagUnchecked));
        cboBitmap->setEditText(item->text(kFlagBitmap));
        txtHelp->setText(item->text(kFlagHelp));
        for (QLineEdit* box :
             {txtFlagName, txtHelp, cboChecked->lineEdit(), cboUnchecked->lineEdit(), cboBitmap->lineEdit()})
            box->setCursorPosition(0);
    }
    txtFlagName->setFocus(Qt::OtherFocusReason);
}

void frmEditDMflag::cmdOK_Click() {
    const FlagValuesCheck check =
        checkFlagValues(toBytes(cboChecked->currentText()), toBytes(cboUnchecked->currentText()));
    // A value that is not a number has become "0"; the drop-down shows what will be kept.
    if (fromBytes(check.checked) != cboChecked->currentText())
        cboChecked->setEditText(fromBytes(check.checked));
    if (fromBytes(check.unchecked) != cboUnchecked->currentText())
        cboUnchecked->setEditText(fromBytes(check.unchecked));
    if (check.refusal) {
        showMessage(this, fromBytes(*check.refusal), PromptIcon::Exclamation);
        return;
    }

    const int count = list_->topLevelItemCount();
    const bool inRange = index_ >= 1 && index_ <= count;
    QTreeWidgetItem* item = nullptr;
    if (newRow_ || !inRange) {
        item = new QTreeWidgetItem;
        if (inRange)
            list_->insertTopLevelItem(index_ - 1, item);
        else
            list_->addTopLevelItem(item);
    } else {
        item = list_->topLevelItem(index_ - 1);
    }
    FlagRow row;
    row.name = toBytes(txtFlagName->text());
    row.checked = check.checked;
    row.unchecked = check.unchecked;
    row.bitmap = toBytes(cboBitmap->currentText());
    row.help = toBytes(txtHelp->text());
    setFlagRow(item, row);
    selectRow(list_, item);
    accept();
}

void frmEditDMflag::cmdCancel_Click() {
    reject();
}

} // namespace rd
