#include "games/screens/frmEditGame.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/screens/zoomtextbox.h"
#include "core/steprunner.h"
#include "dialogs/frmFindFolder.h"
#include "games/programfolder.h"
#include "games/screens/desktop.h"
#include "games/screens/frmGameTemplate.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <exception>

namespace rd {

namespace {

// The batch file chooser's filter and title, as the launcher's common dialog has them.
const QString kBatchFilter = QStringLiteral("Batch Files (*.bat)|*.bat|All Files|*.*");
const QString kBatchTitle = QStringLiteral("Choose a batch file to execute on launch");

// Focus that comes and goes with the whole window (another window activated, a popup opened) is
// not the box's own: the box has not been left.
bool windowFocusChange(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

} // namespace

void EditGame(QWidget* owner, const std::filesystem::path& root, const std::string& game) {
    frmEditGame form(root, game, owner);
    if (form.tag() == QStringLiteral("UNLOAD"))
        return; // nothing to edit: the message was shown, nothing is written
    form.exec();
}

frmEditGame::frmEditGame(std::filesystem::path root, std::string game, QWidget* owner)
    : QDialog(owner), root_(std::move(root)), game_(std::move(game)), wine_(findWinePrefix(root_)) {
    setObjectName(QStringLiteral("frmEditGame"));
    setWindowTitle(QStringLiteral("Edit Game"));
    setSizeGripEnabled(true);

    lblGamePathsFor = new QLabel(QStringLiteral("Game Paths For:"), this);
    lblGamePathsFor->setObjectName(QStringLiteral("lblGamePathsFor"));
    lblGameName = new QLabel(this);
    lblGameName->setObjectName(QStringLiteral("lblGameName"));
    lblGameName->setTextFormat(Qt::PlainText);
    QFont bold = lblGameName->font();
    bold.setBold(true);
    lblGameName->setFont(bold);

    buildGamePathTabs(this, true);

    QHBoxLayout* closing = okCancelRow(this, cmdOK, cmdCancel);
    cmdOK->setDefault(true);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setSingleShot(true);
    Timer1->setInterval(0);

    auto* heading = new QHBoxLayout;
    heading->addWidget(lblGamePathsFor);
    heading->addWidget(lblGameName, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(heading);
    layout->addWidget(SSTab1, 1);
    layout->addLayout(closing);

    // F2 opens the zoom editor on every text box, with its caption "Zoom".
    for (QLineEdit* box : textBoxes())
        giveZoomKey(box);
    txtLocationOfExe->installEventFilter(this);

    connect(cmdChooseGameDir, &QPushButton::clicked, this, &frmEditGame::cmdChooseGameDir_Click);
    connect(cmdMapLocation, &QPushButton::clicked, this, &frmEditGame::cmdMapLocation_Click);
    connect(cmdCDpath, &QPushButton::clicked, this, &frmEditGame::cmdCDpath_Click);
    connect(cmdChooseModel, &QPushButton::clicked, this, &frmEditGame::cmdChooseModel_Click);
    connect(cmdChooseMapReadme, &QPushButton::clicked, this, &frmEditGame::cmdChooseMapReadme_Click);
    connect(cmdChooseBatch, &QPushButton::clicked, this, &frmEditGame::cmdChooseBatch_Click);
    connect(cmdEditBatch, &QPushButton::clicked, this, &frmEditGame::cmdEditBatch_Click);
    connect(cmdBatchNote, &QPushButton::clicked, this, &frmEditGame::cmdBatchNote_Click);
    connect(cmdTemplate, &QPushButton::clicked, this, &frmEditGame::cmdTemplate_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmEditGame::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditGame::cmdCancel_Click);
    connect(Timer1, &QTimer::timeout, this, &frmEditGame::Timer1_Timer);

    Form_Load();

    // Wide enough for the paths the record holds.
    openAtTextSize(this, 80, 0);
    for (QLineEdit* box : textBoxes())
        showWholeText(box);
    txtLocationOfExe->setFocus();
}

void frmEditGame::Form_Load() {
    StepRunner trap(screenTrap(this, QStringLiteral("Loading Game Paths"), fromBytes(kGameLoadTrapLead)));
    trap.step([this] { applyUserFont(this); });
    lblGameName->setText(fromBytes(game_));
    std::optional<GamePathRecord> record;
    bool missing = false;
    trap.step([&] {
        record = LoadGameRecord(root_, game_, trap);
        missing = !record;
    });
    if (missing) {
        showMessage(this, fromBytes(gameNotFoundMessage(gameRecordPath(root_, game_))),
                    PromptIcon::Exclamation);
        tag_ = QStringLiteral("UNLOAD");
        return;
    }
    showRecord(record ? *record : GamePathRecord{});
}

void frmEditGame::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (tag_ == QStringLiteral("UNLOAD"))
        Timer1->start();
}

void frmEditGame::Timer1_Timer() {
    if (tag_ == QStringLiteral("UNLOAD"))
        close();
}

bool frmEditGame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtLocationOfExe) {
        if (event->type() == QEvent::FocusIn && !exeFolderFocused_) {
            exeFolderFocused_ = true;
            txtLocationOfExe_GotFocus();
        } else if (event->type() == QEvent::FocusOut && exeFolderFocused_ &&
                   !windowFocusChange(static_cast<QFocusEvent*>(event)->reason())) {
            exeFolderFocused_ = false;
            txtLocationOfExe_LostFocus();
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmEditGame::txtLocationOfExe_GotFocus() {
    rememberedExeFolder_ = txtLocationOfExe->text();
}

void frmEditGame::txtLocationOfExe_LostFocus() {
    const QString folder = txtLocationOfExe->text();
    if (!isQuake2Program(toBytes(txtEXEName->text())) || folder == rememberedExeFolder_)
        return;
    // A folder of this system typed under Wine: the launcher reads the maps and models folders
    // in drive form. The program folder itself stays as typed.
    const std::string bytes = launcherPathText(toBytes(folder), wine_);
    txtMapLocation->setText(fromBytes(quake2DataFolder(bytes, "maps")));
    txtModels->setText(fromBytes(quake2DataFolder(bytes, "players")));
    rememberedExeFolder_ = folder;
}

void frmEditGame::chooseFolderFor(QLineEdit* box) {
    const QString chosen = FindFolder(this, platformPath(box->text(), wine_), wine_);
    if (!chosen.isEmpty())
        box->setText(chosen);
}

void frmEditGame::cmdChooseGameDir_Click() {
    chooseFolderFor(txtLocationOfExe);
}

void frmEditGame::cmdMapLocation_Click() {
    chooseFolderFor(txtMapLocation);
}

void frmEditGame::cmdCDpath_Click() {
    chooseFolderFor(txtCDPath);
}

void frmEditGame::cmdChooseModel_Click() {
    chooseFolderFor(txtModels);
}

void frmEditGame::cmdChooseMapReadme_Click() {
    chooseFolderFor(txtMapReadMe);
}

void frmEditGame::cmdChooseBatch_Click() {
    const QString chosen =
        Desktop::current().chooseFileToOpen(this, kBatchTitle, txtBatchFile->text(), kBatchFilter, wine_);
    if (!chosen.isEmpty())
        txtBatchFile->setText(wine_.mapsDrives() ? fromBytes(launcherPathText(toBytes(chosen), wine_))
                                                 : chosen);
}

void frmEditGame::cmdEditBatch_Click() {
    const QString file = txtBatchFile->text();
    if (!Desktop::current().startTextEditor(this, file, wine_))
        showMessage(this,
                    QStringLiteral("Could not start a text editor for the batch file \"%1\".").arg(file),
                    PromptIcon::Exclamation);
}

void frmEditGame::cmdBatchNote_Click() {
    showMessage(this,
                QStringLiteral("If you are running a batch file that needs input from the user ") +
                    QStringLiteral("and you are launching directly from the batch file you must make sure ") +
                    QStringLiteral("it does not run 'hidden' otherwise it will get stuck in memory - ") +
                    QStringLiteral("in all other situations, you will want to run 'hidden'"),
                PromptIcon::Information);
}

void frmEditGame::cmdTemplate_Click() {
    EditGameTemplate(this, root_, game_);
}

void frmEditGame::cmdOK_Click() {
    try {
        SaveGameRecord(root_, game_, recordShown());
    } catch (const std::exception& e) {
        showMessage(this, fromBytes(e.what()), PromptIcon::Exclamation, fromBytes(kSaveGameTitle));
        return;
    }
    accept();
}

void frmEditGame::cmdCancel_Click() {
    reject();
}

} // namespace rd
