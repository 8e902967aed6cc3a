// The reference renderer's visibility: sides of polygons, sorted along each row; a stack of the polygons that a row is
// inside of; visible spans. And the drawing order of see-through polygons.
#pragma once

#include "tests/reference/reference_polygon.h"

namespace kardeno::reference {

// Leaves the visible spans in the polygons of both lists, and returns those of the background.
std::vector<Span> resolveRows(const RenderView& view, std::vector<Polygon>& resolved, std::vector<Polygon>& sorted);

// Indices of the polygons from the one that is drawn first to the one that is drawn last.
std::vector<size_t> farthestFirst(const std::vector<Polygon>& polygons);

} // namespace kardeno::reference
