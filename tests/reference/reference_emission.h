// The reference renderer's emission: a host's face becomes a clipped, projected polygon of one of the frame's lists.
#pragma once

#include "tests/reference/reference_polygon.h"

namespace kardeno::reference {

void emit(const RenderView& view, const SceneFace& face, Row row, HostContext& context, PolygonLists& lists);

} // namespace kardeno::reference
