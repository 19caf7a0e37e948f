#pragma once
// The item editor: one item of a value list (text and value) or a text list (text only), new or
// existing, written straight into the list editor's view on OK.

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace rd {

class frmEditItem : public QDialog {
    Q_OBJECT
public:
    // `list`: the list editor's view; `newItem`: whether an item is added; `index`: the item's
    // 1-based position (for a new item: where it goes, out of 1..count appends it).
    frmEditItem(QTreeWidget* list, bool newItem, int index, bool valueList, QWidget* owner = nullptr);

    QLabel* lblText = nullptr;
    QLineEdit* txtText = nullptr;
    QLabel* lblValue = nullptr;
    QLineEdit* txtValue = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    void Form_Load();

    QTreeWidget* list_;
    bool newItem_;
    int index_;
    bool valueList_;
};

} // namespace rd
