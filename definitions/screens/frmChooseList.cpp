#include "definitions/screens/frmChooseList.h"

#include "core/screens/controls.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/workspace.h"
#include "definitions/lists.h"
#include "definitions/screens/frmEditList.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace rd {

frmChooseList::frmChooseList(std::filesystem::path root, std::string gameName, bool valueList,
                             QLineEdit* target, QWidget* owner)
    : QDialog(owner), gameName_(std::move(gameName)), valueList_(valueList), target_(target),
      folder_(listFolder(root, gameName_)) {
    setObjectName(QStringLiteral("frmChooseList"));
    setWindowTitle(QStringLiteral("Choose a List"));
    setSizeGripEnabled(true);

    File1 = new QListWidget(this);
    File1->setObjectName(QStringLiteral("File1"));
    File1->setSelectionMode(QAbstractItemView::SingleSelection);
    File1->setAccessibleName(valueList_ ? QStringLiteral("Value lists") : QStringLiteral("Text lists"));

    cmdNew = makeButton(this, "cmdNew", QStringLiteral("&New"));
    cmdNew->setToolTip(QStringLiteral("Create a new list"));
    cmdEdit = makeButton(this, "cmdEdit", QStringLiteral("&Edit"));
    cmdEdit->setToolTip(QStringLiteral("Edit currently selected list"));
    QHBoxLayout* closing = okCancelRow(this, cmdOK, cmdCancel);
    cmdOK->setDefault(true);

    auto* side = new QVBoxLayout;
    side->addWidget(cmdNew);
    side->addWidget(cmdEdit);
    side->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addWidget(File1, 1);
    top->addLayout(side);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(closing);

    connect(File1, &QListWidget::itemDoubleClicked, this, &frmChooseList::File1_DblClick);
    connect(cmdNew, &QPushButton::clicked, this, &frmChooseList::cmdNew_Click);
    connect(cmdEdit, &QPushButton::clicked, this, &frmChooseList::cmdEdit_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmChooseList::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmChooseList::cmdCancel_Click);

    openAtTextSize(this, 63, 21);
    Form_Load();
}

void frmChooseList::Form_Load() {
    applyUserFont(this);
    setWindowTitle(QStringLiteral("Choose a ") + fromBytes(gameName_) +
                   (valueList_ ? QStringLiteral(" Value List") : QStringLiteral(" Text List")));
    refreshFiles(QString());
}

void frmChooseList::refreshFiles(const QString& select) {
    File1->clear();
    for (const auto& name : listFiles(folder_, valueList_ ? "*.val" : "*.lst")) {
        const QString text = fromBytes(name);
        File1->addItem(text);
        if (!select.isEmpty() && text == select)
            File1->setCurrentRow(File1->count() - 1);
    }
}

QString frmChooseList::selectedFile() const {
    const QListWidgetItem* item = File1->currentItem();
    return item && item->isSelected() ? item->text() : QString();
}

void frmChooseList::File1_DblClick() {
    cmdOK_Click();
}

void frmChooseList::cmdOK_Click() {
    const QString chosen = selectedFile();
    if (!chosen.isEmpty() && target_)
        target_->setText(chosen);
    accept();
}

void frmChooseList::cmdCancel_Click() {
    reject();
}

void frmChooseList::cmdNew_Click() {
    const auto typed = askInput(this, QStringLiteral("Type in name for new list"));
    if (!typed || typed->isEmpty())
        return;
    const NewListOutcome outcome = newList(folder_, toBytes(*typed), valueList_);
    if (outcome.refusal) {
        showMessage(this, fromBytes(*outcome.refusal), PromptIcon::Exclamation);
        return;
    }
    if (outcome.fileName.empty())
        return;
    frmEditList editor(folder_, outcome.fileName, valueList_, this);
    editor.exec();
    refreshFiles(fromBytes(outcome.fileName));
}

void frmChooseList::cmdEdit_Click() {
    const QString chosen = selectedFile();
    if (chosen.isEmpty())
        return;
    const std::string name = toBytes(chosen);
    frmEditList editor(folder_, name, isValueListName(name), this);
    editor.exec();
    refreshFiles(chosen);
}

} // namespace rd
