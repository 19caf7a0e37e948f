#pragma once
// The map entry dialog: the map name and title of one row of the category editor's list, added
// below the selected row or edited in place.

#include <QDialog>
#include <QString>
#include <filesystem>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace rd {

class frmEditCustomMap : public QDialog {
    Q_OBJECT
public:
    // `maps`: the category editor's list, which OK writes into. `newEntry`: adding (true) or editing
    // the selected row (false); with no row selected the dialog adds whatever the flag says.
    // `category`: the category's name for the caption. The game serves the add-map screen.
    frmEditCustomMap(QTreeWidget* maps, const QString& category, bool newEntry, std::filesystem::path root,
                     std::string game, QWidget* parent = nullptr);

    // Whether the dialog adds a row (true) or edits the selected one.
    bool adding() const { return adding_; }

    QLabel* lblMapName = nullptr;
    QLineEdit* txtMapName = nullptr;
    QPushButton* cmdGetMapName = nullptr;
    QLabel* lblMapTitle = nullptr;
    QLineEdit* txtMapTitle = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdGetMapName_Click();

private:
    QTreeWidget* maps_;
    bool adding_;
    std::filesystem::path root_;
    std::string game_;
};

} // namespace rd
