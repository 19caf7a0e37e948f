#include "definitions/screens/frmNumberRange.h"

#include "core/conversions.h"
#include "core/screens/controls.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/text.h"
#include "definitions/numberrange.h"
#include "definitions/screens/listparts.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace rd {

namespace {

// The bars reach as far as the launcher's scroll bars can (16-bit positions); decimals up to 10.
constexpr int kBarLow = -32768;
constexpr int kBarHigh = 32767;
constexpr int kMostDecimals = 10;

QScrollBar* makeBar(QWidget* parent, const char* name, int low, int high, const QString& accessible) {
    auto* bar = new QScrollBar(Qt::Horizontal, parent);
    bar->setObjectName(QString::fromLatin1(name));
    bar->setRange(low, high);
    bar->setSingleStep(1);
    bar->setPageStep(10);
    bar->setAccessibleName(accessible);
    // As long as some 26 characters of the user font (the bar itself keeps its own font).
    bar->setMinimumWidth(userFontMetrics(parent).averageCharWidth() * 26);
    // Reached with Tab like every control; Right, Up and Page Up make the number larger.
    bar->setFocusPolicy(Qt::StrongFocus);
    bar->setInvertedControls(false);
    return bar;
}

// Puts a bar where a field's number is (rounded, kept within the bar), without writing back.
void placeBar(QScrollBar* bar, const QString& text) {
    const std::string bytes = toBytes(text);
    if (!isNumeric(bytes))
        return;
    const double value = roundHalfEven(leadingValue(trim(bytes)));
    const QSignalBlocker quiet(bar);
    bar->setValue(static_cast<int>(std::clamp<double>(value, bar->minimum(), bar->maximum())));
}

} // namespace

frmNumberRange::frmNumberRange(QLineEdit* parameter, QWidget* owner) : QDialog(owner), parameter_(parameter) {
    setObjectName(QStringLiteral("frmNumberRange"));
    setWindowTitle(QStringLiteral("Number Range"));
    setSizeGripEnabled(true);

    txtMin = new QLineEdit(this);
    txtMin->setObjectName(QStringLiteral("txtMin"));
    lblMin = makeLabel(this, "lblMin", QStringLiteral("Minimum Value:"), txtMin);
    scrlMin = makeBar(this, "scrlMin", kBarLow, kBarHigh, QStringLiteral("Minimum Value"));
    txtmax = new QLineEdit(this);
    txtmax->setObjectName(QStringLiteral("txtmax"));
    lblMax = makeLabel(this, "lblMax", QStringLiteral("Maximum Value:"), txtmax);
    scrlMax = makeBar(this, "scrlMax", kBarLow, kBarHigh, QStringLiteral("Maximum Value"));
    txtDecimal = new QLineEdit(this);
    txtDecimal->setObjectName(QStringLiteral("txtDecimal"));
    lblDecimal = makeLabel(this, "lblDecimal", QStringLiteral("Decimal Places:"), txtDecimal);
    scrlDecimal = makeBar(this, "scrlDecimal", 0, kMostDecimals, QStringLiteral("Decimal Places"));
    scrlDecimal->setPageStep(1);

    auto* grid = new QGridLayout;
    grid->addWidget(lblMin, 0, 0);
    grid->addWidget(txtMin, 0, 1);
    grid->addWidget(scrlMin, 0, 2);
    grid->addWidget(lblMax, 1, 0);
    grid->addWidget(txtmax, 1, 1);
    grid->addWidget(scrlMax, 1, 2);
    grid->addWidget(lblDecimal, 2, 0);
    grid->addWidget(txtDecimal, 2, 1);
    grid->addWidget(scrlDecimal, 2, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);

    setTabOrder(txtMin, scrlMin);
    setTabOrder(scrlMin, txtmax);
    setTabOrder(txtmax, scrlMax);
    setTabOrder(scrlMax, txtDecimal);
    setTabOrder(txtDecimal, scrlDecimal);
    setTabOrder(scrlDecimal, cmdOK);
    setTabOrder(cmdOK, cmdCancel);

    connect(scrlMin, &QScrollBar::valueChanged, this, &frmNumberRange::scrlMin_Change);
    connect(scrlMax, &QScrollBar::valueChanged, this, &frmNumberRange::scrlMax_Change);
    connect(scrlDecimal, &QScrollBar::valueChanged, this, &frmNumberRange::scrlDecimal_Change);
    // A number typed into a field moves its bar along, so the bar goes on from there.
    connect(txtMin, &QLineEdit::textEdited, this, [this](const QString& text) { placeBar(scrlMin, text); });
    connect(txtmax, &QLineEdit::textEdited, this, [this](const QString& text) { placeBar(scrlMax, text); });
    connect(txtDecimal, &QLineEdit::textEdited, this,
            [this](const QString& text) { placeBar(scrlDecimal, text); });
    connect(cmdOK, &QPushButton::clicked, this, &frmNumberRange::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmNumberRange::cmdCancel_Click);

    Form_Load();
}

void frmNumberRange::Form_Load() {
    applyUserFont(this);
    if (!parameter_)
        return;
    const NumberRangeFields fields = parseNumberRange(toBytes(parameter_->text()));
    txtMin->setText(fromBytes(fields.min));
    txtmax->setText(fromBytes(fields.max));
    txtDecimal->setText(fromBytes(fields.decimals));
    placeBar(scrlMin, txtMin->text());
    placeBar(scrlMax, txtmax->text());
    placeBar(scrlDecimal, txtDecimal->text());
}

void frmNumberRange::scrlMin_Change() {
    txtMin->setText(QString::number(scrlMin->value()));
}

void frmNumberRange::scrlMax_Change() {
    txtmax->setText(QString::number(scrlMax->value()));
}

void frmNumberRange::scrlDecimal_Change() {
    txtDecimal->setText(QString::number(scrlDecimal->value()));
}

void frmNumberRange::cmdOK_Click() {
    if (parameter_) {
        if (auto range = formatNumberRange(toBytes(txtMin->text()), toBytes(txtmax->text()),
                                           toBytes(txtDecimal->text())))
            parameter_->setText(fromBytes(*range));
    }
    accept();
}

void frmNumberRange::cmdCancel_Click() {
    reject();
}

} // namespace rd
