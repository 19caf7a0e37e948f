#include "plugins/screens/frmEditAutoWiz.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/listhelpers.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "plugins/screens/frmEditWiz.h"
#include "plugins/wizard.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <vector>

namespace rd {

void EditAutoWiz(QWidget* owner, const std::filesystem::path& root, const std::string& bot) {
    frmEditAutoWiz editor(root, bot, owner);
    editor.exec();
}

frmEditAutoWiz::frmEditAutoWiz(std::filesystem::path root, std::string bot, QWidget* owner)
    : QDialog(owner), root_(std::move(root)), bot_(std::move(bot)) {
    setObjectName(QStringLiteral("frmEditAutoWiz"));
    setWindowTitle(QStringLiteral("AutoExec Wizard Command Editor"));
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    lvCommands = new QTreeWidget(this);
    lvCommands->setObjectName(QStringLiteral("lvCommands"));
    lvCommands->setAccessibleName(QStringLiteral("AutoExec wizard commands"));
    lvCommands->setToolTip(kListCommandsTip);
    lvCommands->setColumnCount(2);
    lvCommands->setHeaderLabels({QStringLiteral("Command"), QStringLiteral("Description")});
    lvCommands->setRootIsDecorated(false);
    lvCommands->setUniformRowHeights(true);
    lvCommands->setAllColumnsShowFocus(true);
    lvCommands->setSelectionMode(QAbstractItemView::SingleSelection);
    lvCommands->setContextMenuPolicy(Qt::PreventContextMenu);
    lvCommands->header()->setSectionsClickable(true);
    lvCommands->header()->setStretchLastSection(true);
    lvCommands->installEventFilter(this);
    lvCommands->viewport()->installEventFilter(this);
    giveMoveKeys(lvCommands);
    connect(lvCommands, &QTreeWidget::itemDoubleClicked, this, &frmEditAutoWiz::mnuPopupEdit_Click);
    connect(lvCommands->header(), &QHeaderView::sectionClicked, this,
            &frmEditAutoWiz::lvCommands_ColumnClick);

    Label1 = new QLabel(QStringLiteral("Right click a command for options"), this);
    Label1->setObjectName(QStringLiteral("Label1"));

    mnuPopup = new QMenu(this);
    mnuPopup->setObjectName(QStringLiteral("mnuPopup"));
    const auto entry = [this](const char* name, const QString& caption, void (frmEditAutoWiz::*slot)()) {
        QAction* action = mnuPopup->addAction(caption);
        action->setObjectName(QString::fromLatin1(name));
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    mnuPopupEdit = entry("mnuPopupEdit", QStringLiteral("&Edit"), &frmEditAutoWiz::mnuPopupEdit_Click);
    mnuPopupAdd = entry("mnuPopupAdd", QStringLiteral("&Add"), &frmEditAutoWiz::mnuPopupAdd_Click);
    mnuPopupMoveUp =
        entry("mnuPopupMoveUp", QStringLiteral("Move &Up"), &frmEditAutoWiz::mnuPopupMoveUp_Click);
    mnuPopupMoveDown =
        entry("mnuPopupMoveDown", QStringLiteral("&Move Down"), &frmEditAutoWiz::mnuPopupMoveDown_Click);
    mnuPopupDelete =
        entry("mnuPopupDelete", QStringLiteral("&Delete"), &frmEditAutoWiz::mnuPopupDelete_Click);
    mnuPopup->setDefaultAction(mnuPopupEdit);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    buttons->insertWidget(0, Label1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvCommands, 1);
    layout->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, &frmEditAutoWiz::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditAutoWiz::cmdCancel_Click);

    openAtTextSize(this, 106, 28);
    Form_Load();
}

void frmEditAutoWiz::Form_Load() {
    applyUserFont(this);
    setWindowTitle(fromBytes(bot_) + QStringLiteral(" : Editing AutoExec Wizard Commands"));
    StepRunner trap(screenTrap(this, fromBytes(kWizardLoadTitle)));
    WizardLoad load;
    trap.step([&] {
        load = LoadWizardCommands(root_, bot_, [this] {
            return showMessage(this, fromBytes(kWizardUseDefaultQuestion), PromptIcon::Information,
                               fromBytes(bot_), PromptButtons::YesNo) == PromptAnswer::Yes;
        });
    });
    if (load.source == WizardSource::NoneAvailable)
        showMessage(this, fromBytes(kWizardStartFromScratch), PromptIcon::Exclamation);
    // One batch: a long list is not laid out again for every row.
    QList<QTreeWidgetItem*> rows;
    rows.reserve(static_cast<qsizetype>(load.commands.size()));
    for (const auto& command : load.commands)
        rows.append(
            new QTreeWidgetItem(QStringList{fromBytes(command.command), fromBytes(command.description)}));
    lvCommands->addTopLevelItems(rows);
    fitColumnsToContent(lvCommands);
}

QTreeWidgetItem* frmEditAutoWiz::selectedRow() const {
    QTreeWidgetItem* current = lvCommands->currentItem();
    return current && current->isSelected() ? current : nullptr;
}

void frmEditAutoWiz::cmdOK_Click() {
    std::vector<WizardCommand> commands;
    commands.reserve(static_cast<std::size_t>(lvCommands->topLevelItemCount()));
    for (int i = 0; i < lvCommands->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = lvCommands->topLevelItem(i);
        commands.push_back({toBytes(row->text(0)), toBytes(row->text(1))});
    }
    // An empty list writes nothing: the file on disk stays as it was.
    StepRunner trap(screenTrap(this, fromBytes(kWizardLoadTitle)));
    trap.step([&] { SaveWizardCommands(root_, bot_, commands); });
    if (!trap.aborted())
        accept();
}

void frmEditAutoWiz::cmdCancel_Click() {
    reject();
}

void frmEditAutoWiz::mnuPopupEdit_Click() {
    if (QTreeWidgetItem* row = selectedRow())
        EditWizardCommand(this, lvCommands, lvCommands->indexOfTopLevelItem(row) + 1);
}

void frmEditAutoWiz::mnuPopupAdd_Click() {
    EditWizardCommand(this, lvCommands, 0);
}

void frmEditAutoWiz::mnuPopupMoveUp_Click() {
    moveSelectedEntryUp(lvCommands);
}

void frmEditAutoWiz::mnuPopupMoveDown_Click() {
    moveSelectedEntryDown(lvCommands);
}

void frmEditAutoWiz::mnuPopupDelete_Click() {
    QTreeWidgetItem* row = selectedRow();
    if (!row)
        return;
    if (showMessage(this, QStringLiteral("Delete this item, are you sure?"), PromptIcon::Exclamation,
                    row->text(0), PromptButtons::YesNo) == PromptAnswer::Yes)
        delete row;
}

void frmEditAutoWiz::lvCommands_ColumnClick(int column) {
    // The clicked column becomes the sort key and sorting is on; the direction stays ascending.
    lvCommands->setSortingEnabled(true);
    lvCommands->sortByColumn(column, Qt::AscendingOrder);
}

void frmEditAutoWiz::showPopup(const QPoint& globalPosition) {
    mnuPopup->popup(globalPosition);
}

bool frmEditAutoWiz::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lvCommands->viewport() && event->type() == QEvent::MouseButtonRelease) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton) {
            if (QTreeWidgetItem* row = lvCommands->itemAt(mouse->position().toPoint()))
                lvCommands->setCurrentItem(row);
            showPopup(mouse->globalPosition().toPoint());
            return true;
        }
    } else if (watched == lvCommands && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers mods = key->modifiers() & ~Qt::KeypadModifier;
        if (mods != Qt::NoModifier)
            return QDialog::eventFilter(watched, event);
        switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            mnuPopupEdit_Click();
            return true;
        case Qt::Key_Insert:
            mnuPopupAdd_Click();
            return true;
        case Qt::Key_Delete:
            mnuPopupDelete_Click();
            return true;
        case Qt::Key_Menu: {
            QTreeWidgetItem* row = lvCommands->currentItem();
            const QRect rect = row ? lvCommands->visualItemRect(row) : lvCommands->viewport()->rect();
            showPopup(lvCommands->viewport()->mapToGlobal(row ? rect.bottomLeft() : rect.center()));
            return true;
        }
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
