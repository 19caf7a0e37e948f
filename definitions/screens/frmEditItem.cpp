#include "definitions/screens/frmEditItem.h"

#include "core/screens/controls.h"
#include "core/screens/userfont.h"
#include "core/screens/zoomtextbox.h"
#include "definitions/screens/listparts.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace rd {

frmEditItem::frmEditItem(QTreeWidget* list, bool newItem, int index, bool valueList, QWidget* owner)
    : QDialog(owner), list_(list), newItem_(newItem), index_(index), valueList_(valueList) {
    setObjectName(QStringLiteral("frmEditItem"));
    setWindowTitle(QStringLiteral("Edit List Item"));
    setSizeGripEnabled(true);

    txtText = new QLineEdit(this);
    txtText->setObjectName(QStringLiteral("txtText"));
    lblText = makeLabel(this, "lblText", QStringLiteral("Text to Display in List:"), txtText);
    txtValue = new QLineEdit(this);
    txtValue->setObjectName(QStringLiteral("txtValue"));
    lblValue = makeLabel(this, "lblValue", QStringLiteral("Actual Value of Item:"), txtValue);

    auto* grid = new QGridLayout;
    grid->addWidget(lblText, 0, 0);
    grid->addWidget(txtText, 0, 1);
    grid->addWidget(lblValue, 1, 0);
    grid->addWidget(txtValue, 1, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(1, 220);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmEditItem::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditItem::cmdCancel_Click);
    giveZoomKey(txtText);
    giveZoomKey(txtValue);

    Form_Load();
}

void frmEditItem::Form_Load() {
    applyUserFont(this);
    lblValue->setVisible(valueList_);
    txtValue->setVisible(valueList_);
    if (!newItem_ && index_ >= 1 && index_ <= list_->topLevelItemCount()) {
        const QTreeWidgetItem* item = list_->topLevelItem(index_ - 1);
        txtText->setText(item->text(0));
        if (valueList_)
            txtValue->setText(item->text(1));
        txtText->setCursorPosition(0);
        txtValue->setCursorPosition(0);
    }
    txtText->setFocus(Qt::OtherFocusReason);
}

void frmEditItem::cmdOK_Click() {
    const int count = list_->topLevelItemCount();
    const bool inRange = index_ >= 1 && index_ <= count;
    QTreeWidgetItem* item = nullptr;
    if (!newItem_)
        item = inRange ? list_->topLevelItem(index_ - 1) : list_->currentItem();
    if (!item) {
        item = new QTreeWidgetItem;
        if (newItem_ && inRange)
            list_->insertTopLevelItem(index_ - 1, item);
        else
            list_->addTopLevelItem(item);
    }
    item->setText(0, txtText->text());
    if (valueList_)
        item->setText(1, txtValue->text());
    selectRow(list_, item);
    accept();
}

void frmEditItem::cmdCancel_Click() {
    reject();
}

} // namespace rd
