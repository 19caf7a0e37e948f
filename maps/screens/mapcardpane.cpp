#include "maps/screens/mapcardpane.h"

#include "core/screens/qtext.h"

#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <QPen>
#include <QStringList>
#include <QTransform>
#include <QVBoxLayout>
#include <algorithm>

namespace rd {

namespace {

QLabel* cardLabel(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

MapPlanView::MapPlanView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picCardPlan"));
    setAccessibleName(QStringLiteral("Floor plan"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void MapPlanView::setPlan(const MapPlan& plan) {
    lines_.clear();
    lines_.reserve(static_cast<qsizetype>(plan.lines.size()));
    bool first = true;
    double left = 0, right = 0, bottom = 0, top = 0;
    for (const auto& line : plan.lines) {
        const auto& a = plan.points[line[0]];
        const auto& b = plan.points[line[1]];
        lines_.append(QLineF(a[0], a[1], b[0], b[1]));
        for (const auto* p : {&a, &b}) {
            const double x = (*p)[0];
            const double y = (*p)[1];
            left = first ? x : std::min(left, x);
            right = first ? x : std::max(right, x);
            bottom = first ? y : std::min(bottom, y);
            top = first ? y : std::max(top, y);
            first = false;
        }
    }
    extent_ = first ? QRectF() : QRectF(QPointF(left, bottom), QPointF(right, top));
    hasPlan_ = true;
    update();
}

void MapPlanView::clearPlan() {
    lines_.clear();
    extent_ = QRectF();
    hasPlan_ = false;
    update();
}

QRectF MapPlanView::drawnRect() const {
    if (lines_.isEmpty())
        return {};
    const double margin = fontMetrics().height() / 2.0;
    const QRectF room = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    if (room.width() <= 0 || room.height() <= 0)
        return {};
    // A plan that is a line (or a point) across one axis is scaled by the other.
    const double w = extent_.width();
    const double h = extent_.height();
    double scale = 1;
    if (w > 0 && h > 0)
        scale = std::min(room.width() / w, room.height() / h);
    else if (w > 0)
        scale = room.width() / w;
    else if (h > 0)
        scale = room.height() / h;
    const QSizeF size(w * scale, h * scale);
    return QRectF(room.center() - QPointF(size.width() / 2, size.height() / 2), size);
}

QSize MapPlanView::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {metrics.averageCharWidth() * 36, metrics.height() * 14};
}

QSize MapPlanView::minimumSizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {metrics.averageCharWidth() * 16, metrics.height() * 6};
}

void MapPlanView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (lines_.isEmpty()) {
        if (hasPlan_) {
            painter.setPen(palette().color(QPalette::Text));
            painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, QStringLiteral("No floors to draw"));
        }
        return;
    }
    const QRectF target = drawnRect();
    // Map units to the widget: x to the right, y (north) up.
    const double scale = extent_.width() > 0    ? target.width() / extent_.width()
                         : extent_.height() > 0 ? target.height() / extent_.height()
                                                : 1.0;
    QTransform transform;
    transform.translate(target.left(), target.bottom());
    transform.scale(scale, -scale);
    transform.translate(-extent_.left(), -extent_.top());
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(palette().color(QPalette::Text));
    pen.setCosmetic(true);
    pen.setWidthF(std::max(1.0, fontMetrics().height() / 12.0));
    painter.setPen(pen);
    painter.setTransform(transform);
    painter.drawLines(lines_);
}

MapCardPane::MapCardPane(QWidget* parent) : QGroupBox(QStringLiteral("Map Card"), parent) {
    setObjectName(QStringLiteral("fraMapCard"));
    lblCardTitle = cardLabel(this, "lblCardTitle");
    QFont bold = lblCardTitle->font();
    bold.setBold(true);
    lblCardTitle->setFont(bold);
    lblCardSpawns = cardLabel(this, "lblCardSpawns");
    lblCardCtf = cardLabel(this, "lblCardCtf");
    lblCardWeapons = cardLabel(this, "lblCardWeapons");
    lblCardReason = cardLabel(this, "lblCardReason");
    picCardPlan = new MapPlanView(this);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblCardTitle);
    layout->addWidget(lblCardSpawns);
    layout->addWidget(lblCardCtf);
    layout->addWidget(lblCardWeapons);
    layout->addWidget(lblCardReason);
    layout->addWidget(picCardPlan, 1);
    showNothing();
}

void MapCardPane::showDetails(bool shown) {
    for (QLabel* label : {lblCardTitle, lblCardSpawns, lblCardCtf, lblCardWeapons})
        label->setVisible(shown);
    lblCardReason->setVisible(!shown);
    if (!shown)
        picCardPlan->clearPlan();
}

void MapCardPane::showNothing() {
    showDetails(false);
    lblCardReason->setText(QStringLiteral("Select a map to see its card."));
}

void MapCardPane::showReading() {
    showDetails(false);
    lblCardReason->setText(QStringLiteral("Reading the map..."));
}

void MapCardPane::showReason(const QString& reason) {
    showDetails(false);
    lblCardReason->setText(reason);
}

void MapCardPane::showCard(const MapCard& card) {
    lblCardTitle->setText(card.title.empty() ? QStringLiteral("(no title)") : fromBytes(card.title));
    lblCardSpawns->setText(QString::number(card.deathmatchSpawns) +
                           (card.deathmatchSpawns == 1 ? QStringLiteral(" deathmatch spawn point")
                                                       : QStringLiteral(" deathmatch spawn points")));
    lblCardCtf->setText(card.ctf ? QStringLiteral("CTF: yes") : QStringLiteral("CTF: no"));
    QStringList weapons;
    for (const auto& weapon : card.weapons)
        weapons << fromBytes(weaponName(weapon));
    lblCardWeapons->setText(QStringLiteral("Weapons: ") + (weapons.isEmpty()
                                                               ? QStringLiteral("none")
                                                               : weapons.join(QStringLiteral(", "))));
    lblCardReason->clear();
    showDetails(true);
    picCardPlan->setPlan(card.plan);
}

void MapCardPane::showResult(const CardResult& result) {
    if (result.ok())
        showCard(result.card);
    else
        showReason(fromBytes(result.reason));
}

} // namespace rd
