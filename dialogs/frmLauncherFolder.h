#pragma once
// The first-start window of the desktop program: when RosterDesk is installed apart from the
// launcher and knows no launcher folder yet, it asks for one, offering the launcher folders it
// finds in the usual Wine prefixes, and remembers the answer (core/launcherfolder.h has the rule).

#include "core/launcherfolder.h"

#include <QDialog>
#include <QString>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSettings;

namespace rd {

// The window's caption, also the title of its messages.
inline const QString kLauncherFolderTitle = QStringLiteral("Choose Launcher Folder");
// The setting that remembers the launcher's folder (the one setting the program keeps).
inline const QString kLauncherFolderSetting = QStringLiteral("launcherFolder");

class frmLauncherFolder : public QDialog {
    Q_OBJECT
public:
    // `found`: the launcher folders to offer, in order.
    explicit frmLauncherFolder(const std::vector<std::filesystem::path>& found, QWidget* owner = nullptr);

    // After OK: the folder chosen (it holds Plug-Ins or Game-Paths). Empty otherwise.
    const std::filesystem::path& chosenFolder() const { return chosen_; }

    QLabel* lblExplain = nullptr;
    QLabel* lblFound = nullptr;
    QListWidget* lstFound = nullptr;
    QLabel* lblNoneFound = nullptr;
    QLabel* lblFolder = nullptr;
    QLineEdit* txtFolder = nullptr;
    QPushButton* cmdBrowse = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void lstFound_Click();
    void lstFound_DblClick();
    void cmdBrowse_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    std::filesystem::path chosen_;
};

// Asks for the launcher's folder, offering `found`; nothing when the user cancelled.
using AskLauncherFolder =
    std::function<std::optional<std::filesystem::path>(const std::vector<std::filesystem::path>& found)>;

// The question in the first-start window (modal).
std::optional<std::filesystem::path> LauncherFolderWindow(const std::vector<std::filesystem::path>& found);

// The same question as an input box through the prompts seam, for runs with no one at the screen
// (scripted prompts print it and answer it from their script): its text names the folders found,
// one a line, and its default is the first of them. A folder that is not a workspace is refused
// with the window's message and asked for again; a cancelled input cancels.
std::optional<std::filesystem::path> LauncherFolderPrompt(const std::vector<std::filesystem::path>& found);

// The desktop program's workspace: ROSTERDESK_ROOT, the program's own folder or the folder
// remembered in `settings` (core/launcherfolder.h), else the answer to `ask`, offered the launcher
// folders found in the usual Wine prefixes; with `chooseAgain` (the desktop action "Choose
// Launcher Folder…") the question comes first. A folder chosen is remembered in `settings` unless
// the program's own folder is a workspace. Nothing when the user cancelled; nothing is written
// then.
std::optional<DesktopRoot> OpenDesktopWorkspace(const std::filesystem::path& programFolder,
                                                QSettings& settings, bool chooseAgain,
                                                const AskLauncherFolder& ask);

} // namespace rd
