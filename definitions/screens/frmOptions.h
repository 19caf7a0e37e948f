#pragma once
// The option list: one option definition file ("Options.cfg" or "Opt-User.cfg") as an ordered
// list of category rows and option rows, edited in memory and written only on OK.

#include "definitions/options.h"

#include <QDialog>
#include <QIcon>
#include <QString>
#include <filesystem>
#include <string>
#include <vector>

class QAction;
class QGroupBox;
class QLabel;
class QMenu;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace rd {

// The list view's columns after the name, in order.
enum OptionColumn {
    kOptName = 0,
    kOptChecked,
    kOptUnchecked,
    kOptHelpText,
    kOptType,
    kOptParameter,
    kOptWhere,
    kOptKey,
    kOptColumnCount
};

// The rows of an option list view (categories are the rows with the category icon).
std::vector<OptionRow> optionRowsOf(const QTreeWidget* view);
// Writes an option's fields into a list-view row (the category icon is not touched).
void setOptionRow(QTreeWidgetItem* item, const OptionRow& row);

// The type index a Type text stands for (numeric and below the number of types), or -1.
int optionTypeIndex(const QString& type);
// Sets the tooltip of a row's Type cell: the kind its number stands for ("Number" for "3"); none
// when the number stands for no kind. The cell itself keeps the number the file holds.
void setOptionTypeTip(QTreeWidgetItem* item);

class frmOptions : public QDialog {
    Q_OBJECT
public:
    // `path`: the definition file; `gameName`: the game whose value and text lists the options
    // use; `root`: the workspace root (where those lists lie).
    frmOptions(std::filesystem::path path, std::string gameName, std::filesystem::path root,
               QWidget* parent = nullptr);

    // The game whose value and text lists the option editor offers.
    const std::string& gameName() const { return gameName_; }

    QGroupBox* fraFilename = nullptr;
    QLabel* lblFilename = nullptr;
    QTreeWidget* lvOptions = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    QMenu* mnuPopup = nullptr;
    QAction* mnuPopupEdit = nullptr;
    QAction* mnuPopupAdd = nullptr;
    QAction* mnuPopupDelete = nullptr;
    QAction* mnuPopupMoveUp = nullptr;
    QAction* mnuPopupMoveDown = nullptr;
    QAction* mnuPopupCategoryAdd = nullptr;

public slots:
    void mnuPopupEdit_Click();
    void mnuPopupAdd_Click();
    void mnuPopupDelete_Click();
    void mnuPopupMoveUp_Click();
    void mnuPopupMoveDown_Click();
    void mnuPopupCategoryAdd_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    void Form_Load();

    std::filesystem::path path_;
    std::string gameName_;
    std::filesystem::path root_;
    QIcon categoryIcon_;
};

} // namespace rd
