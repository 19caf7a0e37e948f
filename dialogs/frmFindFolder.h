#pragma once
// The folder picker: choose a drive (a mounted volume, or under Wine a drive of the workspace's
// prefix) and a folder on it.

#include "core/winepaths.h"

#include <QDialog>
#include <QString>

class QComboBox;
class QFileSystemModel;
class QPushButton;
class QTreeView;

namespace rd {

// Opens the folder picker modally over `owner`, at `startFolder` when that folder exists (a
// folder or drive that is not there leaves the picker at the current folder, without a word).
// Returns the folder chosen with OK, or an empty text when the user cancelled. With a Wine prefix
// that maps drives, the drive list shows the prefix's drives (C:, D:, Z:, ...) and the folder
// chosen comes back as the launcher names it: "C:\Quake2\baseq2\".
QString FindFolder(QWidget* owner, const QString& startFolder, const WinePrefix& wine = {});

class frmFindFolder : public QDialog {
    Q_OBJECT
public:
    explicit frmFindFolder(const QString& startFolder, QWidget* owner = nullptr, const WinePrefix& wine = {});

    // After OK: the folder that was open in the tree (native separators; in drive form with a
    // trailing backslash when a Wine prefix maps the drives). Empty otherwise.
    QString chosenFolder() const { return result_; }
    // The folder open in the tree right now.
    QString openFolder() const { return openFolder_; }
    // The root of the drive selected in Drive1.
    QString selectedDrive() const;

    QComboBox* Drive1;
    QTreeView* Dir1;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

public slots:
    void Drive1_Change();
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    // Selects the drive that holds `path` (without firing Drive1_Change when it is already
    // selected); returns whether one does.
    bool selectDriveOf(const QString& path);
    // Opens the tree at `path` if it is an existing folder on the selected drive; else nothing.
    void openAt(const QString& path);
    void showDrive(const QString& root);

    // Fills Drive1 with the prefix's drives whose folders exist; false when there are none.
    bool addWineDrives();
    void addVolumes();

    WinePrefix wine_;
    QFileSystemModel* model_;
    QString openFolder_;
    QString result_;
    bool scrollPending_ = false;
};

} // namespace rd
