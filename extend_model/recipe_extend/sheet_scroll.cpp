// Scroll bar arithmetic.
#include "sheet_scroll.h"

#include <cmath>
#include <limits>

namespace {

const double SMALLEST_THUMB = 10.0;

/// 10 / L truncated. A page or track of no size gives no usable number: one jump then spans everything.
int linesPerJump(double length, int total)
{
    const double lines = SMALLEST_THUMB / length;
    if (!(lines >= 0.0) || lines > std::numeric_limits<int>::max())
        return total;
    return static_cast<int>(lines);
}

} // namespace

ScrollAxis::ScrollAxis()
    : trackStart(0), trackLength(0), thumbStart(0), thumbLength(0), largestFirst(0), stepDistance(0), jumpDistance(0)
{}

void ScrollAxis::compute(int total, int page, int first, int& jumpWidth)
{
    if (page < 0)
        page = 0;
    const double ratio = static_cast<double>(page) / total;
    if (!(ratio < 1.0) || total <= 0) {
        thumbStart = trackStart;
        thumbLength = trackLength;
        stepDistance = 0.0;
        largestFirst = 0;
        return;
    }

    thumbStart = trackStart + static_cast<double>(first) / total * trackLength;
    thumbLength = ratio * trackLength;
    largestFirst = total - page;
    if (thumbLength < SMALLEST_THUMB) {
        jumpWidth = linesPerJump(thumbLength, total);
        jumpDistance = (trackLength - SMALLEST_THUMB) * jumpWidth / (static_cast<double>(total) - page);
        thumbLength = SMALLEST_THUMB;
    }
    stepDistance = (1.0 - ratio) * trackLength / (static_cast<double>(total) - page);
}

ScrollAxis::Move ScrollAxis::drag(double delta, int first, int jumpWidth)
{
    const Move none = {false, 0};
    if (jumpDistance == 0.0)
        return step(delta, first);
    if (delta > 0.0)
        return delta > jumpDistance ? jumpForward(first, jumpWidth) : none;
    return std::fabs(delta) > jumpDistance ? jumpBack(first, jumpWidth) : none;
}

ScrollAxis::Move ScrollAxis::jumpForward(int first, int jumpWidth)
{
    Move move = {false, 0};
    if (first <= largestFirst - jumpWidth) {
        thumbStart += jumpDistance;
        move.taken = true;
        move.lines = jumpWidth;
        return move;
    }
    if (thumbEnd() < trackEnd())
        thumbStart = trackEnd() - thumbLength;
    if (first < largestFirst) {
        move.taken = true;
        move.lines = largestFirst - first;
    }
    return move;
}

ScrollAxis::Move ScrollAxis::jumpBack(int first, int jumpWidth)
{
    Move move = {false, 0};
    if (first >= jumpWidth) {
        thumbStart -= jumpDistance;
        move.taken = true;
        move.lines = -jumpWidth;
        return move;
    }
    if (thumbStart > trackStart)
        thumbStart = trackStart;
    if (first > 0) {
        move.taken = true;
        move.lines = -first;
    }
    return move;
}

ScrollAxis::Move ScrollAxis::step(double delta, int first)
{
    Move move = {false, 0};
    if (!(stepDistance > 0.0) || !(std::fabs(delta) > stepDistance))
        return move;
    const int direction = delta > 0.0 ? 1 : -1;
    if (first + direction < 0 || first + direction > largestFirst)
        return move;
    thumbStart += direction * stepDistance;
    move.taken = true;
    move.lines = direction;
    return move;
}
