#include "definitions/screens/frmEditList.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/listhelpers.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "core/workspace.h"
#include "definitions/screens/frmEditItem.h"
#include "definitions/screens/listparts.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace rd {

std::vector<ListItem> listItemsOf(const QTreeWidget* view, bool valueList) {
    std::vector<ListItem> items;
    const int count = view->topLevelItemCount();
    items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const QTreeWidgetItem* row = view->topLevelItem(i);
        std::string text = toBytes(row->text(0));
        std::string value = valueList ? toBytes(row->text(1)) : text;
        items.push_back({std::move(text), std::move(value)});
    }
    return items;
}

frmEditList::frmEditList(std::filesystem::path folder, std::string fileName, bool valueList, QWidget* owner)
    : QDialog(owner), path_(resolvePath(folder, fileName)), valueList_(valueList) {
    setObjectName(QStringLiteral("frmEditList"));
    setWindowTitle(QStringLiteral("Edit List"));
    setSizeGripEnabled(true);

    fraType = new QGroupBox(QStringLiteral("Type of List"), this);
    fraType->setObjectName(QStringLiteral("fraType"));
    optType[0] = new QRadioButton(QStringLiteral("Value"), fraType);
    optType[0]->setObjectName(QStringLiteral("optType_0"));
    optType[1] = new QRadioButton(QStringLiteral("&Text"), fraType);
    optType[1]->setObjectName(QStringLiteral("optType_1"));
    auto* typeLayout = new QHBoxLayout(fraType);
    typeLayout->addWidget(optType[0]);
    typeLayout->addWidget(optType[1]);
    typeLayout->addStretch(1);

    lvList = makeReportView(this, "lvList", {QStringLiteral("Item"), QStringLiteral("Value")});
    lvList->setAccessibleName(QStringLiteral("List items"));
    lvList->setToolTip(kListCommandsTip);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraType);
    layout->addWidget(lvList, 1);
    layout->addLayout(buttons);

    mnuPopup = new QMenu(this);
    mnuPopup->setObjectName(QStringLiteral("mnuPopup"));
    const auto entry = [this](const QString& name, const QString& caption) {
        QAction* action = mnuPopup->addAction(caption);
        action->setObjectName(name);
        return action;
    };
    mnuPopupedit = entry(QStringLiteral("mnuPopupedit"), QStringLiteral("&Edit"));
    mnuPopup->addSeparator();
    mnuPopupAdd[0] = entry(QStringLiteral("mnuPopupAdd_0"), QStringLiteral("Add &Before"));
    mnuPopupAdd[1] = entry(QStringLiteral("mnuPopupAdd_1"), QStringLiteral("Add &After"));
    mnuPopup->addSeparator();
    mnuPopupMoveUp = entry(QStringLiteral("mnuPopupMoveUp"), QStringLiteral("Move &Up"));
    mnuPopupMoveDown = entry(QStringLiteral("mnuPopupMoveDown"), QStringLiteral("&Move Down"));
    mnuPopup->addSeparator();
    mnuPopupDelete = entry(QStringLiteral("mnuPopupDelete"), QStringLiteral("&Delete"));
    mnuPopup->setDefaultAction(mnuPopupedit);

    connect(mnuPopupedit, &QAction::triggered, this, &frmEditList::mnuPopupedit_Click);
    connect(mnuPopupAdd[0], &QAction::triggered, this, [this] { mnuPopupAdd_Click(0); });
    connect(mnuPopupAdd[1], &QAction::triggered, this, [this] { mnuPopupAdd_Click(1); });
    connect(mnuPopupMoveUp, &QAction::triggered, this, &frmEditList::mnuPopupMoveUp_Click);
    connect(mnuPopupMoveDown, &QAction::triggered, this, &frmEditList::mnuPopupMoveDown_Click);
    connect(mnuPopupDelete, &QAction::triggered, this, &frmEditList::mnuPopupDelete_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmEditList::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditList::cmdCancel_Click);

    // Insert adds after the selected item, as every list of the program adds below the selection.
    giveListCommands(lvList, mnuPopup,
                     {[this] { mnuPopupAdd_Click(1); }, [this] { mnuPopupDelete_Click(); },
                      [this] { mnuPopupedit_Click(); }});
    giveMoveKeys(lvList);

    openAtTextSize(this, 70, 26);
    Form_Load();
}

void frmEditList::Form_Load() {
    applyUserFont(this);
    optType[valueList_ ? 0 : 1]->setChecked(true);
    for (QRadioButton* choice : optType)
        choice->setEnabled(false);
    if (!valueList_)
        lvList->setColumnCount(1);

    std::vector<ListItem> items;
    StepRunner trap(screenTrap(this, QStringLiteral("Loading List")));
    trap.step([&] {
        if (fileExists(path_))
            items = LoadList(path_, valueList_);
    });
    QList<QTreeWidgetItem*> rows;
    rows.reserve(static_cast<qsizetype>(items.size()));
    for (const auto& item : items) {
        auto* row = new QTreeWidgetItem;
        row->setText(0, fromBytes(item.text));
        if (valueList_)
            row->setText(1, fromBytes(item.value));
        rows.append(row);
    }
    lvList->setUpdatesEnabled(false);
    lvList->addTopLevelItems(rows);
    lvList->setUpdatesEnabled(true);
    fitColumnsToContent(lvList);
}

void frmEditList::mnuPopupedit_Click() {
    const int row = selectedRow(lvList);
    if (row < 1)
        return;
    frmEditItem editor(lvList, false, row, valueList_, this);
    editor.exec();
}

void frmEditList::mnuPopupAdd_Click(int index) {
    const int row = selectedRow(lvList);
    frmEditItem editor(lvList, true, row > 0 ? row + index : 0, valueList_, this);
    editor.exec();
}

void frmEditList::mnuPopupMoveUp_Click() {
    moveSelectedEntryUp(lvList);
}

void frmEditList::mnuPopupMoveDown_Click() {
    moveSelectedEntryDown(lvList);
}

void frmEditList::mnuPopupDelete_Click() {
    const int row = selectedRow(lvList);
    if (row < 1)
        return;
    delete lvList->topLevelItem(row - 1);
    const int count = lvList->topLevelItemCount();
    if (count > 0)
        selectRow(lvList, lvList->topLevelItem(std::min(row, count) - 1));
}

void frmEditList::cmdOK_Click() {
    StepRunner trap(screenTrap(this, QStringLiteral("Saving List")));
    trap.step([&] { SaveList(path_, listItemsOf(lvList, valueList_), valueList_); });
    if (!trap.aborted())
        accept();
}

void frmEditList::cmdCancel_Click() {
    reject();
}

} // namespace rd
