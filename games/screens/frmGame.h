#pragma once
// The games list: the installed games (the folders of Game-Paths), with commands to add a game,
// edit its folders and delete it.

#include <QDialog>
#include <filesystem>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace rd {

// Opens the games list modally over `owner`.
void EditGamePaths(QWidget* owner, const std::filesystem::path& root);

class frmGame : public QDialog {
    Q_OBJECT
public:
    explicit frmGame(std::filesystem::path root, QWidget* owner = nullptr);

    QLabel* Label1 = nullptr;
    QListWidget* lstGames = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdEdit = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdOK = nullptr;

public slots:
    void cmdAdd_Click();
    void cmdEdit_Click();
    void lstGames_DblClick();
    void cmdDelete_Click();
    void cmdOK_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    // The selected game's list entry, or nullptr when no game is selected.
    QListWidgetItem* selectedGame() const;

    std::filesystem::path root_;
};

} // namespace rd
