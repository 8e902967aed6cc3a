// Frames that are drawn with the fillers of runs and without them.
#pragma once

#include "raster/run_fills.h"
#include "tests/support/test_frame.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace kardeno::tests {

// Takes the fillers of runs out of all rows and puts them back.
class WithoutRunFillers {
public:
    WithoutRunFillers()
    {
        std::copy_n(RunFillers, renderModeRowCount, kept);
        std::fill_n(RunFillers, renderModeRowCount, RunFiller{nullptr});
    }
    ~WithoutRunFillers() { std::copy_n(kept, renderModeRowCount, RunFillers); }

private:
    RunFiller kept[renderModeRowCount];
};

// Whether draw(frame) gives the same frame with the fillers of runs and without them.
template <class Draw>
bool drawsAlike(i32 width, i32 height, Draw draw)
{
    TestFrame runs(width, height);
    TestFrame plain(width, height);
    draw(runs);
    {
        const WithoutRunFillers without;
        draw(plain);
    }
    CHECK(runs.fencesStand());
    CHECK(plain.fencesStand());
    for (i32 y = 0; y < height; ++y) {
        if (runs.row(y, 0, width) != plain.row(y, 0, width)) return false;
    }
    return true;
}

} // namespace kardeno::tests
