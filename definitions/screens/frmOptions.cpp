#include "definitions/screens/frmOptions.h"

#include "core/conversions.h"
#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/listhelpers.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "core/text.h"
#include "definitions/screens/frmEditOption.h"
#include "definitions/screens/listparts.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace rd {

namespace {

// A row's position in the file it was loaded from (rows added later have none).
constexpr int kLoadedRowRole = Qt::UserRole + 16;

} // namespace

OptionRow optionRowOf(const QTreeWidgetItem* item) {
    if (isCategoryRow(item))
        return OptionRow::category(toBytes(item->text(kOptName)));
    OptionRow row;
    row.name = toBytes(item->text(kOptName));
    row.checked = toBytes(item->text(kOptChecked));
    row.unchecked = toBytes(item->text(kOptUnchecked));
    row.helpText = toBytes(item->text(kOptHelpText));
    row.type = toBytes(item->text(kOptType));
    row.parameter = toBytes(item->text(kOptParameter));
    row.where = toBytes(item->text(kOptWhere));
    row.key = toBytes(item->text(kOptKey));
    return row;
}

std::vector<OptionRow> optionRowsOf(const QTreeWidget* view) {
    std::vector<OptionRow> rows;
    const int count = view->topLevelItemCount();
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        rows.push_back(optionRowOf(view->topLevelItem(i)));
    return rows;
}

void setOptionRow(QTreeWidgetItem* item, const OptionRow& row) {
    item->setText(kOptName, fromBytes(row.name));
    item->setText(kOptChecked, fromBytes(row.checked));
    item->setText(kOptUnchecked, fromBytes(row.unchecked));
    item->setText(kOptHelpText, fromBytes(row.helpText));
    item->setText(kOptType, fromBytes(row.type));
    item->setText(kOptParameter, fromBytes(row.parameter));
    item->setText(kOptWhere, fromBytes(row.where));
    item->setText(kOptKey, fromBytes(row.key));
}

int optionTypeIndex(const QString& type) {
    const std::string bytes = toBytes(type);
    if (!isNumeric(bytes))
        return -1;
    const double value = roundHalfEven(leadingValue(trim(bytes)));
    if (value < 0 || value >= static_cast<double>(kOptionTypeCount))
        return -1;
    return static_cast<int>(value);
}

namespace {

class OptionItem : public QTreeWidgetItem {
public:
    QVariant data(int column, int role) const override {
        if (column != kOptType || role != Qt::ToolTipRole)
            return QTreeWidgetItem::data(column, role);
        const int type = optionTypeIndex(text(kOptType));
        return type >= 0 ? QString::fromLatin1(kOptionTypeCaptions[static_cast<std::size_t>(type)])
                         : QString();
    }
};

} // namespace

QTreeWidgetItem* newOptionItem() {
    return new OptionItem;
}

frmOptions::frmOptions(std::filesystem::path path, std::string gameName, std::filesystem::path root,
                       QWidget* parent)
    : QDialog(parent), path_(std::move(path)), gameName_(std::move(gameName)), root_(std::move(root)),
      categoryIcon_(categoryIcon()) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Edit Options"));
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    const FileFrame file = makeFileFrame(this);
    fraFilename = file.frame;
    lblFilename = file.label;

    lvOptions =
        makeReportView(this, "lvOptions",
                       {QStringLiteral("Name"), QStringLiteral("Checked"), QStringLiteral("Unchecked"),
                        QStringLiteral("Help Text"), QStringLiteral("Type"), QStringLiteral("Parameter"),
                        QStringLiteral("Where"), QStringLiteral("Key")});
    lvOptions->setAccessibleName(QStringLiteral("Options"));
    lvOptions->setToolTip(kListCommandsTip);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraFilename);
    layout->addWidget(lvOptions, 1);
    layout->addLayout(buttons);

    const DefinitionPopup popup = makeDefinitionPopup(this, "mnuPopupCategoryAdd");
    mnuPopup = popup.menu;
    mnuPopupEdit = popup.edit;
    mnuPopupAdd = popup.add;
    mnuPopupDelete = popup.remove;
    mnuPopupMoveUp = popup.moveUp;
    mnuPopupMoveDown = popup.moveDown;
    mnuPopupCategoryAdd = popup.category;

    connect(mnuPopupEdit, &QAction::triggered, this, &frmOptions::mnuPopupEdit_Click);
    connect(mnuPopupAdd, &QAction::triggered, this, &frmOptions::mnuPopupAdd_Click);
    connect(mnuPopupDelete, &QAction::triggered, this, &frmOptions::mnuPopupDelete_Click);
    connect(mnuPopupMoveUp, &QAction::triggered, this, &frmOptions::mnuPopupMoveUp_Click);
    connect(mnuPopupMoveDown, &QAction::triggered, this, &frmOptions::mnuPopupMoveDown_Click);
    connect(mnuPopupCategoryAdd, &QAction::triggered, this, &frmOptions::mnuPopupCategoryAdd_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmOptions::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmOptions::cmdCancel_Click);

    giveListCommands(lvOptions, mnuPopup,
                     {[this] { mnuPopupAdd_Click(); }, [this] { mnuPopupDelete_Click(); },
                      [this] { mnuPopupEdit_Click(); }});
    giveMoveKeys(lvOptions);

    openAtTextSize(this, 90, 32);
    Form_Load();
}

frmOptions::~frmOptions() {
    // The list view goes after this screen's own members: what it reports on its way out is no
    // change of the list.
    disconnect(lvOptions->model(), nullptr, this, nullptr);
}

void frmOptions::Form_Load() {
    applyUserFont(this);
    showFilePath(lblFilename, path_);

    StepRunner trap(screenTrap(this, QStringLiteral("Loading Options")));
    trap.step([&] { loaded_ = LoadDefinitions(path_); });

    // Each option row remembers where it was read from (set before the rows join the view, so
    // no change is signalled for it).
    const OptionRow* first = loaded_.data();
    fillDefinitionRows(
        lvOptions, loaded_, kOptName, categoryIcon_,
        [first](QTreeWidgetItem* item, const OptionRow& row) {
            setOptionRow(item, row);
            item->setData(kOptName, kLoadedRowRole, static_cast<qulonglong>(&row - first));
        },
        newOptionItem);
    fitColumnsToContent(lvOptions, 30);
    // From now on every change of a row's text or icon, and every row inserted (added, or moved
    // by taking it out and back), marks the row as touched.
    QAbstractItemModel* model = lvOptions->model();
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& from, const QModelIndex& to) { markTouched(from.row(), to.row()); });
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int from, int to) { markTouched(from, to); });
    // Rows removed or put in another order change the list as a whole.
    const auto reordered = [this] { pristine_ = false; };
    connect(model, &QAbstractItemModel::rowsRemoved, this, reordered);
    connect(model, &QAbstractItemModel::rowsMoved, this, reordered);
    connect(model, &QAbstractItemModel::layoutChanged, this, reordered);
    connect(model, &QAbstractItemModel::modelReset, this, reordered);
}

void frmOptions::markTouched(int first, int last) {
    pristine_ = false;
    for (int row = std::max(first, 0); row <= last && row < lvOptions->topLevelItemCount(); ++row)
        touched_.insert(lvOptions->topLevelItem(row));
}

std::vector<OptionRow> frmOptions::rowsToSave() const {
    std::vector<OptionRow> rows;
    const int count = lvOptions->topLevelItemCount();
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const QTreeWidgetItem* item = lvOptions->topLevelItem(i);
        const QVariant loaded = item->data(kOptName, kLoadedRowRole);
        if (loaded.isValid() && !touched_.contains(item) && loaded.toULongLong() < loaded_.size())
            rows.push_back(loaded_[loaded.toULongLong()]);
        else
            rows.push_back(optionRowOf(item));
    }
    return rows;
}

void frmOptions::mnuPopupEdit_Click() {
    const int row = selectedRow(lvOptions);
    if (row < 1)
        return;
    QTreeWidgetItem* item = lvOptions->topLevelItem(row - 1);
    if (isCategoryRow(item)) {
        const auto name = askInput(this, QStringLiteral("Type in new name for this category"),
                                   QStringLiteral("Option Editor"), item->text(kOptName));
        if (name && !name->isEmpty())
            item->setText(kOptName, *name);
        return;
    }
    frmEditOption editor(lvOptions, false, row, gameName_, root_, this);
    editor.exec();
}

void frmOptions::mnuPopupAdd_Click() {
    const int row = selectedRow(lvOptions);
    frmEditOption editor(lvOptions, true, row > 0 ? row + 1 : 0, gameName_, root_, this);
    editor.exec();
}

void frmOptions::mnuPopupDelete_Click() {
    const int row = selectedRow(lvOptions);
    if (row < 1)
        return;
    QTreeWidgetItem* item = lvOptions->topLevelItem(row - 1);
    if (showMessage(this, QStringLiteral("Delete this option, are you sure?"), PromptIcon::Exclamation,
                    item->text(kOptName), PromptButtons::YesNoCancel) != PromptAnswer::Yes)
        return;
    removeRowAndSelectNext(lvOptions, row);
}

void frmOptions::mnuPopupMoveUp_Click() {
    moveSelectedEntryUp(lvOptions);
}

void frmOptions::mnuPopupMoveDown_Click() {
    moveSelectedEntryDown(lvOptions);
}

void frmOptions::mnuPopupCategoryAdd_Click() {
    const auto name = askInput(this, QStringLiteral("Type in the name of the category to add"),
                               QStringLiteral("Option Editor"));
    if (!name || name->isEmpty())
        return;
    addCategoryBelowSelection(lvOptions, kOptName, *name, categoryIcon_);
}

void frmOptions::cmdOK_Click() {
    StepRunner trap(screenTrap(this, QStringLiteral("Saving Options")));
    std::vector<OptionRow> rows;
    // A list left as it was loaded is saved from the rows as read.
    const std::vector<OptionRow>* saving = &loaded_;
    if (!pristine_)
        trap.step([&] {
            rows = rowsToSave();
            saving = &rows;
        });
    trap.step([&] { SaveDefinitions(path_, *saving); });
    if (!trap.aborted())
        accept();
}

void frmOptions::cmdCancel_Click() {
    reject();
}

} // namespace rd
