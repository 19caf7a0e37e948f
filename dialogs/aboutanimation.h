#pragma once
// The about box's opening and closing animation, worked out in twips (1/1440 inch) as frames.

#include <vector>

namespace rd {

struct TwipRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

// The size the about box grows to.
inline constexpr double kAboutWidthTwips = 6555;
inline constexpr double kAboutHeightTwips = 4680;

// Growing from `start` to targetWidth x targetHeight about the centre. The width step is one
// twentieth of (targetWidth - width) and the height step one twentieth of (targetHeight - height);
// when both steps are 20 twips or less there is nothing to animate (no frames). Otherwise each
// frame grows a side that is still short of its target by its step, moving the left / top edge by
// half the step, until both targets are reached.
std::vector<TwipRect> growFrames(const TwipRect& start, double targetWidth, double targetHeight);

// The mirror image: steps of one twentieth of (size - 1), shrinking about the centre until both
// sides are down to 1 twip; nothing when both steps are 20 twips or less.
std::vector<TwipRect> shrinkFrames(const TwipRect& start);

} // namespace rd
