#pragma once
// The game editor: the folders and launch settings of one game (its record
// Game-Paths\<game>\<game>.Gme), on two tabs, with choosers for every folder and the batch file.

#include "core/winepaths.h"
#include "games/screens/gamepathtabs.h"

#include <QDialog>
#include <QString>
#include <filesystem>
#include <string>

class QLabel;
class QPushButton;
class QTimer;

namespace rd {

// Opens the game editor for `game` (code-page bytes) modally over `owner`. When the game has no
// record, the editor says so and closes at once without writing anything.
void EditGame(QWidget* owner, const std::filesystem::path& root, const std::string& game);

class frmEditGame : public QDialog, public GamePathTabs {
    Q_OBJECT
public:
    // Loads the record while it is built; a missing record is reported here and marks the editor
    // "UNLOAD": it then closes as soon as it is shown.
    frmEditGame(std::filesystem::path root, std::string game, QWidget* owner = nullptr);

    // "UNLOAD" when the editor found nothing to edit, else empty.
    QString tag() const { return tag_; }

    QLabel* lblGamePathsFor = nullptr;
    QLabel* lblGameName = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QTimer* Timer1 = nullptr;

public slots:
    void txtLocationOfExe_GotFocus();
    void txtLocationOfExe_LostFocus();
    void cmdChooseGameDir_Click();
    void cmdMapLocation_Click();
    void cmdCDpath_Click();
    void cmdChooseModel_Click();
    void cmdChooseMapReadme_Click();
    void cmdChooseBatch_Click();
    void cmdEditBatch_Click();
    void cmdBatchNote_Click();
    void cmdTemplate_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void Timer1_Timer();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Form_Load();
    // A folder picker for `box`: starts at its value; a folder chosen replaces it.
    void chooseFolderFor(QLineEdit* box);

    std::filesystem::path root_;
    std::string game_;
    // The workspace's Wine prefix: drive paths of the record resolve through it, and a folder or
    // file chosen on screen is written back as the launcher names it under Wine.
    WinePrefix wine_;
    QString tag_;
    // The program folder as it was when its box last gained the focus.
    QString rememberedExeFolder_;
    // Whether the program folder box holds the focus within the editor (moving to another
    // window and back is not leaving the box).
    bool exeFolderFocused_ = false;
};

} // namespace rd
