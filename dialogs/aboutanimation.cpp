#include "dialogs/aboutanimation.h"

namespace rd {

namespace {
// Guards the comparisons against the last bit of rounding after twenty steps.
constexpr double kSlack = 1e-6;
// Twenty steps reach the target; the bound only keeps a bad input from looping for ever.
constexpr int kMostFrames = 64;
} // namespace

std::vector<TwipRect> growFrames(const TwipRect& start, double targetWidth, double targetHeight) {
    std::vector<TwipRect> frames;
    const double widthStep = (targetWidth - start.width) / 20;
    const double heightStep = (targetHeight - start.height) / 20;
    if (widthStep <= 20 && heightStep <= 20)
        return frames;
    TwipRect r = start;
    const auto widthShort = [&] { return r.width < targetWidth - kSlack; };
    const auto heightShort = [&] { return r.height < targetHeight - kSlack; };
    while ((widthShort() || heightShort()) && static_cast<int>(frames.size()) < kMostFrames) {
        if (widthShort()) {
            r.width += widthStep;
            r.left -= widthStep / 2;
        }
        if (heightShort()) {
            r.height += heightStep;
            r.top -= heightStep / 2;
        }
        frames.push_back(r);
    }
    return frames;
}

std::vector<TwipRect> shrinkFrames(const TwipRect& start) {
    std::vector<TwipRect> frames;
    const double widthStep = (start.width - 1) / 20;
    const double heightStep = (start.height - 1) / 20;
    if (widthStep <= 20 && heightStep <= 20)
        return frames;
    TwipRect r = start;
    const auto widthLeft = [&] { return r.width > 1 + kSlack; };
    const auto heightLeft = [&] { return r.height > 1 + kSlack; };
    while ((widthLeft() || heightLeft()) && static_cast<int>(frames.size()) < kMostFrames) {
        if (widthLeft()) {
            r.width -= widthStep;
            r.left += widthStep / 2;
        }
        if (heightLeft()) {
            r.height -= heightStep;
            r.top += heightStep / 2;
        }
        frames.push_back(r);
    }
    return frames;
}

} // namespace rd
