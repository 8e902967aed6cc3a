// A scanline opened up. The renderer resolves a row in place and forgets how it did; here it is resolved once more
// from the polygons of the lists, in the plainest form: no tables, no shortcuts. What comes out is compared with the
// spans that the renderer made.
#pragma once

#include "geometry/stored_polygon.h"

#include <vector>

namespace inspector {

using namespace kardeno;

// Polygons go by their place in the two resolved lists, one after the other; -1 is the background.
struct OpenedRow {
    struct Event { // an active edge that the walk passes
        f64 x;     // in pixels
        i32 polygon;
        bool enters;
        i32 comparisons;        // of depths, to find the polygon's place in the stack
        std::vector<i32> stack; // behind it, from the nearest polygon to the farthest
    };
    struct RowSpan {
        i32 x, length, polygon;
        bool operator==(const RowSpan&) const = default;
    };
    std::vector<Event> events;
    std::vector<RowSpan> spans; // in the order in which they were made
    bool agrees = false;        // whether the renderer made the same spans
};

// Opens a row of the frame that was drawn last, into a picture of this size.
OpenedRow openRow(i32 row, i32 width, i32 height);

// How often depths are compared in all rows of the frame.
i32 comparisonsOfFrame(i32 width, i32 height);

// The columns of a polygon's outline on each row: from `left` up to, not including, `right`.
struct OutlineRow {
    i32 y, left, right;
};
std::vector<OutlineRow> outlineRows(const StoredPolygon& polygon, i32 width, i32 height);

} // namespace inspector
