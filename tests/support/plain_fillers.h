// Frames that are drawn with the fast routines and with the plain ones, which define the pixels.
#pragma once

#include "host/render_modes.h"
#include "raster/run_fills.h"
#include "tests/support/test_frame.h"

#include <doctest/doctest.h>

namespace kardeno::tests {

// Takes the fillers of runs out of all rows, so that the frame driver hands every polygon to the filler that stands in
// its row, and puts fillers there that draw all spans with the plain inner routines, pixel by pixel. Puts both back.
class PlainFillers {
public:
    PlainFillers();
    ~PlainFillers();
    PlainFillers(const PlainFillers&) = delete;
    PlainFillers& operator=(const PlainFillers&) = delete;

private:
    RunFiller keptRuns[renderModeRowCount];
    FillRoutine keptFillers[renderModeRowCount];
};

// Takes only the fillers of runs away.
class WithoutRunFillers {
public:
    WithoutRunFillers();
    ~WithoutRunFillers();
    WithoutRunFillers(const WithoutRunFillers&) = delete;
    WithoutRunFillers& operator=(const WithoutRunFillers&) = delete;

private:
    RunFiller kept[renderModeRowCount];
};

// Whether draw(frame) gives the same frame with the fast routines, without the fillers of runs, and with nothing but
// plain routines.
template <class Draw>
bool drawsAlike(i32 width, i32 height, Draw draw)
{
    TestFrame fast(width, height);
    TestFrame withoutRuns(width, height);
    TestFrame plain(width, height);
    draw(fast);
    {
        const WithoutRunFillers without;
        draw(withoutRuns);
    }
    {
        const PlainFillers onlyPlain;
        draw(plain);
    }
    CHECK(fast.fencesStand());
    CHECK(withoutRuns.fencesStand());
    CHECK(plain.fencesStand());
    for (i32 y = 0; y < height; ++y) {
        const auto row = fast.row(y, 0, width);
        if (withoutRuns.row(y, 0, width) != row || plain.row(y, 0, width) != row) return false;
    }
    return true;
}

} // namespace kardeno::tests
