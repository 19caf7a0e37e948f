#include "definitions/screens/frmEditOption.h"

#include "core/conversions.h"
#include "core/screens/controls.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/screens/zoomtextbox.h"
#include "core/text.h"
#include "definitions/options.h"
#include "definitions/screens/frmChooseList.h"
#include "definitions/screens/frmNumberRange.h"
#include "definitions/screens/frmOptions.h"
#include "definitions/screens/listparts.h"
#include "dialogs/frmPickFromLV.h"

#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace rd {

namespace {

QLineEdit* makeTextBox(QWidget* parent, const char* name, const QString& tip) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(QString::fromLatin1(name));
    if (!tip.isEmpty())
        box->setToolTip(tip);
    return box;
}

// The type index a row's Type text selects: numeric and within the list, else none.
int whereIndexOf(const QString& text) {
    const std::string bytes = toBytes(text);
    if (!isNumeric(bytes))
        return -1;
    const double value = roundHalfEven(leadingValue(trim(bytes)));
    if (value < 0 || value > 2)
        return -1;
    return static_cast<int>(value);
}

} // namespace

frmEditOption::frmEditOption(QTreeWidget* list, bool newRow, int index, std::string gameName,
                             std::filesystem::path root, QWidget* owner)
    : QDialog(owner), list_(list), newRow_(newRow), index_(index), gameName_(std::move(gameName)),
      root_(std::move(root)) {
    setObjectName(QStringLiteral("frmEditOption"));
    setSizeGripEnabled(true);

    // Option Details
    fraDetails = new QGroupBox(QStringLiteral("Option Details"), this);
    fraDetails->setObjectName(QStringLiteral("fraDetails"));
    txtName = makeTextBox(fraDetails, "txtName", QStringLiteral("The name that appears in the list"));
    lblName = makeLabel(fraDetails, "lblName", QStringLiteral("Option Name:"), txtName);
    txtKey = makeTextBox(fraDetails, "txtKey",
                         QStringLiteral("A key of your choice that uniquely identifies this option"));
    lblKey = makeLabel(fraDetails, "lblKey", QStringLiteral("Unique ID Key:"), txtKey);
    txtChecked = makeTextBox(fraDetails, "txtChecked",
                             QStringLiteral("What to add when this item is checked or contains data"));
    lblParam1 = makeLabel(fraDetails, "lblParam1", QStringLiteral("Syntax When Checked"), txtChecked);
    cmdSyntax[0] = makeButton(fraDetails, "cmdSyntax_0", QStringLiteral("..."));
    txtUnchecked =
        makeTextBox(fraDetails, "txtUnchecked",
                    QStringLiteral("What to add when this item is not checked or does not contain data"));
    lblParam2 = makeLabel(fraDetails, "lblParam2", QStringLiteral("Syntax When Unchecked"), txtUnchecked);
    cmdSyntax[1] = makeButton(fraDetails, "cmdSyntax_1", QStringLiteral("..."));
    for (QPushButton* button : cmdSyntax)
        button->setAccessibleName(QStringLiteral("Choose Category to Enable"));
    txtHelp = makeTextBox(fraDetails, "txtHelp", QStringLiteral("A help description to make life easier"));
    lblHelp = makeLabel(fraDetails, "lblHelp", QStringLiteral("Help Text:"), txtHelp);

    // A syntax field and its button share a row: with the button hidden the field takes it all.
    const auto withButton = [](QWidget* field, QWidget* button) {
        auto* row = new QHBoxLayout;
        row->addWidget(field, 1);
        row->addWidget(button);
        return row;
    };
    auto* details = new QGridLayout(fraDetails);
    details->addWidget(lblName, 0, 0);
    details->addWidget(txtName, 0, 1);
    details->addWidget(lblKey, 1, 0);
    details->addWidget(txtKey, 1, 1);
    details->addWidget(lblParam1, 2, 0);
    details->addLayout(withButton(txtChecked, cmdSyntax[0]), 2, 1);
    details->addWidget(lblParam2, 3, 0);
    details->addLayout(withButton(txtUnchecked, cmdSyntax[1]), 3, 1);
    details->addWidget(lblHelp, 4, 0);
    details->addWidget(txtHelp, 4, 1);
    details->setColumnStretch(1, 1);

    // Data Format
    fraFormat = new QGroupBox(QStringLiteral("Data Format"), this);
    fraFormat->setObjectName(QStringLiteral("fraFormat"));
    cboType = new QComboBox(fraFormat);
    cboType->setObjectName(QStringLiteral("cboType"));
    cboType->setToolTip(QStringLiteral("The data type of the option"));
    for (const char* caption : kOptionTypeCaptions)
        cboType->addItem(QString::fromLatin1(caption));
    lblType = makeLabel(fraFormat, "lblType", QStringLiteral("Type of Option:"), cboType);
    cmdTypeHelp = makeButton(fraFormat, "cmdTypeHelp", QStringLiteral("?"));
    cmdTypeHelp->setToolTip(QStringLiteral("Help about the option type"));
    cmdTypeHelp->setAccessibleName(QStringLiteral("Help about the option type"));
    txtParameter = makeTextBox(fraFormat, "txtParameter", QStringLiteral("The option's extra parameter"));
    lblParameter = makeLabel(fraFormat, "lblParameter", QStringLiteral("Data Parameter:"), txtParameter);
    cmdParameter = makeButton(fraFormat, "cmdParameter", QStringLiteral("..."));
    lblNoParam = new QLabel(QStringLiteral("This parameter does not require any extra options"), fraFormat);
    lblNoParam->setObjectName(QStringLiteral("lblNoParam"));

    auto* format = new QGridLayout(fraFormat);
    format->addWidget(lblType, 0, 0);
    format->addLayout(withButton(cboType, cmdTypeHelp), 0, 1);
    format->addWidget(lblParameter, 1, 0);
    format->addLayout(withButton(txtParameter, cmdParameter), 1, 1);
    format->addWidget(lblNoParam, 2, 0, 1, 2);
    format->setColumnStretch(1, 1);

    // Where to Add It...
    fraWhere = new QGroupBox(QStringLiteral("Where to Add It..."), this);
    fraWhere->setObjectName(QStringLiteral("fraWhere"));
    const char* whereCaptions[3] = {"Add to the &Command Line", "Add to Console &Before Map Change",
                                    "Add to Console &After Map Change"};
    const char* whereTips[3] = {
        "This option should be added to the command-line",
        "This option should be added to a config file to be executed before the map is loaded",
        "This option should be added to a config file to be executed after the map is loaded"};
    whereGroup_ = new QButtonGroup(this);
    auto* where = new QVBoxLayout(fraWhere);
    for (int i = 0; i < 3; ++i) {
        optWhere[i] = new QRadioButton(QString::fromLatin1(whereCaptions[i]), fraWhere);
        optWhere[i]->setObjectName(QStringLiteral("optWhere_%1").arg(i));
        optWhere[i]->setToolTip(QString::fromLatin1(whereTips[i]));
        whereGroup_->addButton(optWhere[i], i);
        where->addWidget(optWhere[i]);
    }

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraDetails);
    layout->addWidget(fraFormat);
    layout->addWidget(fraWhere);
    layout->addStretch(1);
    layout->addLayout(buttons);

    // Tab order: down the frames as they are laid out.
    QWidget* order[] = {txtName,     txtKey,      txtChecked,  cmdSyntax[0], txtUnchecked, cmdSyntax[1],
                        txtHelp,     cboType,     cmdTypeHelp, txtParameter, cmdParameter, optWhere[0],
                        optWhere[1], optWhere[2], cmdOK,       cmdCancel};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);

    connect(cboType, &QComboBox::currentIndexChanged, this, &frmEditOption::cboType_Click);
    connect(cmdTypeHelp, &QPushButton::clicked, this, &frmEditOption::cmdTypeHelp_Click);
    connect(cmdParameter, &QPushButton::clicked, this, &frmEditOption::cmdParameter_Click);
    connect(cmdSyntax[0], &QPushButton::clicked, this, [this] { cmdSyntax_Click(0); });
    connect(cmdSyntax[1], &QPushButton::clicked, this, [this] { cmdSyntax_Click(1); });
    connect(cmdOK, &QPushButton::clicked, this, &frmEditOption::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditOption::cmdCancel_Click);

    for (QLineEdit* field : {txtName, txtKey, txtParameter})
        field->installEventFilter(this);

    giveZoomKey(txtName, QStringLiteral("Option Name"));
    giveZoomKey(txtChecked, QStringLiteral("Checked Value"));
    giveZoomKey(txtUnchecked, QStringLiteral("Unchecked Value"));
    giveZoomKey(txtHelp, QStringLiteral("Help Text"));
    giveZoomKey(txtParameter, std::function<QString()>([this] { return lblParameter->text(); }));

    openAtTextSize(this, 93, 0);
    Form_Load();
}

void frmEditOption::Form_Load() {
    applyUserFont(this);
    for (QPushButton* button : {cmdSyntax[0], cmdSyntax[1], cmdTypeHelp, cmdParameter})
        fitToCaption(button);
    QTreeWidgetItem* item = nullptr;
    if (!newRow_ && index_ >= 1 && index_ <= list_->topLevelItemCount())
        item = list_->topLevelItem(index_ - 1);

    if (!item) {
        setWindowTitle(QStringLiteral("Add new Option"));
        cboType->setCurrentIndex(0);
        optWhere[0]->setChecked(true);
    } else {
        setWindowTitle(QStringLiteral("Editing ") + item->text(kOptName));
        txtName->setText(item->text(kOptName));
        txtChecked->setText(item->text(kOptChecked));
        txtUnchecked->setText(item->text(kOptUnchecked));
        txtHelp->setText(item->text(kOptHelpText));
        txtKey->setText(item->text(kOptKey));
        originalType_ = item->text(kOptType);
        cboType->setCurrentIndex(optionTypeIndex(originalType_));
        txtParameter->setText(item->text(kOptParameter));
        originalWhere_ = item->text(kOptWhere);
        if (const int where = whereIndexOf(originalWhere_); where >= 0)
            optWhere[static_cast<std::size_t>(where)]->setChecked(true);
    }
    for (QLineEdit* box : {txtName, txtKey, txtChecked, txtUnchecked, txtHelp, txtParameter})
        box->setCursorPosition(0);
    applyTypeLayout();
    // What the row holds already needs no check on OK; a change does.
    for (QLineEdit* field : {txtName, txtKey, txtParameter})
        markPassed(field);
    txtName->setFocus(Qt::OtherFocusReason);
}

std::string frmEditOption::typeKeyword() const {
    if (cboType->currentIndex() < 0)
        return {};
    return TypeKeyword(toBytes(cboType->currentText()));
}

void frmEditOption::applyTypeLayout() {
    const std::string keyword = typeKeyword();
    const bool enable = keyword == "ENABLE";
    for (QPushButton* button : cmdSyntax)
        button->setVisible(enable);
    lblParam1->setText(enable ? QStringLiteral("Category to Enable") : QStringLiteral("Syntax When Checked"));
    lblParam2->setText(enable ? QStringLiteral("Category to Disable")
                              : QStringLiteral("Syntax When Unchecked"));

    QString caption;
    if (keyword == "NUMBER")
        caption = QStringLiteral("Number Range");
    else if (keyword == "WEAPON")
        caption = QStringLiteral("Weapons List");
    else if (keyword == "VALUE LIST")
        caption = QStringLiteral("Value List");
    else if (keyword == "TEXT LIST")
        caption = QStringLiteral("Text List");
    else if (keyword == "FOLDER")
        caption = QStringLiteral("Trailing Slash?");
    const bool parameter = !caption.isEmpty();
    lblParameter->setText(parameter ? caption : QStringLiteral("n/a"));
    cmdParameter->setAccessibleName(parameter ? caption : QString());
    for (QWidget* w : {static_cast<QWidget*>(txtParameter), static_cast<QWidget*>(lblParameter),
                       static_cast<QWidget*>(cmdParameter)})
        w->setVisible(parameter);
    lblNoParam->setVisible(!parameter);
}

void frmEditOption::cboType_Click() {
    applyTypeLayout();
}

std::optional<std::size_t> frmEditOption::editingRow() const {
    if (newRow_ || index_ < 1 || index_ > list_->topLevelItemCount())
        return std::nullopt;
    return static_cast<std::size_t>(index_ - 1);
}

bool frmEditOption::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && !returningFocus_ &&
        (watched == txtName || watched == txtKey || watched == txtParameter)) {
        // Only a move to another control of this editor counts: Tab, Shift+Tab, a click or an
        // Alt+letter. Another window taking the focus (a message, the zoom editor) does not.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        const bool moved = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                           reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason;
        QWidget* next = QApplication::focusWidget();
        // Cancel (clicked, its access key or Escape) throws the edit away: nothing to check.
        const bool cancelling = next == cmdCancel;
        if (moved && !cancelling && (!next || next->window() == this))
            runCheck(static_cast<QLineEdit*>(watched));
    }
    return QDialog::eventFilter(watched, event);
}

bool frmEditOption::runCheck(QLineEdit* field) {
    if (field == txtName)
        return txtName_LostFocus();
    if (field == txtKey)
        return txtKey_LostFocus();
    if (field == txtParameter)
        return txtParameter_LostFocus();
    return true;
}

QString frmEditOption::checkedState(const QLineEdit* field) const {
    // The parameter's check depends on the type too.
    if (field == txtParameter)
        return fromBytes(typeKeyword()) + QLatin1Char('\t') + field->text();
    return field->text();
}

void frmEditOption::markPassed(const QLineEdit* field) {
    passed_[field] = checkedState(field);
}

bool frmEditOption::checkPassed(const QLineEdit* field) const {
    const auto it = passed_.find(field);
    return it != passed_.end() && it->second == checkedState(field);
}

bool frmEditOption::txtName_LostFocus() {
    const std::string name = toBytes(txtName->text());
    if (auto refusal = optionNameRefusal(name)) {
        refuse(txtName, fromBytes(*refusal));
        return false;
    }
    if (refused_ == txtName)
        refused_ = nullptr;
    markPassed(txtName);
    if (txtKey->text().isEmpty())
        txtKey->setText(fromBytes(MakeKey(optionRowsOf(list_), name, editingRow())));
    return true;
}

bool frmEditOption::txtKey_LostFocus() {
    if (!IsKeyUnique(optionRowsOf(list_), toBytes(txtKey->text()), editingRow())) {
        refuse(txtKey, QString::fromLatin1(kKeyClash));
        return false;
    }
    if (refused_ == txtKey)
        refused_ = nullptr;
    markPassed(txtKey);
    return true;
}

bool frmEditOption::txtParameter_LostFocus() {
    const std::string keyword = typeKeyword();
    if (keyword == "NUMBER") {
        const NumberRangeCheck check = NormaliseNumberRange(toBytes(txtParameter->text()));
        if (!check.accepted) {
            refuse(txtParameter, fromBytes(numberRangeWarning()));
            return false;
        }
        const QString text = fromBytes(check.text);
        if (text != txtParameter->text())
            txtParameter->setText(text);
    } else if (keyword == "FOLDER") {
        txtParameter->setText(fromBytes(NormaliseFolderFlag(toBytes(txtParameter->text()))));
    }
    if (refused_ == txtParameter)
        refused_ = nullptr;
    markPassed(txtParameter);
    return true;
}

void frmEditOption::refuse(QLineEdit* field, const QString& message) {
    refused_ = field;
    refusalMessage_ = message;
    // The focus is on its way to another control: the message waits until that is over, then
    // the focus goes back to the refused field with its text as typed.
    if (!refusalQueued_) {
        refusalQueued_ = true;
        QMetaObject::invokeMethod(this, &frmEditOption::showRefusal, Qt::QueuedConnection);
    }
}

void frmEditOption::showRefusal() {
    refusalQueued_ = false;
    if (!refused_)
        return;
    showMessage(this, refusalMessage_, PromptIcon::Exclamation);
    if (!refused_ || !isVisible())
        return;
    returningFocus_ = true;
    refused_->setFocus(Qt::OtherFocusReason);
    returningFocus_ = false;
}

bool frmEditOption::refusalPending() {
    if (!refused_)
        return false;
    if (!refusalQueued_) {
        returningFocus_ = true;
        refused_->setFocus(Qt::OtherFocusReason);
        returningFocus_ = false;
    }
    return true;
}

void frmEditOption::cmdTypeHelp_Click() {
    if (refusalPending())
        return;
    const int type = cboType->currentIndex();
    if (type < 0)
        return;
    showMessage(this, QString::fromLatin1(kOptionTypeHelp[static_cast<std::size_t>(type)]),
                PromptIcon::Information, cboType->currentText());
}

void frmEditOption::cmdParameter_Click() {
    if (refusalPending() || cboType->currentIndex() < 0)
        return;
    const std::string keyword = typeKeyword();
    if (keyword == "NUMBER") {
        frmNumberRange range(txtParameter, this);
        range.exec();
    } else if (keyword == "WEAPON" || keyword == "VALUE LIST" || keyword == "TEXT LIST") {
        frmChooseList chooser(root_, gameName_, keyword != "TEXT LIST", txtParameter, this);
        chooser.exec();
    } else if (keyword == "FOLDER") {
        const PromptAnswer answer = showMessage(this, QString::fromLatin1(kFolderFlagQuestion),
                                                PromptIcon::Question, kProgramTitle, PromptButtons::YesNo);
        txtParameter->setText(answer == PromptAnswer::Yes ? QStringLiteral("1") : QStringLiteral("0"));
    }
}

void frmEditOption::cmdSyntax_Click(int) {
    if (refusalPending())
        return;
    // Both buttons show only for the ENABLE type, so both pick into the first syntax field.
    if (containsNoCase(toBytes(cboType->currentText()), "ENABLE"))
        PickFromLV(this, list_, txtChecked, kCategoryIconIndex, QStringLiteral("Choose Category to Enable"));
    else
        PickFromLV(this, list_, txtUnchecked, kCategoryIconIndex,
                   QStringLiteral("Choose Category to Disable"));
}

void frmEditOption::cmdOK_Click() {
    if (refusalPending())
        return;
    // Every value written must have passed its field's check, however OK was reached: without
    // leaving the field (a click made by a program, an accessibility tool), or with the focus
    // moved past the check (pressed on Cancel, dragged off it, then OK). A field whose value
    // changed since it last passed (or since the editor opened) is checked now.
    for (QLineEdit* field : {txtName, txtKey, txtParameter})
        if (!checkPassed(field) && !runCheck(field))
            return;

    const int count = list_->topLevelItemCount();
    const bool inRange = index_ >= 1 && index_ <= count;
    QTreeWidgetItem* item = nullptr;
    if (newRow_ || !inRange) {
        item = newOptionItem();
        if (inRange)
            list_->insertTopLevelItem(index_ - 1, item);
        else
            list_->addTopLevelItem(item);
    } else {
        item = list_->topLevelItem(index_ - 1);
    }
    item->setText(kOptName, txtName->text());
    item->setText(kOptChecked, txtChecked->text());
    item->setText(kOptUnchecked, txtUnchecked->text());
    item->setText(kOptHelpText, txtHelp->text());
    item->setText(kOptType,
                  cboType->currentIndex() >= 0 ? QString::number(cboType->currentIndex()) : originalType_);
    item->setText(kOptParameter, txtParameter->text());
    item->setText(kOptKey, txtKey->text());
    const int where = whereGroup_->checkedId();
    item->setText(kOptWhere, where >= 0 ? QString::number(where) : originalWhere_);
    selectRow(list_, item);
    accept();
}

void frmEditOption::cmdCancel_Click() {
    reject();
}

} // namespace rd
