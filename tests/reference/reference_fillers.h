// The reference renderer's span fillers: what each row of the render-mode table does to the pixels of a polygon.
#pragma once

#include "tests/reference/reference_materials.h"
#include "tests/reference/reference_polygon.h"

namespace kardeno::reference {

void fill(const Polygon& polygon, const Materials& materials, const RenderView& view, i32 bitsPerPixel,
          u16* frameBuffer);

} // namespace kardeno::reference
