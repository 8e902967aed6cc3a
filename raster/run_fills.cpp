#include "raster/run_fills.h"

#include "host/render_modes.h"

namespace kardeno {

constinit RunFiller RunFillers[renderModeRowCount] = {};
constinit LaneRow LaneRowTable[laneRowCount] = {};

void fillPlainly(const StoredPolygon& polygon, const FillTarget& target)
{
    ScreenPolygon expanded;
    expand(polygon, expanded);
    const PolygonState& state = stateAt(polygon.state);
    if (state.spanCount > 0) expanded.spanHead = static_cast<i32>(state.firstSpan);
    modeOf(*polygon.material).fill(&expanded, target.frameBuffer, target.argument, target.pitch);
}

} // namespace kardeno
