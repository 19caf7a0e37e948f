#include "models/screens/frmSex.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/shorttext.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "core/text.h"
#include "games/gamelist.h"
#include "models/genders.h"

#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>
#include <vector>

namespace rd {

namespace {

const QString kNoGames = QStringLiteral("No games have yet been created.\r\n"
                                        "Most likely, you have not installed Tarnwick properly."
                                        "Run the main program first before trying this");

void nameByLabel(QLabel* label, QWidget* control) {
    label->setBuddy(control);
    control->setAccessibleName(QString(label->text()).remove(QLatin1Char('&')));
}

// A model's name tag: a card with a head and shoulders and two lines of writing. Over a list it
// carries a green arrow (it can be dropped); away from the lists it is faded and crossed out.
QPixmap dragPictureOf(bool overList) {
    constexpr int size = 32;
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter paint(&picture);
    paint.setRenderHint(QPainter::Antialiasing);
    paint.setOpacity(overList ? 1.0 : 0.55);
    paint.setPen(QPen(QColor(40, 40, 60), 1.5));
    paint.setBrush(QColor(250, 248, 235));
    paint.drawRoundedRect(QRectF(2.5, 6.5, 24, 19), 3, 3);
    paint.setBrush(QColor(90, 110, 160));
    paint.setPen(Qt::NoPen);
    paint.drawEllipse(QRectF(6, 10, 6, 6));
    QPainterPath shoulders;
    shoulders.moveTo(4.5, 23);
    shoulders.cubicTo(5, 17, 13, 17, 13.5, 23);
    shoulders.closeSubpath();
    paint.drawPath(shoulders);
    paint.setPen(QPen(QColor(120, 120, 120), 1.5));
    paint.drawLine(QPointF(16, 13), QPointF(24, 13));
    paint.drawLine(QPointF(16, 18), QPointF(22, 18));
    paint.setOpacity(1.0);
    if (overList) {
        paint.setPen(QPen(QColor(20, 140, 40), 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        paint.drawLine(QPointF(19, 28), QPointF(29, 28));
        paint.drawLine(QPointF(25, 24), QPointF(29, 28));
        paint.drawLine(QPointF(25, 32 - 0.5), QPointF(29, 28));
    } else {
        paint.setPen(QPen(QColor(200, 30, 30), 2.5));
        paint.setBrush(Qt::NoBrush);
        paint.drawEllipse(QRectF(18, 18, 12, 12));
        paint.drawLine(QPointF(20, 28), QPointF(28, 20));
    }
    return picture;
}

} // namespace

frmSex::frmSex(std::filesystem::path root, QWidget* parent) : QDialog(parent), root_(std::move(root)) {
    setObjectName(QStringLiteral("frmSex"));
    setWindowTitle(QStringLiteral("Quake2 Sex Editor"));
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    ImageList1[kPictureOverList] = dragPictureOf(true);
    ImageList1[kPictureAway] = dragPictureOf(false);

    Label1 = new QLabel(QStringLiteral("Edit Sex for Which Game:"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    cboGame = new QComboBox(this);
    cboGame->setObjectName(QStringLiteral("cboGame"));
    nameByLabel(Label1, cboGame);

    lblMale = new QLabel(QStringLiteral("Male Models"), this);
    lblMale->setObjectName(QStringLiteral("lblMale"));
    lstBlokes = new QListWidget(this);
    lstBlokes->setObjectName(QStringLiteral("lstBlokes"));
    nameByLabel(lblMale, lstBlokes);

    lblFemale = new QLabel(QStringLiteral("Female Models"), this);
    lblFemale->setObjectName(QStringLiteral("lblFemale"));
    lstLadies = new QListWidget(this);
    lstLadies->setObjectName(QStringLiteral("lstLadies"));
    nameByLabel(lblFemale, lstLadies);

    for (QListWidget* list : {lstBlokes, lstLadies}) {
        list->setSelectionMode(QAbstractItemView::SingleSelection);
        list->setUniformItemSizes(true);
        showLongTextsShortened(list);
        list->installEventFilter(this);
        list->viewport()->installEventFilter(this);
    }

    lblinfo = new QLabel(QStringLiteral("double click or drag and drop to change between lists"), this);
    lblinfo->setObjectName(QStringLiteral("lblinfo"));
    lblinfo->setWordWrap(true);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);

    auto* gameRow = new QHBoxLayout;
    gameRow->addWidget(Label1);
    gameRow->addWidget(cboGame, 1);

    auto* lists = new QGridLayout;
    lists->addWidget(lblMale, 0, 0);
    lists->addWidget(lblFemale, 0, 1);
    lists->addWidget(lstBlokes, 1, 0);
    lists->addWidget(lstLadies, 1, 1);
    lists->setRowStretch(1, 1);

    auto* top = new QVBoxLayout(this);
    top->addLayout(gameRow);
    top->addLayout(lists, 1);
    top->addWidget(lblinfo);
    top->addLayout(buttons);

    setTabOrder(cboGame, lstBlokes);
    setTabOrder(lstBlokes, lstLadies);
    setTabOrder(lstLadies, cmdOK);
    setTabOrder(cmdOK, cmdCancel);

    connect(cboGame, &QComboBox::currentIndexChanged, this, &frmSex::cboGame_Click);
    connect(lstBlokes, &QListWidget::itemDoubleClicked, this, &frmSex::lstBlokes_DblClick);
    connect(lstLadies, &QListWidget::itemDoubleClicked, this, &frmSex::lstLadies_DblClick);
    connect(cmdOK, &QPushButton::clicked, this, &frmSex::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmSex::cmdCancel_Click);

    openAtTextSize(this, 73, 30);
    Form_Load();
}

void frmSex::Form_Load() {
    StepRunner trap(screenTrap(this, QString::fromLatin1(kGendersLoadTitle.data(),
                                                         static_cast<qsizetype>(kGendersLoadTitle.size()))));
    trap.step([this] { applyUserFont(this); });
    std::vector<std::string> games;
    trap.step([&] { games = ListGames(root_); });
    if (games.empty()) {
        showMessage(this, kNoGames, PromptIcon::Exclamation);
        tag_ = QStringLiteral("UNLOAD");
        return;
    }
    {
        const QSignalBlocker quiet(cboGame);
        cboGame->addItems(fromBytesList(games));
        cboGame->setCurrentIndex(0);
    }
    cboGame_Click();
}

void frmSex::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (tag_ == QStringLiteral("UNLOAD"))
        QTimer::singleShot(0, this, &QWidget::close);
}

void frmSex::cboGame_Click() {
    // Another game: its lists come from disk again and unsaved moves of the previous game are dropped.
    endDrag();
    if (cboGame->currentIndex() >= 0)
        loadLists(toBytes(cboGame->currentText()));
}

void frmSex::loadLists(const std::string& game) {
    saveTarget_ = genderRecordPath(root_, game);
    lstBlokes->clear();
    lstLadies->clear();

    StepRunner trap(screenTrap(this, QString::fromLatin1(kGendersLoadTitle.data(),
                                                         static_cast<qsizetype>(kGendersLoadTitle.size()))));
    // After a failure (answered Abort or Ignore) the screen shows what was read until then, and
    // OK saves to the file being read: Female.cfg once the models are listed.
    ModelGenders genders;
    const bool loaded = trap.step([&] { LoadModelGenders(root_, game, genders); });
    saveTarget_ = genders.saveTarget;
    if (loaded && genders.noModelsFolder) {
        showMessage(
            this, QString::fromLatin1(kNoModelsFolder.data(), static_cast<qsizetype>(kNoModelsFolder.size())),
            PromptIcon::Exclamation, fromBytes(game));
        return;
    }
    for (auto [list, names] : {std::pair{lstBlokes, &genders.male}, std::pair{lstLadies, &genders.female}}) {
        list->setUpdatesEnabled(false);
        list->addItems(fromBytesList(*names));
        list->setUpdatesEnabled(true);
    }
}

void frmSex::moveModel(QListWidget* from, QListWidget* to) {
    QListWidgetItem* selected = from->currentItem();
    if (!selected || !selected->isSelected())
        return;
    to->addItem(selected->text());
    delete from->takeItem(from->row(selected));
    from->setCurrentRow(-1);
}

void frmSex::lstBlokes_DblClick() {
    moveModel(lstBlokes, lstLadies);
}

void frmSex::lstLadies_DblClick() {
    moveModel(lstLadies, lstBlokes);
}

void frmSex::cmdOK_Click() {
    if (saveTarget_.empty())
        return;
    std::vector<std::string> female;
    female.reserve(static_cast<std::size_t>(lstLadies->count()));
    for (int i = 0; i < lstLadies->count(); ++i)
        female.push_back(toBytes(lstLadies->item(i)->text()));
    StepRunner trap(screenTrap(this, QString::fromLatin1(kGendersSaveTitle.data(),
                                                         static_cast<qsizetype>(kGendersSaveTitle.size()))));
    trap.step([&] { SaveFemaleList(saveTarget_, female); });
    // Abort keeps the screen open with its lists, so no move is lost.
    trap.step([this] { accept(); });
}

void frmSex::cmdCancel_Click() {
    reject();
}

QListWidget* frmSex::listAt(const QPoint& globalPos) const {
    for (QWidget* w = childAt(mapFromGlobal(globalPos)); w; w = w->parentWidget()) {
        // Only the two model lists take a dropped model; their names decide, without regard to case.
        const std::string name = toBytes(w->objectName());
        if (equalsNoCase(name, "lstBlokes") || equalsNoCase(name, "lstLadies"))
            return static_cast<QListWidget*>(w);
        if (w == this)
            break;
    }
    return nullptr;
}

void frmSex::showDragPicture(int picture) {
    if (picture == dragPicture_)
        return;
    const QCursor cursor(ImageList1[static_cast<std::size_t>(picture)], 4, 4);
    if (dragPicture_ < 0)
        QApplication::setOverrideCursor(cursor);
    else
        QApplication::changeOverrideCursor(cursor);
    dragPicture_ = picture;
}

void frmSex::endDrag() {
    if (dragPicture_ >= 0)
        QApplication::restoreOverrideCursor();
    dragPicture_ = -1;
    dragSource_ = nullptr;
    pressedList_ = nullptr;
}

bool frmSex::handleMouse(QListWidget* list, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove && type != QEvent::MouseButtonRelease)
        return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    switch (type) {
    case QEvent::MouseButtonPress:
        if (mouse->button() == Qt::LeftButton) {
            pressedList_ = list;
            pressedAt_ = mouse->globalPosition().toPoint();
        }
        return false; // the list selects the entry under the pointer as usual
    case QEvent::MouseMove: {
        if (!(mouse->buttons() & Qt::LeftButton) || pressedList_ != list)
            return false;
        const QPoint at = mouse->globalPosition().toPoint();
        if (!dragSource_) {
            QListWidgetItem* selected = list->currentItem();
            if ((at - pressedAt_).manhattanLength() < QApplication::startDragDistance() || !selected ||
                !selected->isSelected())
                return true; // the selection stays on the entry the button went down on
            dragSource_ = list;
        }
        showDragPicture(listAt(at) ? kPictureOverList : kPictureAway);
        return true;
    }
    case QEvent::MouseButtonRelease: {
        if (mouse->button() != Qt::LeftButton)
            return false;
        QListWidget* source = dragSource_;
        QListWidget* target = source ? listAt(mouse->globalPosition().toPoint()) : nullptr;
        endDrag();
        if (!source)
            return false;
        // Dropping on the other list moves the model as a double click does; on its own list nothing.
        if (target && target != source)
            moveModel(source, target);
        return true;
    }
    default:
        return false;
    }
}

bool frmSex::eventFilter(QObject* watched, QEvent* event) {
    for (QListWidget* list : {lstBlokes, lstLadies}) {
        if (watched == list->viewport())
            return handleMouse(list, event) || QDialog::eventFilter(watched, event);
        if (watched == list && event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() == Qt::Key_Escape && dragSource_) {
                endDrag();
                return true;
            }
            if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
                !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
                // Enter does what a double click does, for those who work from the keyboard.
                list == lstBlokes ? lstBlokes_DblClick() : lstLadies_DblClick();
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
