#pragma once
// The arena list of one map: the arena names in the order the launcher offers them, edited through
// a popup menu and keys, written to the map's arena file on OK.

#include <QDialog>
#include <QString>
#include <filesystem>
#include <string>

class QAction;
class QLabel;
class QListWidget;
class QMenu;
class QPushButton;

namespace rd {

class frmEditArena : public QDialog {
    Q_OBJECT
public:
    // `path`: the map's arena file (it need not exist yet); `map`: the map's name for the caption.
    frmEditArena(std::filesystem::path path, const std::string& map, QWidget* parent = nullptr);

    QLabel* lblArenas = nullptr;
    QListWidget* lstArenas = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QMenu* mnuPopup = nullptr;
    QAction* mnuPopupEdit = nullptr;
    QAction* mnuPopupAdd = nullptr;
    QAction* mnuPopupMoveUp = nullptr;
    QAction* mnuPopupMoveDown = nullptr;
    QAction* mnuPopupDelete = nullptr;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();
    void mnuPopupEdit_Click();
    void mnuPopupAdd_Click();
    void mnuPopupMoveUp_Click();
    void mnuPopupMoveDown_Click();
    void mnuPopupDelete_Click();
    void lstArenas_DblClick();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    // Keys on the list; returns whether the key was one of the list's commands.
    bool lstArenas_KeyDown(const QKeyEvent* event);
    // The right button released over the list at `pos` (viewport coordinates).
    void lstArenas_MouseUp(const QPoint& pos);
    void showPopup(const QPoint& globalPos);
    int selectedArena() const;

    std::filesystem::path path_;
};

} // namespace rd
