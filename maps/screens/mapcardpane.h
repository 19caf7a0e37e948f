#pragma once
// The map card beside a map list: the selected map's title, its deathmatch spawn points, whether
// it is a CTF map, its weapons and its floor plan, or why the map has no card.

#include "maps/bsp.h"

#include <QGroupBox>
#include <QLineF>
#include <QList>
#include <QRectF>
#include <QString>
#include <QWidget>

class QLabel;

namespace rd {

// The floor plan seen from above, north up, drawn as large as the widget allows while keeping its
// proportions.
class MapPlanView : public QWidget {
    Q_OBJECT
public:
    explicit MapPlanView(QWidget* parent = nullptr);

    void setPlan(const MapPlan& plan);
    // No card: nothing drawn.
    void clearPlan();
    int lineCount() const { return static_cast<int>(lines_.size()); }
    // The plan's extent in map units, and where it is drawn in the widget now.
    QRectF planExtent() const { return extent_; }
    QRectF drawnRect() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<QLineF> lines_;
    QRectF extent_;
    bool hasPlan_ = false; // a card's plan is shown (it may have no lines)
};

class MapCardPane : public QGroupBox {
    Q_OBJECT
public:
    explicit MapCardPane(QWidget* parent = nullptr);

    // No map selected.
    void showNothing();
    // The selected map's card is being read.
    void showReading();
    void showCard(const MapCard& card);
    // The selected map has no card: `reason` says why.
    void showReason(const QString& reason);
    // The card or the reason, as a reading hands it back.
    void showResult(const CardResult& result);

    QLabel* lblCardTitle = nullptr;
    QLabel* lblCardSpawns = nullptr;
    QLabel* lblCardCtf = nullptr;
    QLabel* lblCardWeapons = nullptr;
    QLabel* lblCardReason = nullptr;
    MapPlanView* picCardPlan = nullptr;

private:
    void showDetails(bool shown);
};

} // namespace rd
