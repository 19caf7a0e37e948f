#pragma once
// The category editor: the maps of one custom map category (map name and title, in the order the
// launcher offers them) and whether the category holds arenas, with the card of the selected map
// when the game has it installed. Rows are edited in the list; the file is rewritten on OK.

#include <QDialog>
#include <QString>
#include <filesystem>
#include <string>

class QAction;
class QCheckBox;
class QLabel;
class QMenu;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace rd {

class CardLoader;
class MapCardPane;

class frmCustomMaps : public QDialog {
    Q_OBJECT
public:
    // `category`: the category's name; `path`: its file (for a new category, one that does not exist
    // yet). The game's name serves the add-map screen.
    frmCustomMaps(std::filesystem::path root, std::string game, std::string category,
                  std::filesystem::path path, QWidget* parent = nullptr);

    QLabel* lblMaps = nullptr;
    QTreeWidget* lvMaps = nullptr;
    MapCardPane* fraMapCard = nullptr;
    CardLoader* cardLoader = nullptr;
    QCheckBox* chkArena = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QMenu* mnuPopup = nullptr;
    QAction* mnuPopupEdit = nullptr;
    QAction* mnuPopupAdd = nullptr;
    QAction* mnuPopupGet = nullptr;
    QAction* mnuPopupMoveUp = nullptr;
    QAction* mnuPopupMoveDown = nullptr;
    QAction* mnuPopupDelete = nullptr;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();
    void mnuPopupEdit_Click();
    void mnuPopupAdd_Click();
    void mnuPopupGet_Click();
    void mnuPopupMoveUp_Click();
    void mnuPopupMoveDown_Click();
    void mnuPopupDelete_Click();
    void lvMaps_DblClick();
    // A change of the selected row (or of its name): the map's card is looked up in the game's
    // catalogue (away from the screen) and shown.
    void lvMaps_Click();
    void lvMaps_ColumnClick(int column);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    bool lvMaps_KeyDown(const QKeyEvent* event);
    void showPopup(const QPoint& globalPos);
    void openEntryDialog(bool newEntry);
    // Exchanges the selected row's texts with the row `offset` places away and selects that row.
    void moveSelectedRow(int offset);

    std::filesystem::path root_;
    std::string game_;
    std::string category_;
    std::filesystem::path path_;
    QTreeWidgetItem* cardRow_ = nullptr; // the row whose card is shown or being read, and its name
    QString cardName_;
};

} // namespace rd
