#pragma once
// The about box: the program's name as a logo, its version, an ownership notice and a pointer to
// the launcher for the full credits. It grows open about its centre and shrinks away on closing.

#include "dialogs/aboutanimation.h"

#include <QDialog>
#include <QRect>
#include <QString>
#include <vector>

class QLabel;
class QPushButton;
class QTimer;

namespace rd {

// Opens the about box modally over `owner`.
void ShowAbout(QWidget* owner);

// "ersion <major>.<minor> revision <revision>" (a large "V" in front of it supplies the capital).
QString aboutVersionText(int major, int minor, int revision);

class frmRDabout : public QDialog {
    Q_OBJECT
public:
    explicit frmRDabout(QWidget* owner = nullptr);

    // The logo: large initials, smaller remaining letters.
    QLabel* lblLogoR;
    QLabel* lblLogoOster;
    QLabel* lblLogoD;
    QLabel* lblLogoEsk;
    QLabel* lblOwner;
    QLabel* lblVersionV;
    QLabel* lblVersion;
    QLabel* lblInfo;
    QPushButton* cmdOK;

    // Twips per pixel of the screen the box is on (horizontal, vertical).
    double twipsPerPixelX() const;
    double twipsPerPixelY() const;
    // The full size of the box in pixels: 6555 x 4680 twips at the screen's resolution, or larger
    // where a large user font needs more room for the box's texts.
    QSize fullSize() const;
    // Whether an opening or closing animation is under way.
    bool animating() const;
    // Every geometry the animations have set so far (pixels), for anyone who wants to follow them.
    const std::vector<QRect>& framesShown() const { return framesShown_; }

public slots:
    void lblInfo_Click();
    void cmdOK_Click();
    // Closing runs the shrinking animation first, then closes with `r`.
    void done(int r) override;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void startOpening();
    void play(std::vector<TwipRect> frames);
    void nextFrame();
    QRect toPixels(const TwipRect& r) const;
    TwipRect toTwips(const QRect& r) const;

    QTimer* timer_;
    std::vector<TwipRect> frames_;
    std::size_t nextFrame_ = 0;
    bool opened_ = false;
    bool closing_ = false;
    int closeResult_ = 0;
    std::vector<QRect> framesShown_;
};

} // namespace rd
