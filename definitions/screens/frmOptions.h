#pragma once
// The option list: one option definition file ("Options.cfg" or "Opt-User.cfg") as an ordered
// list of category rows and option rows, edited in memory and written only on OK.

#include "definitions/options.h"

#include <QDialog>
#include <QIcon>
#include <QString>
#include <filesystem>
#include <string>
#include <unordered_set>
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
// The row a list-view row shows (a category when it has the category icon).
OptionRow optionRowOf(const QTreeWidgetItem* item);

// The type index a Type text stands for (numeric and below the number of types), or -1.
int optionTypeIndex(const QString& type);
// A new list-view row for an option. The tooltip of its Type cell names the kind the cell's number
// stands for ("Number" for "3"), none when it stands for no kind; the cell itself keeps the number
// the file holds. The tooltip is worked out when it is asked for, so it follows every change of the
// number and costs nothing for the rows nobody points at.
QTreeWidgetItem* newOptionItem();

class frmOptions : public QDialog {
    Q_OBJECT
public:
    // `path`: the definition file; `gameName`: the game whose value and text lists the options
    // use; `root`: the workspace root (where those lists lie).
    frmOptions(std::filesystem::path path, std::string gameName, std::filesystem::path root,
               QWidget* parent = nullptr);
    ~frmOptions() override;

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

    // The rows OK saves: what the list shows, row by row. A row loaded from the file and not
    // touched since is taken as it was read; only rows that were edited, added or moved are
    // read back from the list view.
    std::vector<OptionRow> rowsToSave() const;

private:
    void Form_Load();
    void markTouched(int first, int last);

    std::filesystem::path path_;
    std::string gameName_;
    std::filesystem::path root_;
    QIcon categoryIcon_;
    std::vector<OptionRow> loaded_;                      // the file's rows as read
    std::unordered_set<const QTreeWidgetItem*> touched_; // rows changed or inserted since loading
    bool pristine_ = true;                               // the list is still exactly as loaded
};

} // namespace rd
