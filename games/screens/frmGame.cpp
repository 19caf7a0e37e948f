#include "games/screens/frmGame.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "core/workspace.h"
#include "games/gamelist.h"
#include "games/gamerecord.h"
#include "games/screens/frmEditGame.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>
#include <string>
#include <vector>

namespace rd {

void EditGamePaths(QWidget* owner, const std::filesystem::path& root) {
    frmGame form(root, owner);
    form.exec();
}

frmGame::frmGame(std::filesystem::path root, QWidget* owner) : QDialog(owner), root_(std::move(root)) {
    setObjectName(QStringLiteral("frmGame"));
    setWindowTitle(QStringLiteral("Game Path Editor"));
    setSizeGripEnabled(true);

    Label1 = new QLabel(QStringLiteral("Available Games"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    lstGames = new QListWidget(this);
    lstGames->setObjectName(QStringLiteral("lstGames"));
    lstGames->setSelectionMode(QAbstractItemView::SingleSelection);
    lstGames->setAccessibleName(Label1->text());
    Label1->setBuddy(lstGames);

    cmdAdd = makeButton(this, "cmdAdd", QStringLiteral("&Add"));
    cmdEdit = makeButton(this, "cmdEdit", QStringLiteral("&Edit"));
    cmdDelete = makeButton(this, "cmdDelete", QStringLiteral("&Delete"));
    cmdOK = makeButton(this, "cmdOK", QStringLiteral("&OK"));

    // The list keeps the same margin on both sides whatever the width; the buttons sit below it.
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdAdd);
    buttons->addWidget(cmdEdit);
    buttons->addWidget(cmdDelete);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(lstGames, 1);
    layout->addLayout(buttons);

    connect(cmdAdd, &QPushButton::clicked, this, &frmGame::cmdAdd_Click);
    connect(cmdEdit, &QPushButton::clicked, this, &frmGame::cmdEdit_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmGame::cmdDelete_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmGame::cmdOK_Click);
    connect(lstGames, &QListWidget::itemDoubleClicked, this, &frmGame::lstGames_DblClick);
    lstGames->installEventFilter(this);

    Form_Load();

    openAtTextSize(this, 45, 18);
}

void frmGame::Form_Load() {
    applyUserFont(this);
    // Errors while filling are passed over: the entry is skipped and filling goes on.
    std::vector<std::string> games;
    try {
        games = ListGames(root_);
    } catch (const std::exception&) {
    }
    QStringList names;
    for (const auto& game : games)
        names << fromBytes(game);
    lstGames->addItems(names);
}

QListWidgetItem* frmGame::selectedGame() const {
    QListWidgetItem* item = lstGames->currentItem();
    return item && item->isSelected() ? item : nullptr;
}

void frmGame::cmdAdd_Click() {
    const std::optional<QString> answer =
        askInput(this, QStringLiteral("Type in the name of the game you want to add"));
    if (!answer || answer->isEmpty())
        return;
    const std::string name = toBytes(*answer);
    if (const std::optional<std::string> refusal = refuseNewName(name)) {
        showMessage(this, fromBytes(*refusal), PromptIcon::Exclamation);
        return;
    }
    StepRunner trap(screenTrap(this, fromBytes(kCreateGameTitle)));
    switch (CreateGame(root_, name, trap)) {
    case CreateGameResult::AlreadyExists:
        showMessage(this, fromBytes(kGameAlreadyExists), PromptIcon::Exclamation);
        break;
    case CreateGameResult::Created:
    case CreateGameResult::Failed:
        // The name goes on the list once it has passed the checks, whatever happens to the
        // folder and the record after that (nothing is rolled back).
        lstGames->addItem(*answer);
        break;
    case CreateGameResult::NoName:
    case CreateGameResult::RefusedName:
        break;
    }
}

void frmGame::cmdEdit_Click() {
    if (QListWidgetItem* game = selectedGame())
        EditGame(this, root_, toBytes(game->text()));
}

void frmGame::lstGames_DblClick() {
    cmdEdit_Click();
}

void frmGame::cmdDelete_Click() {
    QListWidgetItem* game = selectedGame();
    if (!game)
        return;
    const QString name = game->text();
    if (showMessage(this, QStringLiteral("Delete this game and its paths entirely, are you sure?!"),
                    PromptIcon::Exclamation, name, PromptButtons::YesNoCancel) != PromptAnswer::Yes)
        return;
    StepRunner trap(screenTrap(this, fromBytes(kDeleteGameTitle)));
    DeleteGame(root_, toBytes(name), trap);
    // Removing the entry is the last step: it is left out only when the user aborted.
    if (!trap.aborted())
        delete lstGames->takeItem(lstGames->row(game));
}

void frmGame::cmdOK_Click() {
    accept();
}

bool frmGame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstGames && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
            (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
            lstGames_DblClick();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
