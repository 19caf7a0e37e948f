#pragma once
// The option editor: one option row of an option list, new or existing. It writes straight
// into the list's row on OK; the list writes its file only on its own OK.

#include <QDialog>
#include <QPointer>
#include <QString>
#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

class QButtonGroup;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace rd {

class frmEditOption : public QDialog {
    Q_OBJECT
public:
    // `list`: the option list's view; `newRow`: whether a row is added; `index`: the row's
    // 1-based position (for a new row: where it goes, out of 1..count appends it);
    // `gameName` and `root`: where the value and text lists lie.
    frmEditOption(QTreeWidget* list, bool newRow, int index, std::string gameName, std::filesystem::path root,
                  QWidget* owner = nullptr);

    QGroupBox* fraDetails = nullptr;
    QLabel* lblName = nullptr;
    QLineEdit* txtName = nullptr;
    QLabel* lblKey = nullptr;
    QLineEdit* txtKey = nullptr;
    QLabel* lblParam1 = nullptr;
    QLineEdit* txtChecked = nullptr;
    QLabel* lblParam2 = nullptr;
    QLineEdit* txtUnchecked = nullptr;
    std::array<QPushButton*, 2> cmdSyntax{};
    QLabel* lblHelp = nullptr;
    QLineEdit* txtHelp = nullptr;

    QGroupBox* fraFormat = nullptr;
    QLabel* lblType = nullptr;
    QComboBox* cboType = nullptr;
    QPushButton* cmdTypeHelp = nullptr;
    QLabel* lblParameter = nullptr;
    QLineEdit* txtParameter = nullptr;
    QPushButton* cmdParameter = nullptr;
    QLabel* lblNoParam = nullptr;

    QGroupBox* fraWhere = nullptr;
    std::array<QRadioButton*, 3> optWhere{};

    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void cboType_Click();
    void cmdTypeHelp_Click();
    void cmdParameter_Click();
    void cmdSyntax_Click(int index);
    void cmdOK_Click();
    void cmdCancel_Click();

public:
    // The checks made when a field loses focus to another control of the editor. Each returns
    // whether the field's text is accepted; a refusal is shown and focus goes back to the field
    // as soon as the focus change is over.
    bool txtName_LostFocus();
    bool txtKey_LostFocus();
    bool txtParameter_LostFocus();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void applyTypeLayout();
    // The keyword of the type selected in cboType ("" when none is selected).
    std::string typeKeyword() const;
    // The row being edited, 0-based, for the key checks (none for a new row).
    std::optional<std::size_t> editingRow() const;
    bool runCheck(QLineEdit* field);
    // What a field's check looks at: its text (and for the parameter, the type).
    QString checkedState(const QLineEdit* field) const;
    void markPassed(const QLineEdit* field);
    // Whether the field's check has passed for what it holds now.
    bool checkPassed(const QLineEdit* field) const;
    void refuse(QLineEdit* field, const QString& message);
    void showRefusal();
    // Whether a refused field still waits for its correction; focus goes back to it.
    bool refusalPending();

    QTreeWidget* list_;
    bool newRow_;
    int index_;
    std::string gameName_;
    std::filesystem::path root_;
    QButtonGroup* whereGroup_ = nullptr;
    QString originalType_;
    QString originalWhere_;

    QPointer<QLineEdit> refused_; // the field whose text was refused, until it is accepted
    QString refusalMessage_;      // shown once the focus change that caused it is over
    bool refusalQueued_ = false;
    bool returningFocus_ = false;
    std::map<const QLineEdit*, QString> passed_; // what each checked field held when it last passed
};

} // namespace rd
