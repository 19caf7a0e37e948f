#include "dialogs/frmFindFolder.h"

#include "core/screens/controls.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/workspace.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStorageInfo>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>
#include <filesystem>
#include <system_error>

namespace rd {

namespace {

#ifdef Q_OS_WIN
constexpr Qt::CaseSensitivity kPathCase = Qt::CaseInsensitive;
#else
constexpr Qt::CaseSensitivity kPathCase = Qt::CaseSensitive;
#endif

// Paths the launcher's files hold may use either separator.
QString cleanFolder(const QString& path) {
    QString text = path;
    text.replace(QChar(u'\\'), QChar(u'/'));
    return QDir::cleanPath(text);
}

// Whether `path` lies on the drive whose root is `root` (component-wise: "/work" does not hold
// "/workshop").
bool onDrive(const QString& path, const QString& root) {
    const QString r = cleanFolder(root);
    if (!path.startsWith(r, kPathCase))
        return false;
    return path.size() == r.size() || r.endsWith(QChar(u'/')) || path.at(r.size()) == QChar(u'/');
}

} // namespace

QString FindFolder(QWidget* owner, const QString& startFolder, const WinePrefix& wine) {
    frmFindFolder picker(startFolder, owner, wine);
    picker.exec();
    return picker.chosenFolder();
}

frmFindFolder::frmFindFolder(const QString& startFolder, QWidget* owner, const WinePrefix& wine)
    : QDialog(owner), wine_(wine) {
    setObjectName(QStringLiteral("frmFindFolder"));
    setWindowTitle(QStringLiteral("Choose Path"));

    Drive1 = new QComboBox(this);
    Drive1->setAccessibleName(QStringLiteral("Drive"));
    Drive1->setObjectName(QStringLiteral("Drive1"));
    if (!addWineDrives())
        addVolumes();

    model_ = new QFileSystemModel(this);
    // Hidden folders (names beginning with "." on Linux, the hidden attribute on Windows) are not
    // listed; a folder the picker is asked to open is shown even inside one (a Wine prefix in
    // ~/.wine): the model lists the way to a folder it is asked for.
    model_->setFilter(QDir::AllDirs | QDir::Drives | QDir::NoDotAndDotDot);
    model_->setReadOnly(true);

    Dir1 = new QTreeView(this);
    Dir1->setAccessibleName(QStringLiteral("Folder"));
    Dir1->setObjectName(QStringLiteral("Dir1"));
    Dir1->setModel(model_);
    Dir1->setHeaderHidden(true);
    for (int column = 1; column < model_->columnCount(); ++column)
        Dir1->hideColumn(column);
    Dir1->setSelectionMode(QAbstractItemView::SingleSelection);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    cmdOK->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Drive1);
    layout->addWidget(Dir1, 1);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmFindFolder::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmFindFolder::cmdCancel_Click);
    connect(Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (current.isValid())
                    openFolder_ = model_->filePath(current);
            });

    connect(model_, &QFileSystemModel::directoryLoaded, this, [this](const QString& folder) {
        const QModelIndex current = Dir1->currentIndex();
        if (scrollPending_ && current.isValid() && model_->filePath(current.parent()) == folder) {
            scrollPending_ = false;
            QTimer::singleShot(0, this, [this] {
                Dir1->scrollTo(Dir1->currentIndex(), QAbstractItemView::PositionAtCenter);
            });
        }
    });

    applyUserFont(this);

    // The default drive and folder: those of the current folder.
    const QString current = cleanFolder(QDir::currentPath());
    selectDriveOf(current);
    showDrive(selectedDrive());
    openAt(current);
    connect(Drive1, &QComboBox::currentIndexChanged, this, &frmFindFolder::Drive1_Change);

    // The start folder: its drive, then the folder itself. Whatever is not there is skipped.
    if (!startFolder.isEmpty()) {
        // A relative folder is taken from the current folder.
        const QString start = cleanFolder(QDir::current().absoluteFilePath(cleanFolder(startFolder)));
        if (selectDriveOf(start))
            openAt(start);
    }

    openAtTextSize(this, 64, 24);
}

bool frmFindFolder::addWineDrives() {
    if (!wine_.mapsDrives())
        return false;
    for (const WineDrive& drive : wine_.drives) {
        std::error_code ec;
        if (!std::filesystem::is_directory(drive.folder(), ec))
            continue; // a drive whose link leads nowhere cannot be opened
        const QString root = QString::fromStdU16String(drive.folder().u16string());
        Drive1->addItem(QStringLiteral("%1:").arg(QChar::fromLatin1(drive.letter)), root);
        Drive1->setItemData(Drive1->count() - 1, QDir::toNativeSeparators(root), Qt::ToolTipRole);
    }
    return Drive1->count() > 0;
}

void frmFindFolder::addVolumes() {
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (!volume.isValid() || !volume.isReady())
            continue;
        const QString root = volume.rootPath();
        const QString name = volume.displayName();
        const QString shown = name.isEmpty() || name == root
                                  ? QDir::toNativeSeparators(root)
                                  : QStringLiteral("%1 [%2]").arg(QDir::toNativeSeparators(root), name);
        Drive1->addItem(shown, root);
    }
}

QString frmFindFolder::selectedDrive() const {
    return Drive1->currentData().toString();
}

bool frmFindFolder::selectDriveOf(const QString& path) {
    int best = -1;
    qsizetype bestLength = -1;
    for (int i = 0; i < Drive1->count(); ++i) {
        const QString root = Drive1->itemData(i).toString();
        if (onDrive(path, root) && root.size() > bestLength) {
            best = i;
            bestLength = root.size();
        }
    }
    if (best < 0)
        return false;
    Drive1->setCurrentIndex(best);
    return true;
}

void frmFindFolder::showDrive(const QString& root) {
    if (root.isEmpty())
        return;
    model_->setRootPath(root);
    Dir1->setRootIndex(model_->index(root));
    Dir1->setCurrentIndex(QModelIndex());
    openFolder_ = cleanFolder(root);
}

void frmFindFolder::openAt(const QString& path) {
    if (!QFileInfo(path).isDir() || !onDrive(path, selectedDrive()))
        return;
    const QString root = cleanFolder(selectedDrive());
    if (path == root) {
        showDrive(selectedDrive());
        return;
    }
    const QModelIndex index = model_->index(path);
    if (!index.isValid())
        return;
    // Only the way down to the open folder is expanded.
    Dir1->collapseAll();
    for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent())
        Dir1->expand(parent);
    Dir1->setCurrentIndex(index);
    Dir1->expand(index);
    Dir1->scrollTo(index);
    openFolder_ = path;
    // The folders load in the background: show the open folder again once its parent is listed.
    scrollPending_ = true;
}

void frmFindFolder::Drive1_Change() {
    // A drive's current folder: the program's current folder when it lies on that drive, else the
    // drive's root.
    const QString root = selectedDrive();
    showDrive(root);
    const QString current = cleanFolder(QDir::currentPath());
    if (onDrive(current, root))
        openAt(current);
}

void frmFindFolder::cmdOK_Click() {
    if (!openFolder_.isEmpty()) {
        result_ = QDir::toNativeSeparators(openFolder_);
        // Under Wine the launcher reads the folder on its drive: C:\Quake2\baseq2\.
        if (const auto drivePath = drivePathOf(std::filesystem::path(openFolder_.toStdU16String()), wine_))
            result_ = fromBytes(withTrailingSeparator(*drivePath));
    }
    accept();
}

void frmFindFolder::cmdCancel_Click() {
    result_.clear();
    reject();
}

} // namespace rd
