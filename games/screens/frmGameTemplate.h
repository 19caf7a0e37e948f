#pragma once
// The paths template editor: the twelve fields of a game's Template.cfg, whose values may hold
// <PATH> for the game's main folder (the launcher puts the folder in its place).

#include "games/screens/gamepathtabs.h"

#include <QDialog>
#include <filesystem>
#include <string>

class QLabel;
class QPushButton;

namespace rd {

// Opens the template editor for `game` (code-page bytes) modally over `owner`.
void EditGameTemplate(QWidget* owner, const std::filesystem::path& root, const std::string& game);

class frmGameTemplate : public QDialog, public GamePathTabs {
    Q_OBJECT
public:
    frmGameTemplate(std::filesystem::path root, std::string game, QWidget* owner = nullptr);

    QLabel* lblEditingFor = nullptr;
    QLabel* lblGameName = nullptr;
    QLabel* lblPathNote = nullptr;
    QLabel* lblBackslashNote = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    void Form_Load();

    std::filesystem::path root_;
    std::string game_;
};

} // namespace rd
