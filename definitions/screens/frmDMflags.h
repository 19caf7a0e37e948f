#pragma once
// The deathmatch flag list: one flag definition file ("DMflags.cfg" or "DMcustom.cfg") as an
// ordered list of category rows and flag rows, edited in memory and written only on OK.

#include "definitions/dmflags.h"

#include <QDialog>
#include <QIcon>
#include <filesystem>
#include <vector>

class QAction;
class QGroupBox;
class QLabel;
class QMenu;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace rd {

enum FlagColumn { kFlagName = 0, kFlagChecked, kFlagUnchecked, kFlagBitmap, kFlagHelp, kFlagColumnCount };

// The rows of a flag list view (categories are the rows with the category icon).
std::vector<FlagRow> flagRowsOf(const QTreeWidget* view);
void setFlagRow(QTreeWidgetItem* item, const FlagRow& row);

class frmDMflags : public QDialog {
    Q_OBJECT
public:
    explicit frmDMflags(std::filesystem::path path, QWidget* parent = nullptr);

    QGroupBox* fraFilename = nullptr;
    QLabel* lblFilename = nullptr;
    QTreeWidget* lvFlags = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    QMenu* mnuPopup = nullptr;
    QAction* mnuPopupEdit = nullptr;
    QAction* mnuPopupAdd = nullptr;
    QAction* mnuPopupDelete = nullptr;
    QAction* mnuPopupMoveUp = nullptr;
    QAction* mnuPopupMoveDown = nullptr;
    QAction* mnuPopupCategoryNew = nullptr;

public slots:
    void mnuPopupEdit_Click();
    void mnuPopupAdd_Click();
    void mnuPopupDelete_Click();
    void mnuPopupMoveUp_Click();
    void mnuPopupMoveDown_Click();
    void mnuPopupCategoryNew_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    void Form_Load();

    std::filesystem::path path_;
    QIcon categoryIcon_;
};

} // namespace rd
