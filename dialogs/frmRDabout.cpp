#include "dialogs/frmRDabout.h"

#include "core/screens/prompts.h"
#include "core/screens/userfont.h"
#include "dialogs/version.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace rd {

namespace {

// One frame of the animation every few milliseconds, so the growing can be seen.
constexpr int kFrameMs = 12;

QLabel* makeLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

void setPointSize(QLabel* label, int size, bool bold) {
    QFont font = label->font();
    font.setPointSize(size);
    font.setBold(bold);
    label->setFont(font);
}

// Letters of different sizes on one line stand on one baseline: the labels sit on the line's
// bottom, and each label gives the room below its letters that the largest letters need below
// their baseline.
void standOnOneBaseline(std::initializer_list<QLabel*> labels) {
    int deepest = 0;
    for (QLabel* label : labels)
        deepest = std::max(deepest, label->fontMetrics().descent());
    for (QLabel* label : labels) {
        label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        label->setContentsMargins(0, 0, 0, deepest - label->fontMetrics().descent());
    }
}

} // namespace

void ShowAbout(QWidget* owner) {
    frmRDabout box(owner);
    box.exec();
}

QString aboutVersionText(int major, int minor, int revision) {
    return QStringLiteral("ersion ") + QString::number(major) + QStringLiteral(".") + QString::number(minor) +
           QStringLiteral(" revision ") + QString::number(revision);
}

frmRDabout::frmRDabout(QWidget* owner) : QDialog(owner), timer_(new QTimer(this)) {
    setObjectName(QStringLiteral("frmRDabout"));
    setWindowTitle(QStringLiteral("About..."));

    lblLogoR = makeLabel(QStringLiteral("lblLogoR"), QStringLiteral("R"), this);
    lblLogoOster = makeLabel(QStringLiteral("lblLogoOster"), QStringLiteral("oster"), this);
    lblLogoD = makeLabel(QStringLiteral("lblLogoD"), QStringLiteral("D"), this);
    lblLogoEsk = makeLabel(QStringLiteral("lblLogoEsk"), QStringLiteral("esk"), this);
    for (QLabel* initial : {lblLogoR, lblLogoD})
        setPointSize(initial, 36, true);
    for (QLabel* rest : {lblLogoOster, lblLogoEsk})
        setPointSize(rest, 20, true);
    lblOwner =
        makeLabel(QStringLiteral("lblOwner"),
                  QStringLiteral("RosterDesk is the property of its authors, the RosterDesk developers. "
                                 "All rights reserved."),
                  this);
    lblOwner->setWordWrap(true);
    lblVersionV = makeLabel(QStringLiteral("lblVersionV"), QStringLiteral("V"), this);
    setPointSize(lblVersionV, 16, true);
    lblVersion = makeLabel(QStringLiteral("lblVersion"), QStringLiteral("ersion x.y revision z"), this);
    lblInfo = makeLabel(QStringLiteral("lblInfo"), QString(), this);
    lblInfo->setAlignment(Qt::AlignCenter);
    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto* logo = new QHBoxLayout;
    logo->setSpacing(0);
    logo->addStretch(1);
    logo->addWidget(lblLogoR, 0, Qt::AlignBottom);
    logo->addWidget(lblLogoOster, 0, Qt::AlignBottom);
    logo->addWidget(lblLogoD, 0, Qt::AlignBottom);
    logo->addWidget(lblLogoEsk, 0, Qt::AlignBottom);
    logo->addStretch(1);
    auto* version = new QHBoxLayout;
    version->setSpacing(0);
    version->addStretch(1);
    version->addWidget(lblVersionV, 0, Qt::AlignBottom);
    version->addWidget(lblVersion, 0, Qt::AlignBottom);
    version->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(logo);
    layout->addLayout(version);
    layout->addWidget(lblOwner);
    layout->addStretch(1);
    layout->addWidget(lblInfo);
    layout->addLayout(buttons);
    // The box is squeezed while it grows and shrinks.
    layout->setSizeConstraint(QLayout::SetNoConstraint);

    connect(cmdOK, &QPushButton::clicked, this, &frmRDabout::cmdOK_Click);
    lblInfo->installEventFilter(this);
    connect(timer_, &QTimer::timeout, this, &frmRDabout::nextFrame);
    timer_->setInterval(kFrameMs);

    applyUserFont(this);
    standOnOneBaseline({lblLogoR, lblLogoOster, lblLogoD, lblLogoEsk});
    standOnOneBaseline({lblVersionV, lblVersion});

    lblVersion->setText(aboutVersionText(kVersionMajor, kVersionMinor, kVersionRevision));
    lblInfo->setText(QStringLiteral("For full credits and all the usual crap  ") + QStringLiteral("\r\n") +
                     QStringLiteral("that comes in one of these ABOUT type things, ") +
                     QStringLiteral("\r\n") + QStringLiteral("please have a look at Tarnwick."));

    // The box opens small, centred where its full size will be, and grows from there.
    const QSize full = fullSize();
    const QSize small(std::max(1, full.width() / 10), std::max(1, full.height() / 10));
    QRect area = owner ? owner->window()->geometry() : QRect();
    if (area.isEmpty() && screen())
        area = screen()->availableGeometry();
    QRect start(QPoint(0, 0), small);
    start.moveCenter(area.isEmpty() ? QPoint(full.width() / 2, full.height() / 2) : area.center());
    setGeometry(start);
}

double frmRDabout::twipsPerPixelX() const {
    const QScreen* s = screen();
    return 1440.0 / (s ? s->logicalDotsPerInchX() : 96.0);
}

double frmRDabout::twipsPerPixelY() const {
    const QScreen* s = screen();
    return 1440.0 / (s ? s->logicalDotsPerInchY() : 96.0);
}

QSize frmRDabout::fullSize() const {
    QSize full(static_cast<int>(std::lround(kAboutWidthTwips / twipsPerPixelX())),
               static_cast<int>(std::lround(kAboutHeightTwips / twipsPerPixelY())));
    // A large user font may need more room than that: the box then grows to what its texts need.
    if (const QLayout* box = layout()) {
        full.setWidth(std::max(full.width(), box->totalMinimumSize().width()));
        const int needed = box->hasHeightForWidth() ? box->totalHeightForWidth(full.width())
                                                    : box->totalMinimumSize().height();
        full.setHeight(std::max(full.height(), needed));
    }
    return full;
}

bool frmRDabout::animating() const {
    return timer_->isActive();
}

QRect frmRDabout::toPixels(const TwipRect& r) const {
    const double x = twipsPerPixelX();
    const double y = twipsPerPixelY();
    return QRect(static_cast<int>(std::lround(r.left / x)), static_cast<int>(std::lround(r.top / y)),
                 std::max(1, static_cast<int>(std::lround(r.width / x))),
                 std::max(1, static_cast<int>(std::lround(r.height / y))));
}

TwipRect frmRDabout::toTwips(const QRect& r) const {
    const double x = twipsPerPixelX();
    const double y = twipsPerPixelY();
    return TwipRect{r.left() * x, r.top() * y, r.width() * x, r.height() * y};
}

void frmRDabout::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!opened_) {
        opened_ = true;
        // Once the box is up and active.
        QTimer::singleShot(0, this, &frmRDabout::startOpening);
    }
}

void frmRDabout::startOpening() {
    if (closing_)
        return;
    // The design's size, unless the texts need more room (see fullSize).
    const QSize full = fullSize();
    play(growFrames(toTwips(geometry()), std::max(kAboutWidthTwips, full.width() * twipsPerPixelX()),
                    std::max(kAboutHeightTwips, full.height() * twipsPerPixelY())));
}

void frmRDabout::play(std::vector<TwipRect> frames) {
    frames_ = std::move(frames);
    nextFrame_ = 0;
    if (frames_.empty()) {
        timer_->stop();
        if (closing_)
            QDialog::done(closeResult_);
        return;
    }
    timer_->start();
}

void frmRDabout::nextFrame() {
    if (nextFrame_ < frames_.size()) {
        const QRect r = toPixels(frames_[nextFrame_++]);
        setGeometry(r);
        framesShown_.push_back(r);
        update();
        return;
    }
    timer_->stop();
    if (closing_)
        QDialog::done(closeResult_);
}

void frmRDabout::done(int r) {
    if (closing_)
        return;
    if (!isVisible()) {
        QDialog::done(r);
        return;
    }
    closing_ = true;
    closeResult_ = r;
    timer_->stop();
    play(shrinkFrames(toTwips(geometry())));
}

void frmRDabout::lblInfo_Click() {
    showMessage(this, QStringLiteral("You may well be wondering what the HELL this is... well, then..."),
                PromptIcon::Information);
}

void frmRDabout::cmdOK_Click() {
    accept();
}

bool frmRDabout::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblInfo && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton &&
        lblInfo->rect().contains(static_cast<QMouseEvent*>(event)->position().toPoint())) {
        lblInfo_Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
