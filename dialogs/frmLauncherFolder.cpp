#include "dialogs/frmLauncherFolder.h"

#include "core/screens/controls.h"
#include "core/screens/prompts.h"
#include "core/screens/userfont.h"
#include "dialogs/frmFindFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

namespace rd {

namespace fs = std::filesystem;

namespace {

const QString kExplanation = QStringLiteral(
    "RosterDesk edits the files of the Tarnwick bot launcher, so it needs to know where the launcher "
    "is installed. Choose the launcher's folder: the folder that holds its Plug-Ins and Game-Paths "
    "folders. Under Wine it lies inside a Wine prefix, for example ~/.wine/drive_c/Tarnwick. "
    "RosterDesk remembers the folder for the next start.");
const QString kNoneFound =
    QStringLiteral("No launcher folder was found in the usual Wine prefixes: find it with Browse.");
const QString kFoundCaption = QStringLiteral("&Launcher folders found:");

QString shown(const fs::path& folder) {
    return QDir::toNativeSeparators(QString::fromStdU16String(folder.u16string()));
}

// A folder as typed: blanks at both ends removed, a leading ~ taken as the home folder, a relative
// folder taken from the current folder (the user typed it).
fs::path typedFolder(const QString& text) {
    QString folder = text.trimmed();
    if (folder == QStringLiteral("~") || folder.startsWith(QStringLiteral("~/")))
        folder = QDir::homePath() + folder.mid(1);
    if (folder.isEmpty())
        return {};
    return fs::path(QDir::cleanPath(QFileInfo(folder).absoluteFilePath()).toStdU16String());
}

// The message for a folder that cannot be the workspace, or nothing when it can.
std::optional<QString> refusal(const fs::path& folder) {
    if (folder.empty())
        return QStringLiteral("Choose the launcher's folder first: pick one from the list, or find it with "
                              "Browse.");
    if (!holdsLauncherData(folder))
        return QStringLiteral("\"%1\" holds neither Plug-Ins nor Game-Paths, so it is not the launcher's "
                              "folder.")
            .arg(shown(folder));
    return std::nullopt;
}

} // namespace

frmLauncherFolder::frmLauncherFolder(const std::vector<fs::path>& found, QWidget* owner) : QDialog(owner) {
    setObjectName(QStringLiteral("frmLauncherFolder"));
    setWindowTitle(kLauncherFolderTitle);
    setSizeGripEnabled(true);

    lblExplain = new QLabel(kExplanation, this);
    lblExplain->setObjectName(QStringLiteral("lblExplain"));
    lblExplain->setWordWrap(true);
    lblExplain->setTextFormat(Qt::PlainText);

    lblFound = new QLabel(kFoundCaption, this);
    lblFound->setObjectName(QStringLiteral("lblFound"));
    lstFound = new QListWidget(this);
    lstFound->setObjectName(QStringLiteral("lstFound"));
    lstFound->setSelectionMode(QAbstractItemView::SingleSelection);
    lstFound->setAccessibleName(QStringLiteral("Launcher folders found:"));
    lstFound->setToolTip(QStringLiteral("Double-click a folder (or select it and press Enter) to use it"));
    lblFound->setBuddy(lstFound);
    for (const auto& folder : found)
        lstFound->addItem(shown(folder));

    lblNoneFound = new QLabel(kNoneFound, this);
    lblNoneFound->setObjectName(QStringLiteral("lblNoneFound"));
    lblNoneFound->setWordWrap(true);
    lblNoneFound->setVisible(found.empty());

    lblFolder = new QLabel(QStringLiteral("&Folder:"), this);
    lblFolder->setObjectName(QStringLiteral("lblFolder"));
    txtFolder = new QLineEdit(this);
    txtFolder->setObjectName(QStringLiteral("txtFolder"));
    lblFolder->setBuddy(txtFolder);
    cmdBrowse = makeButton(this, "cmdBrowse", QStringLiteral("&Browse..."));

    QHBoxLayout* closing = okCancelRow(this, cmdOK, cmdCancel);
    cmdOK->setDefault(true);

    auto* folderRow = new QHBoxLayout;
    folderRow->addWidget(lblFolder);
    folderRow->addWidget(txtFolder, 1);
    folderRow->addWidget(cmdBrowse);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblExplain);
    layout->addWidget(lblFound);
    layout->addWidget(lstFound, 1);
    layout->addWidget(lblNoneFound);
    layout->addLayout(folderRow);
    layout->addLayout(closing);
    setTabOrder(lstFound, txtFolder);
    setTabOrder(txtFolder, cmdBrowse);
    setTabOrder(cmdBrowse, cmdOK);
    setTabOrder(cmdOK, cmdCancel);

    connect(lstFound, &QListWidget::currentRowChanged, this, &frmLauncherFolder::lstFound_Click);
    connect(lstFound, &QListWidget::itemDoubleClicked, this, &frmLauncherFolder::lstFound_DblClick);
    connect(cmdBrowse, &QPushButton::clicked, this, &frmLauncherFolder::cmdBrowse_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmLauncherFolder::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmLauncherFolder::cmdCancel_Click);

    applyUserFont(this);
    if (lstFound->count() > 0)
        lstFound->setCurrentRow(0);
    (lstFound->count() > 0 ? static_cast<QWidget*>(lstFound) : txtFolder)->setFocus();

    const QFontMetrics metrics(font());
    resize(metrics.averageCharWidth() * 72, sizeHint().height() + metrics.lineSpacing() * 4);
}

void frmLauncherFolder::lstFound_Click() {
    if (QListWidgetItem* item = lstFound->currentItem())
        txtFolder->setText(item->text());
}

void frmLauncherFolder::lstFound_DblClick() {
    lstFound_Click();
    cmdOK_Click();
}

void frmLauncherFolder::cmdBrowse_Click() {
    QString start = txtFolder->text().trimmed();
    if (start.isEmpty())
        start = QDir::homePath();
    const QString chosen = FindFolder(this, start);
    if (!chosen.isEmpty())
        txtFolder->setText(chosen);
}

void frmLauncherFolder::cmdOK_Click() {
    const fs::path folder = typedFolder(txtFolder->text());
    if (const auto message = refusal(folder)) {
        showMessage(this, *message, PromptIcon::Exclamation, kLauncherFolderTitle);
        return;
    }
    chosen_ = folder;
    accept();
}

void frmLauncherFolder::cmdCancel_Click() {
    chosen_.clear();
    reject();
}

std::optional<fs::path> LauncherFolderWindow(const std::vector<fs::path>& found) {
    frmLauncherFolder window(found);
    if (window.exec() != QDialog::Accepted || window.chosenFolder().empty())
        return std::nullopt;
    return window.chosenFolder();
}

std::optional<fs::path> LauncherFolderPrompt(const std::vector<fs::path>& found) {
    QString text = kExplanation + QStringLiteral("\n\n");
    if (found.empty()) {
        text += kNoneFound;
    } else {
        text += QStringLiteral("Launcher folders found:");
        for (const auto& folder : found)
            text += QStringLiteral("\n") + shown(folder);
    }
    const QString suggested = found.empty() ? QString() : shown(found.front());
    for (;;) {
        const std::optional<QString> answer = askInput(nullptr, text, kLauncherFolderTitle, suggested);
        if (!answer)
            return std::nullopt;
        const fs::path folder = typedFolder(*answer);
        if (const auto message = refusal(folder)) {
            showMessage(nullptr, *message, PromptIcon::Exclamation, kLauncherFolderTitle);
            continue;
        }
        return folder;
    }
}

std::optional<DesktopRoot> OpenDesktopWorkspace(const fs::path& programFolder, QSettings& settings,
                                                bool chooseAgain, const AskLauncherFolder& ask) {
    if (!chooseAgain) {
        const QString remembered = settings.value(kLauncherFolderSetting).toString();
        if (auto root = desktopWorkspaceRoot(programFolder, fs::path(remembered.toStdU16String())))
            return root;
    }
    const std::optional<fs::path> chosen = ask(findLauncherFolders(usualWinePrefixes()));
    if (!chosen)
        return std::nullopt;
    if (!holdsLauncherData(programFolder)) {
        settings.setValue(kLauncherFolderSetting, QString::fromStdU16String(chosen->u16string()));
        settings.sync();
    }
    return DesktopRoot{*chosen, RootSource::Chosen};
}

} // namespace rd
