#pragma once
// The add-map screen: every map the game has installed (in its PAK archives and loose in its map
// folder), with where each was found, and the card of the selected map. It either hands one map
// name to the map entry dialog or adds maps straight into the category editor's list.

#include <QDialog>
#include <QString>
#include <filesystem>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace rd {

class CardLoader;
class MapCardPane;

class frmAddMaps : public QDialog {
    Q_OBJECT
public:
    // `pickOne` set: Select puts the chosen map's name into `mapNameBox` and closes. Clear: Select adds
    // the chosen map to `categoryMaps` below its selected row (or at its end), titled with its name,
    // and the screen stays open.
    frmAddMaps(std::filesystem::path root, std::string game, bool pickOne, QLineEdit* mapNameBox,
               QTreeWidget* categoryMaps, QWidget* parent = nullptr);

    QLabel* lblFilter = nullptr;
    QLineEdit* txtFilter = nullptr;
    QLabel* lblMaps = nullptr;
    QTreeWidget* lvMaps = nullptr;
    MapCardPane* fraMapCard = nullptr;
    CardLoader* cardLoader = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdClose = nullptr;

public slots:
    void cmdAdd_Click();
    void cmdClose_Click();
    void lvMaps_DblClick();
    // A change of the selected row: its card is read (away from the screen) and shown.
    void lvMaps_Click();
    void lvMaps_ColumnClick(int column);
    void txtFilter_Change();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();

    std::filesystem::path root_;
    std::string game_;
    bool pickOne_;
    QLineEdit* mapNameBox_;
    QTreeWidget* categoryMaps_;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    QTreeWidgetItem* cardRow_ = nullptr; // the row whose card is shown or being read
};

} // namespace rd
