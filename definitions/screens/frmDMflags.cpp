#include "definitions/screens/frmDMflags.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/listhelpers.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "definitions/screens/frmEditDMflag.h"
#include "definitions/screens/listparts.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace rd {

namespace {
const QString kFlagsTitle = QStringLiteral("Deathmatch Flags Editor");
}

std::vector<FlagRow> flagRowsOf(const QTreeWidget* view) {
    std::vector<FlagRow> rows;
    const int count = view->topLevelItemCount();
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const QTreeWidgetItem* item = view->topLevelItem(i);
        if (isCategoryRow(item)) {
            rows.push_back(FlagRow::category(toBytes(item->text(kFlagName))));
            continue;
        }
        FlagRow row;
        row.name = toBytes(item->text(kFlagName));
        row.checked = toBytes(item->text(kFlagChecked));
        row.unchecked = toBytes(item->text(kFlagUnchecked));
        row.bitmap = toBytes(item->text(kFlagBitmap));
        row.help = toBytes(item->text(kFlagHelp));
        rows.push_back(std::move(row));
    }
    return rows;
}

void setFlagRow(QTreeWidgetItem* item, const FlagRow& row) {
    item->setText(kFlagName, fromBytes(row.name));
    item->setText(kFlagChecked, fromBytes(row.checked));
    item->setText(kFlagUnchecked, fromBytes(row.unchecked));
    item->setText(kFlagBitmap, fromBytes(row.bitmap));
    item->setText(kFlagHelp, fromBytes(row.help));
}

frmDMflags::frmDMflags(std::filesystem::path path, QWidget* parent)
    : QDialog(parent), path_(std::move(path)), categoryIcon_(categoryIcon()) {
    setObjectName(QStringLiteral("frmDMflags"));
    setWindowTitle(kFlagsTitle);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    const FileFrame file = makeFileFrame(this);
    fraFilename = file.frame;
    lblFilename = file.label;

    lvFlags = makeReportView(this, "lvFlags",
                             {QStringLiteral("Name"), QStringLiteral("Checked"), QStringLiteral("Unchecked"),
                              QStringLiteral("Bitmap"), QStringLiteral("Help")});
    lvFlags->setAccessibleName(QStringLiteral("Deathmatch flags"));
    lvFlags->setToolTip(kListCommandsTip);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraFilename);
    layout->addWidget(lvFlags, 1);
    layout->addLayout(buttons);

    const DefinitionPopup popup = makeDefinitionPopup(this, "mnuPopupCategoryNew");
    mnuPopup = popup.menu;
    mnuPopupEdit = popup.edit;
    mnuPopupAdd = popup.add;
    mnuPopupDelete = popup.remove;
    mnuPopupMoveUp = popup.moveUp;
    mnuPopupMoveDown = popup.moveDown;
    mnuPopupCategoryNew = popup.category;

    connect(mnuPopupEdit, &QAction::triggered, this, &frmDMflags::mnuPopupEdit_Click);
    connect(mnuPopupAdd, &QAction::triggered, this, &frmDMflags::mnuPopupAdd_Click);
    connect(mnuPopupDelete, &QAction::triggered, this, &frmDMflags::mnuPopupDelete_Click);
    connect(mnuPopupMoveUp, &QAction::triggered, this, &frmDMflags::mnuPopupMoveUp_Click);
    connect(mnuPopupMoveDown, &QAction::triggered, this, &frmDMflags::mnuPopupMoveDown_Click);
    connect(mnuPopupCategoryNew, &QAction::triggered, this, &frmDMflags::mnuPopupCategoryNew_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmDMflags::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmDMflags::cmdCancel_Click);

    giveListCommands(lvFlags, mnuPopup,
                     {[this] { mnuPopupAdd_Click(); }, [this] { mnuPopupDelete_Click(); },
                      [this] { mnuPopupEdit_Click(); }});
    giveMoveKeys(lvFlags);

    openAtTextSize(this, 90, 32);
    Form_Load();
}

void frmDMflags::Form_Load() {
    applyUserFont(this);
    showFilePath(lblFilename, path_);

    std::vector<FlagRow> rows;
    StepRunner trap(screenTrap(this, QStringLiteral("Loading Deathmatch Flags")));
    trap.step([&] { rows = LoadDMflags(path_); });

    fillDefinitionRows(lvFlags, rows, kFlagName, categoryIcon_, setFlagRow);
    fitColumnsToContent(lvFlags, 45);
}

void frmDMflags::mnuPopupEdit_Click() {
    const int row = selectedRow(lvFlags);
    if (row < 1)
        return;
    QTreeWidgetItem* item = lvFlags->topLevelItem(row - 1);
    if (isCategoryRow(item)) {
        const auto name = askInput(this, QStringLiteral("Type in the name of the category below"),
                                   kFlagsTitle, item->text(kFlagName));
        if (name && !name->isEmpty())
            item->setText(kFlagName, *name);
        return;
    }
    frmEditDMflag editor(lvFlags, false, row, this);
    editor.exec();
}

void frmDMflags::mnuPopupAdd_Click() {
    const int row = selectedRow(lvFlags);
    frmEditDMflag editor(lvFlags, true, row > 0 ? row + 1 : 0, this);
    editor.exec();
}

void frmDMflags::mnuPopupDelete_Click() {
    const int row = selectedRow(lvFlags);
    if (row < 1)
        return;
    QTreeWidgetItem* item = lvFlags->topLevelItem(row - 1);
    if (showMessage(this, QStringLiteral("Delete this flag, are you sure?"), PromptIcon::Exclamation,
                    item->text(kFlagName), PromptButtons::YesNoCancel) != PromptAnswer::Yes)
        return;
    removeRowAndSelectNext(lvFlags, row);
}

void frmDMflags::mnuPopupMoveUp_Click() {
    moveSelectedEntryUp(lvFlags);
}

void frmDMflags::mnuPopupMoveDown_Click() {
    moveSelectedEntryDown(lvFlags);
}

void frmDMflags::mnuPopupCategoryNew_Click() {
    const auto name =
        askInput(this, QStringLiteral("Type in the name of the new category to add below"), kFlagsTitle);
    if (!name || name->isEmpty())
        return;
    addCategoryBelowSelection(lvFlags, kFlagName, *name, categoryIcon_);
}

void frmDMflags::cmdOK_Click() {
    StepRunner trap(screenTrap(this, QStringLiteral("Saving Deathmatch Flags")));
    std::vector<FlagRow> rows;
    trap.step([&] { rows = flagRowsOf(lvFlags); });
    trap.step([&] { SaveDMflags(path_, rows); });
    if (!trap.aborted())
        accept();
}

void frmDMflags::cmdCancel_Click() {
    reject();
}

} // namespace rd
