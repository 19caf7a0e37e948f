#include "maps/screens/gamefilechooser.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/shorttext.h"
#include "core/screens/userfont.h"
#include "games/gamelist.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <exception>
#include <optional>

namespace rd {

namespace {

// "No games have yet been created." + CR LF + the two sentences joined with nothing between them.
const QString kNoGames = QStringLiteral("No games have yet been created.\r\n"
                                        "Most likely, you have not installed Tarnwick properly."
                                        "Run the main program first before trying this");

void nameByLabel(QLabel* label, QWidget* control) {
    label->setBuddy(control);
    control->setAccessibleName(QString(label->text()).remove(QLatin1Char('&')));
}

} // namespace

GameFileChooser::GameFileChooser(std::filesystem::path root, Words words, QWidget* parent)
    : QDialog(parent), root_(std::move(root)), words_(std::move(words)) {
    setObjectName(QString::fromLatin1(words_.formName));
    setWindowTitle(words_.caption);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    lblGame = new QLabel(words_.gameLabel, this);
    lblGame->setObjectName(QStringLiteral("lblGame"));
    cboGame = new QComboBox(this);
    cboGame->setObjectName(QStringLiteral("cboGame"));
    cboGame->setEditable(false);
    nameByLabel(lblGame, cboGame);

    lblMapNames = new QLabel(words_.listLabel, this);
    lblMapNames->setObjectName(QStringLiteral("lblMapNames"));
    lstMapNames = new QListWidget(this);
    lstMapNames->setObjectName(QStringLiteral("lstMapNames"));
    lstMapNames->setSelectionMode(QAbstractItemView::SingleSelection);
    lstMapNames->setUniformItemSizes(true);
    showLongTextsShortened(lstMapNames);
    nameByLabel(lblMapNames, lstMapNames);

    cmdNew = makeButton(this, "cmdNew", QStringLiteral("&New"));
    cmdEdit = makeButton(this, "cmdEdit", QStringLiteral("&Edit"));
    cmdRename = makeButton(this, "cmdRename", QStringLiteral("&Rename"));
    cmdDelete = makeButton(this, "cmdDelete", QStringLiteral("&Delete"));
    cmdClose = makeButton(this, "cmdClose", QStringLiteral("&Close"));

    auto* gameRow = new QHBoxLayout;
    gameRow->addWidget(lblGame);
    gameRow->addWidget(cboGame, 1);

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {cmdNew, cmdEdit, cmdRename, cmdDelete})
        buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);

    auto* listRow = new QHBoxLayout;
    listRow->addWidget(lstMapNames, 1);
    listRow->addLayout(buttons);

    auto* top = new QVBoxLayout(this);
    top->addLayout(gameRow);
    top->addWidget(lblMapNames);
    top->addLayout(listRow, 1);

    setTabOrder(cboGame, lstMapNames);
    setTabOrder(lstMapNames, cmdNew);
    setTabOrder(cmdNew, cmdEdit);
    setTabOrder(cmdEdit, cmdRename);
    setTabOrder(cmdRename, cmdDelete);
    setTabOrder(cmdDelete, cmdClose);

    connect(cboGame, &QComboBox::currentIndexChanged, this, &GameFileChooser::cboGame_Click);
    connect(lstMapNames, &QListWidget::itemDoubleClicked, this, &GameFileChooser::lstMapNames_DblClick);
    connect(cmdNew, &QPushButton::clicked, this, &GameFileChooser::cmdNew_Click);
    connect(cmdEdit, &QPushButton::clicked, this, &GameFileChooser::cmdEdit_Click);
    connect(cmdRename, &QPushButton::clicked, this, &GameFileChooser::cmdRename_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &GameFileChooser::cmdDelete_Click);
    connect(cmdClose, &QPushButton::clicked, this, &GameFileChooser::cmdClose_Click);
    lstMapNames->installEventFilter(this);

    openAtTextSize(this, 70, 26);
}

void GameFileChooser::Form_Load() {
    applyUserFont(this);
    const std::vector<std::string> games = ListGames(root_);
    if (games.empty()) {
        showMessage(this, kNoGames, PromptIcon::Exclamation);
        tag_ = kUnloadTag;
        return;
    }
    {
        const QSignalBlocker quiet(cboGame);
        cboGame->addItems(fromBytesList(games));
        cboGame->setCurrentIndex(0);
    }
    cboGame_Click();
}

void GameFileChooser::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (tag_ == kUnloadTag)
        QTimer::singleShot(0, this, &QWidget::close);
}

bool GameFileChooser::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstMapNames && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
            return QDialog::eventFilter(watched, event);
        switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            cmdEdit_Click();
            return true;
        case Qt::Key_Delete:
            cmdDelete_Click();
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

std::string GameFileChooser::chosenGame() const {
    return cboGame->currentIndex() < 0 ? std::string() : toBytes(cboGame->currentText());
}

bool GameFileChooser::selectedName(std::string& name, int& row) const {
    QListWidgetItem* current = lstMapNames->currentItem();
    if (!current || !current->isSelected() || chosenGame().empty())
        return false;
    name = toBytes(current->text());
    row = lstMapNames->row(current);
    return true;
}

void GameFileChooser::fillNames() {
    lstMapNames->setUpdatesEnabled(false);
    lstMapNames->clear();
    const std::string game = chosenGame();
    if (!game.empty()) {
        try {
            lstMapNames->addItems(fromBytesList(listNames(game)));
        } catch (const std::exception& error) {
            reportFailure(this, words_.caption, error.what());
        }
    }
    lstMapNames->setUpdatesEnabled(true);
}

void GameFileChooser::cboGame_Click() {
    fillNames();
}

void GameFileChooser::lstMapNames_DblClick() {
    cmdEdit_Click();
}

void GameFileChooser::cmdNew_Click() {
    const std::string game = chosenGame();
    if (game.empty())
        return;
    const std::optional<QString> answer = askInput(this, words_.newPrompt, words_.newTitle);
    if (!answer || answer->isEmpty())
        return;
    const std::string name = toBytes(*answer);
    NewFileOutcome outcome;
    try {
        outcome = createName(game, name);
    } catch (const std::exception& error) {
        reportFailure(this, words_.caption, error.what());
        return;
    }
    if (outcome.refusal) {
        showMessage(this, fromBytes(*outcome.refusal), PromptIcon::Exclamation, words_.newTitle);
        return;
    }
    openEditor(game, name, outcome.path);
    fillNames();
}

void GameFileChooser::cmdEdit_Click() {
    std::string name;
    int row = -1;
    if (!selectedName(name, row))
        return;
    const std::string game = chosenGame();
    openEditor(game, name, pathOf(game, name));
}

void GameFileChooser::cmdRename_Click() {
    std::string name;
    int row = -1;
    if (!selectedName(name, row))
        return;
    const QString oldName = fromBytes(name);
    const std::optional<QString> answer =
        askInput(this, QStringLiteral("Type in a new name"), oldName, oldName);
    if (!answer)
        return;
    RenameOutcome outcome;
    try {
        outcome = renameName(chosenGame(), name, toBytes(*answer));
    } catch (const std::exception& error) {
        reportFailure(this, words_.caption, error.what());
        return;
    }
    switch (outcome.result) {
    case RenameResult::Unchanged:
        return;
    case RenameResult::Refused:
        showMessage(this, fromBytes(outcome.refusal), PromptIcon::Exclamation);
        return;
    case RenameResult::Renamed:
        lstMapNames->item(row)->setText(*answer);
        return;
    }
}

void GameFileChooser::cmdDelete_Click() {
    std::string name;
    int row = -1;
    if (!selectedName(name, row))
        return;
    if (showMessage(this, words_.deleteQuestion, PromptIcon::Exclamation, fromBytes(name),
                    PromptButtons::YesNoCancel) != PromptAnswer::Yes)
        return;
    try {
        deleteName(chosenGame(), name);
    } catch (const std::exception& error) {
        reportFailure(this, words_.caption, error.what());
        return;
    }
    delete lstMapNames->takeItem(row);
    lstMapNames->setCurrentRow(-1);
}

void GameFileChooser::cmdClose_Click() {
    close();
}

} // namespace rd
