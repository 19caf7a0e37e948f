#include "dialogs/frmPickFromLV.h"

#include "core/screens/controls.h"
#include "core/screens/listhelpers.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/userfont.h"
#include "core/text.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace rd {

void PickFromLV(QWidget* owner, const QTreeWidget* source, QLineEdit* target, int kindFilter,
                const QString& title) {
    frmPickFromLV picker(source, target, kindFilter, title, owner);
    picker.exec();
}

frmPickFromLV::frmPickFromLV(const QTreeWidget* source, QLineEdit* target, int kindFilter,
                             const QString& title, QWidget* owner)
    : QDialog(owner), target_(target) {
    setObjectName(QStringLiteral("frmPickFromLV"));
    setWindowTitle(QStringLiteral("Choose a Thingie"));

    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setSelectionMode(QAbstractItemView::SingleSelection);
    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    cmdOK->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(List1, 1);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmPickFromLV::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmPickFromLV::cmdCancel_Click);
    List1->viewport()->installEventFilter(this);

    applyUserFont(this);
    setWindowTitle(title);
    // No label names the list: a screen reader calls it by the dialog's title.
    List1->setAccessibleName(title);

    if (source) {
        for (int i = 0; i < source->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* row = source->topLevelItem(i);
            if (kindFilter < 0 || smallIconIndex(row) == kindFilter)
                List1->addItem(row->text(0));
        }
    }

    if (target_ && !target_->text().isEmpty()) {
        const std::string wanted = toBytes(target_->text());
        for (int i = 0; i < List1->count(); ++i) {
            if (equalsNoCase(toBytes(List1->item(i)->text()), wanted)) {
                List1->setCurrentRow(i);
                List1->scrollToItem(List1->item(i));
                break;
            }
        }
    }
}

void frmPickFromLV::cmdOK_Click() {
    QListWidgetItem* chosen = List1->currentItem();
    if (!chosen || !chosen->isSelected()) {
        showMessage(this, QStringLiteral("Select something first..!"), PromptIcon::Exclamation);
        return;
    }
    if (target_)
        target_->setText(chosen->text());
    accept();
}

void frmPickFromLV::cmdCancel_Click() {
    reject();
}

void frmPickFromLV::List1_DblClick() {
    cmdOK_Click();
}

bool frmPickFromLV::eventFilter(QObject* watched, QEvent* event) {
    if (watched == List1->viewport() && event->type() == QEvent::MouseButtonDblClick) {
        List1_DblClick();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
