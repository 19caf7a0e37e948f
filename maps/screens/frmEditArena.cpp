#include "maps/screens/frmEditArena.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/listhelpers.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/shorttext.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "maps/arenas.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>
#include <vector>

namespace rd {

frmEditArena::frmEditArena(std::filesystem::path path, const std::string& map, QWidget* parent)
    : QDialog(parent), path_(std::move(path)) {
    setObjectName(QStringLiteral("frmEditArena"));
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    lblArenas = new QLabel(QStringLiteral("&Arenas:"), this);
    lblArenas->setObjectName(QStringLiteral("lblArenas"));
    lstArenas = new QListWidget(this);
    lstArenas->setObjectName(QStringLiteral("lstArenas"));
    lstArenas->setSelectionMode(QAbstractItemView::SingleSelection);
    lstArenas->setUniformItemSizes(true);
    lstArenas->setToolTip(kListCommandsTip);
    showLongTextsShortened(lstArenas);
    // The popup opens on the right button's release, selecting the entry under the pointer first.
    lstArenas->setContextMenuPolicy(Qt::PreventContextMenu);
    lblArenas->setBuddy(lstArenas);
    lstArenas->setAccessibleName(QStringLiteral("Arenas:"));

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);

    mnuPopup = new QMenu(this);
    mnuPopup->setObjectName(QStringLiteral("mnuPopup"));
    mnuPopupEdit = makeMenuEntry(mnuPopup, "mnuPopupEdit", QStringLiteral("&Edit"));
    mnuPopupAdd = makeMenuEntry(mnuPopup, "mnuPopupAdd", QStringLiteral("&Add"));
    mnuPopup->addSeparator();
    mnuPopupMoveUp = makeMenuEntry(mnuPopup, "mnuPopupMoveUp", QStringLiteral("Move &Up"));
    mnuPopupMoveDown = makeMenuEntry(mnuPopup, "mnuPopupMoveDown", QStringLiteral("&Move Down"));
    mnuPopup->addSeparator();
    mnuPopupDelete = makeMenuEntry(mnuPopup, "mnuPopupDelete", QStringLiteral("&Delete"));
    mnuPopup->setDefaultAction(mnuPopupEdit);

    auto* top = new QVBoxLayout(this);
    top->addWidget(lblArenas);
    top->addWidget(lstArenas, 1);
    top->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmEditArena::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditArena::cmdCancel_Click);
    connect(mnuPopupEdit, &QAction::triggered, this, &frmEditArena::mnuPopupEdit_Click);
    connect(mnuPopupAdd, &QAction::triggered, this, &frmEditArena::mnuPopupAdd_Click);
    connect(mnuPopupMoveUp, &QAction::triggered, this, &frmEditArena::mnuPopupMoveUp_Click);
    connect(mnuPopupMoveDown, &QAction::triggered, this, &frmEditArena::mnuPopupMoveDown_Click);
    connect(mnuPopupDelete, &QAction::triggered, this, &frmEditArena::mnuPopupDelete_Click);
    connect(lstArenas, &QListWidget::itemDoubleClicked, this, &frmEditArena::lstArenas_DblClick);
    lstArenas->installEventFilter(this);
    lstArenas->viewport()->installEventFilter(this);
    giveMoveKeys(lstArenas);

    setWindowTitle(QStringLiteral("Editing ") + fromBytes(map) + QStringLiteral(" Arenas"));
    openAtTextSize(this, 60, 28);
    Form_Load();
}

void frmEditArena::Form_Load() {
    StepRunner trap(screenTrap(this, QStringLiteral("Arena Editor - loading")));
    trap.step([this] { applyUserFont(this); });
    std::vector<std::string> arenas;
    trap.step([&] { arenas = LoadArenas(path_); });
    lstArenas->setUpdatesEnabled(false);
    lstArenas->addItems(fromBytesList(arenas));
    lstArenas->setUpdatesEnabled(true);
}

int frmEditArena::selectedArena() const {
    return selectedListEntry(lstArenas);
}

void frmEditArena::cmdOK_Click() {
    StepRunner trap(screenTrap(this, QStringLiteral("Arena Editor - saving")));
    std::vector<std::string> arenas;
    arenas.reserve(static_cast<std::size_t>(lstArenas->count()));
    for (int i = 0; i < lstArenas->count(); ++i)
        arenas.push_back(toBytes(lstArenas->item(i)->text()));
    trap.step([&] { SaveArenas(path_, arenas); });
    // Abort keeps the screen open with its list, so nothing typed is lost.
    trap.step([this] { accept(); });
}

void frmEditArena::cmdCancel_Click() {
    reject();
}

void frmEditArena::mnuPopupAdd_Click() {
    const std::optional<QString> answer =
        askInput(this, QStringLiteral("Type in the name of an arena to add here:"));
    if (!answer || answer->isEmpty())
        return;
    const int selected = selectedArena();
    const int at = selected >= 0 ? selected + 1 : lstArenas->count();
    lstArenas->insertItem(at, *answer);
    lstArenas->setCurrentRow(at);
}

void frmEditArena::mnuPopupEdit_Click() {
    const int selected = selectedArena();
    if (selected < 0)
        return;
    const QString name = lstArenas->item(selected)->text();
    const std::optional<QString> answer =
        askInput(this, QStringLiteral("Type the new name for the arena here:"), name, name);
    if (!answer || answer->isEmpty())
        return;
    lstArenas->item(selected)->setText(*answer);
}

void frmEditArena::mnuPopupDelete_Click() {
    const int selected = selectedArena();
    if (selected < 0)
        return;
    const QString name = lstArenas->item(selected)->text();
    if (showMessage(this, QStringLiteral("Delete arena, are you sure?"), PromptIcon::Exclamation, name,
                    PromptButtons::YesNoCancel) != PromptAnswer::Yes)
        return;
    delete lstArenas->takeItem(selected);
    lstArenas->setCurrentRow(-1);
}

void frmEditArena::mnuPopupMoveUp_Click() {
    moveSelectedEntryUp(lstArenas);
}

void frmEditArena::mnuPopupMoveDown_Click() {
    moveSelectedEntryDown(lstArenas);
}

void frmEditArena::lstArenas_DblClick() {
    mnuPopupEdit_Click();
}

void frmEditArena::showPopup(const QPoint& globalPos) {
    mnuPopup->exec(globalPos, mnuPopupEdit);
}

bool frmEditArena::lstArenas_KeyDown(const QKeyEvent* event) {
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        return false;
    switch (event->key()) {
    case Qt::Key_Insert:
        mnuPopupAdd_Click();
        return true;
    case Qt::Key_Delete:
        mnuPopupDelete_Click();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        mnuPopupEdit_Click();
        return true;
    case Qt::Key_Menu: {
        QListWidgetItem* current = lstArenas->currentItem();
        const QRect at = current ? lstArenas->visualItemRect(current) : QRect();
        showPopup(lstArenas->viewport()->mapToGlobal(current ? at.center() : QPoint(0, 0)));
        return true;
    }
    default:
        return false;
    }
}

void frmEditArena::lstArenas_MouseUp(const QPoint& pos) {
    const int entry = ListEntryAtPointer(lstArenas, pos.y());
    if (entry >= 0)
        lstArenas->setCurrentRow(entry);
    showPopup(lstArenas->viewport()->mapToGlobal(pos));
}

bool frmEditArena::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstArenas && event->type() == QEvent::KeyPress)
        return lstArenas_KeyDown(static_cast<QKeyEvent*>(event));
    if (watched == lstArenas->viewport()) {
        const auto type = event->type();
        if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
            type == QEvent::MouseButtonRelease) {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() == Qt::RightButton) {
                if (type == QEvent::MouseButtonRelease)
                    lstArenas_MouseUp(mouse->position().toPoint());
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
