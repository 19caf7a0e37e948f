#pragma once
// The plug-in setup editor ("Edit Bot Plug-In Setup"): the setup record of one plug-in bot
// (Setup.cfg, ChatFiles.cfg, Skills.cfg in Plug-Ins\<bot>) on four tabs. Nothing is written until
// OK.

#include <QDialog>
#include <array>
#include <filesystem>
#include <string>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QShowEvent;
class QTabWidget;
class QTimer;

namespace rd {

struct PluginSetup;

// Shows the editor modally over `owner` for the plug-in `bot` (its folder name, code-page bytes).
void EditPlugInSetup(QWidget* owner, const std::filesystem::path& root, const std::string& bot);

class frmEditPlugInSetup : public QDialog {
    Q_OBJECT
public:
    // Loads the bot's setup into the controls. A bot without a folder loads nothing: when the
    // screen is shown it says "Could not find " + name and closes itself.
    frmEditPlugInSetup(std::filesystem::path root, std::string plugInName, QWidget* owner = nullptr);

    // "UNLOAD" when the screen found nothing to edit and closes itself, else empty.
    QString tag() const { return tag_; }

    // The start arena's limits for its spin control.
    static constexpr int kFirstArena = 1;
    static constexpr int kLastArena = 999;

    QLabel* lblEditing = nullptr;
    QLabel* lblPlugInName = nullptr;
    QTabWidget* SSTab1 = nullptr;

    // "&Paths and Files"
    QGroupBox* fraPaths = nullptr;
    QLabel* lblGame = nullptr;
    QComboBox* cboGame = nullptr;
    QPushButton* cmdEditGame = nullptr;
    QLabel* lblBotFolder = nullptr;
    QLineEdit* txtBotFolder = nullptr;
    QLabel* lblRouteFolder = nullptr;
    QLineEdit* txtRouteFolder = nullptr;
    QLabel* lblRouteFilter = nullptr;
    QLineEdit* txtRouteFilter = nullptr;
    QLabel* lblExtraModelDir = nullptr;
    QLineEdit* txtExtraModelDir = nullptr;
    QLabel* lblReadme = nullptr;
    QLineEdit* txtReadme = nullptr;
    QLabel* lblDefaultSkin = nullptr;
    QLineEdit* txtDefaultSkin = nullptr;
    QGroupBox* fraArena = nullptr;
    QCheckBox* chkUseArena = nullptr;
    QLabel* lblStartArena = nullptr;
    QLineEdit* txtStartArena = nullptr;
    QScrollBar* scrlStartArena = nullptr;

    // "&File Copying"
    QGroupBox* fraCopied = nullptr;
    std::array<QLabel*, 6> lblFile{};
    std::array<QComboBox*, 6> cboFolder{};
    std::array<QLineEdit*, 6> txtFile{};
    QGroupBox* fraAutoExec = nullptr;
    std::array<QRadioButton*, 3> optAutoExec{};
    QGroupBox* fraBotConfig = nullptr;
    std::array<QRadioButton*, 2> optBotConfig{};

    // "&Chat and AutoExec"
    QGroupBox* fraChat = nullptr;
    std::array<QRadioButton*, 3> optChat{};
    QListWidget* lstChatfiles = nullptr;
    QPushButton* cmdAddChat = nullptr;
    QPushButton* cmdDeleteChat = nullptr;
    QPushButton* cmdAutoWiz = nullptr;
    QLabel* lblAutoWizNote = nullptr;

    // "&Skill Levels"
    QGroupBox* fraSkills = nullptr;
    std::array<QRadioButton*, 2> optSkills{};
    QListWidget* lstSkills = nullptr;
    QLabel* lblStartSkill = nullptr;
    QLineEdit* txtStartSkill = nullptr;
    QPushButton* cmdAddSkill = nullptr;
    QPushButton* cmdRemoveSkill = nullptr;
    QPushButton* cmdMoveSkillUP = nullptr;
    QPushButton* cmdMoveSkillDown = nullptr;

    QPushButton* cmdOK = nullptr;
    QPushButton* Cancel = nullptr;
    QTimer* Timer1 = nullptr;

public slots:
    void cmdOK_Click();
    void Cancel_Click();
    void cmdAutoWiz_Click();
    void cmdEditGame_Click();
    void cmdAddChat_Click();
    void cmdDeleteChat_Click();
    void cmdAddSkill_Click();
    void cmdRemoveSkill_Click();
    void cmdMoveSkillUP_Click();
    void cmdMoveSkillDown_Click();
    void lstSkills_DblClick();
    void optSkills_Click(int index);
    void txtStartSkill_LostFocus();
    // Re-applies the enabled and visible states after a controlling choice changed.
    void updateStates();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildPathsTab(QWidget* page);
    void buildCopyingTab(QWidget* page);
    void buildChatTab(QWidget* page);
    void buildSkillsTab(QWidget* page);
    void Form_Load();
    void showSetup(const PluginSetup& setup);
    PluginSetup setupShown() const;
    void reportMissingFolder();

    std::filesystem::path root_;
    std::string plugInName_;
    QString tag_;
    bool shownOnce_ = false;
};

} // namespace rd
