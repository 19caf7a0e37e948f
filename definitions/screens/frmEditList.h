#pragma once
// The list editor: the items of one value list (text to display and actual value) or text list
// (text only), written back whole on OK.

#include "definitions/lists.h"

#include <QDialog>
#include <array>
#include <filesystem>
#include <string>
#include <vector>

class QAction;
class QGroupBox;
class QMenu;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace rd {

// The items of a list editor's view: column 0 the text, column 1 the value (a text list has
// only the text, which is also its value).
std::vector<ListItem> listItemsOf(const QTreeWidget* view, bool valueList);

class frmEditList : public QDialog {
    Q_OBJECT
public:
    // `folder` and `fileName`: the list file (read when it exists); `valueList`: its kind.
    frmEditList(std::filesystem::path folder, std::string fileName, bool valueList, QWidget* owner = nullptr);

    QGroupBox* fraType = nullptr;
    std::array<QRadioButton*, 2> optType{};
    QTreeWidget* lvList = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    QMenu* mnuPopup = nullptr;
    QAction* mnuPopupedit = nullptr;
    std::array<QAction*, 2> mnuPopupAdd{};
    QAction* mnuPopupMoveUp = nullptr;
    QAction* mnuPopupMoveDown = nullptr;
    QAction* mnuPopupDelete = nullptr;

public slots:
    void mnuPopupedit_Click();
    void mnuPopupAdd_Click(int index);
    void mnuPopupMoveUp_Click();
    void mnuPopupMoveDown_Click();
    void mnuPopupDelete_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    void Form_Load();

    std::filesystem::path path_;
    bool valueList_;
};

} // namespace rd
