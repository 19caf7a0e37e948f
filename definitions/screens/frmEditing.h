#pragma once
// The definition set chooser: which definition file to edit (a game's or a plug-in bot's,
// built-in or custom, options or deathmatch flags); it opens the option list or the flag list.

#include <QDialog>
#include <array>
#include <filesystem>
#include <optional>

class QGroupBox;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace rd {

class frmEditing : public QDialog {
    Q_OBJECT
public:
    explicit frmEditing(std::filesystem::path root, QWidget* parent = nullptr);

    QGroupBox* fraWhich = nullptr;
    std::array<QRadioButton*, 2> optEditType{}; // 0: for the game, 1: for the bot
    std::array<QListWidget*, 2> lstList{};      // 0: the games, 1: the plug-in bots
    QGroupBox* fraType = nullptr;
    std::array<QRadioButton*, 2> optType{}; // 0: built-in settings, 1: custom settings
    QPushButton* cmdOptions = nullptr;
    QPushButton* cmdDMflag = nullptr;
    QPushButton* cmdClose = nullptr;

    // The folder whose definitions would be edited (none without a selected entry).
    std::optional<std::filesystem::path> selectedFolder() const;

public slots:
    void optEditType_Click(int index);
    void cmdOptions_Click();
    void cmdDMflag_Click();
    void cmdClose_Click();

private:
    void Form_Load();
    int editType() const;

    std::filesystem::path root_;
    std::array<std::filesystem::path, 2> baseFolder_;
};

} // namespace rd
