// The arithmetic of one scroll bar: where its thumb is and what a drag does. Columns and rows share it. Numbers only,
// no drawing and no events; lengths and positions are pixels in item coordinates along the bar.
#ifndef SHEET_SCROLL_H
#define SHEET_SCROLL_H

struct ScrollAxis
{
    /// How far a drag moved the page.
    struct Move
    {
        bool taken; ///< the pointer's position becomes the new starting point of the drag
        int lines;  ///< change of the first visible index
    };

    double trackStart;
    double trackLength;
    double thumbStart;
    double thumbLength;
    int largestFirst;    ///< largest first visible index
    double stepDistance; ///< pixels per line; 0: everything fits on the page
    double jumpDistance; ///< pixels per jump; not 0 once the thumb was at its smallest size

    ScrollAxis();

    /// Places the thumb. `jumpWidth` (lines per jump) and the jump distance keep their values, wanted, unless the
    /// thumb is held at its smallest size.
    void compute(int total, int page, int first, int& jumpWidth);

    /// The pointer moved by `delta` since the last step taken. Moves the thumb and says what becomes of the page.
    Move drag(double delta, int first, int jumpWidth);

    double trackEnd() const { return trackStart + trackLength; }
    double thumbEnd() const { return thumbStart + thumbLength; }

private:
    Move jumpForward(int first, int jumpWidth);
    Move jumpBack(int first, int jumpWidth);
    Move step(double delta, int first);
};

#endif
