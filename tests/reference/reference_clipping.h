// The reference renderer's six plane clippers.
#pragma once

#include "tests/reference/reference_polygon.h"

namespace kardeno::reference {

enum class Plane { nearPlane, farPlane, right, left, bottom, top };

u32 outcodeBit(Plane plane);

// Cuts the outline at one plane. False when the polygon is to be dropped: fewer than 3 corners are left, or more than
// 16.
bool clip(Polygon& polygon, Plane plane, const Format& format, const RenderView& view);

// The four screen planes, each only where some corner lacks its bit in `outcodes`.
bool clipToScreen(Polygon& polygon, u32 outcodes, const Format& format, const RenderView& view);

constexpr size_t fewestCorners = 3;
constexpr size_t mostCorners = 16;

} // namespace kardeno::reference
