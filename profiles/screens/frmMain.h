#pragma once
// The main window: the plug-in bots the launcher recognises and the profiles made for them,
// and the buttons that open every other editor.

#include <QDialog>
#include <filesystem>

class QCheckBox;
class QKeyEvent;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace rd {

class frmMain : public QDialog {
    Q_OBJECT
public:
    explicit frmMain(std::filesystem::path root, QWidget* parent = nullptr);

    // The profile list's ready mark: "" while the list is rebuilt, "OK" once it is complete.
    QString readyMark() const;

    QLabel* lblRecognisedBots = nullptr;
    QListWidget* lstRecognisedBots = nullptr;
    QLabel* lblProfiles = nullptr;
    QListWidget* lstProfiles = nullptr;
    QCheckBox* chkOnlyShow = nullptr;

    QPushButton* cmdAddBot = nullptr;
    QPushButton* cmdEditBot = nullptr;
    QPushButton* cmdDeleteBot = nullptr;
    QPushButton* cmdRename = nullptr;
    QPushButton* cmdDeleteProfile = nullptr;
    QPushButton* cmdGame = nullptr;
    QPushButton* cmdEditOptions = nullptr;
    QPushButton* cmdCustomMaps = nullptr;
    QPushButton* cmdEditArena = nullptr;
    QPushButton* cmdLadies = nullptr;
    QPushButton* cmdHelp = nullptr;
    QPushButton* cmdAbout = nullptr;
    QPushButton* cmdOK = nullptr;

public slots:
    void chkOnlyShow_Click();
    void lstRecognisedBots_Click();
    void lstRecognisedBots_DblClick();
    void cmdAddBot_Click();
    void cmdEditBot_Click();
    void cmdDeleteBot_Click();
    void cmdRename_Click();
    void cmdDeleteProfile_Click();
    void cmdGame_Click();
    void cmdEditOptions_Click();
    void cmdCustomMaps_Click();
    void cmdEditArena_Click();
    void cmdLadies_Click();
    void cmdHelp_Click();
    void cmdAbout_Click();
    void cmdOK_Click();

protected:
    // Escape does not close the main window (closing it ends the program): only "&Quit" and the
    // window's close button do.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void GetProfileList();

    std::filesystem::path root_;
};

} // namespace rd
