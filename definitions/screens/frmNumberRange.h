#pragma once
// The number range dialog: the "min:max" parameter of a NUMBER option edited with three fields
// and three scroll bars (minimum, maximum, decimal places).

#include <QDialog>
#include <QPointer>

class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;

namespace rd {

class frmNumberRange : public QDialog {
    Q_OBJECT
public:
    // `parameter`: the field that holds the range (may be null: the dialog then changes nothing).
    explicit frmNumberRange(QLineEdit* parameter, QWidget* owner = nullptr);

    QLabel* lblMin = nullptr;
    QLineEdit* txtMin = nullptr;
    QScrollBar* scrlMin = nullptr;
    QLabel* lblMax = nullptr;
    QLineEdit* txtmax = nullptr;
    QScrollBar* scrlMax = nullptr;
    QLabel* lblDecimal = nullptr;
    QLineEdit* txtDecimal = nullptr;
    QScrollBar* scrlDecimal = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void scrlMin_Change();
    void scrlMax_Change();
    void scrlDecimal_Change();
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    void Form_Load();

    QPointer<QLineEdit> parameter_;
};

} // namespace rd
