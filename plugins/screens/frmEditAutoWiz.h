#pragma once
// The AutoExec wizard command editor: the console commands (each with a description) that the
// launcher's AutoExec wizard offers for one plug-in bot, kept in Plug-Ins\<bot>\ExecCommands.cfg.
// A bot without its own list may start from its game's default list.

#include <QDialog>
#include <filesystem>
#include <string>

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace rd {

// Shows the editor modally over `owner` for the bot `bot` (its folder name, code-page bytes).
void EditAutoWiz(QWidget* owner, const std::filesystem::path& root, const std::string& bot);

class frmEditAutoWiz : public QDialog {
    Q_OBJECT
public:
    // Loads the bot's list (asking whether to use the game's default list when the bot has none).
    frmEditAutoWiz(std::filesystem::path root, std::string bot, QWidget* owner = nullptr);

    QTreeWidget* lvCommands = nullptr;
    QLabel* Label1 = nullptr;
    QMenu* mnuPopup = nullptr;
    QAction* mnuPopupEdit = nullptr;
    QAction* mnuPopupAdd = nullptr;
    QAction* mnuPopupMoveUp = nullptr;
    QAction* mnuPopupMoveDown = nullptr;
    QAction* mnuPopupDelete = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();
    void mnuPopupEdit_Click();
    void mnuPopupAdd_Click();
    void mnuPopupMoveUp_Click();
    void mnuPopupMoveDown_Click();
    void mnuPopupDelete_Click();
    void lvCommands_ColumnClick(int column);
    // Opens the popup menu at a global position (not waiting for the choice).
    void showPopup(const QPoint& globalPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    QTreeWidgetItem* selectedRow() const;

    std::filesystem::path root_;
    std::string bot_;
};

} // namespace rd
