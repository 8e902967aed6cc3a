// The reference renderer's test of one face against a screen point.
#pragma once

#include "kardeno_soft/host_records.h"

#include <optional>

namespace kardeno::reference {

// The depth at which the face lies under the point, if it does. Projects corners into the vertex cache like a frame.
std::optional<f32> depthUnderPoint(const RenderView& view, const SceneFace& face, f32 x, f32 y, HostContext& context);

} // namespace kardeno::reference
