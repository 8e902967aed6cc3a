// One face on its way through the clip planes, by the renderer's own routines: its corners before and after each plane.
#pragma once

#include "kardeno_soft/host_records.h"

#include <string>
#include <vector>

namespace inspector {

struct FollowedFace {
    struct Corner {
        double x, y, depth; // in camera space, or on the screen with the inverse depth
    };
    struct Stage {
        std::string name;
        bool onScreen; // in pixels, otherwise in camera space
        bool cut;      // whether the plane was cut at
        std::vector<Corner> corners;
    };
    std::vector<Stage> stages; // none: no face was followed
};

// Called where the renderer is about to emit the face, when its vertices are prepared.
FollowedFace followFace(const kardeno::RenderView& view, const kardeno::SceneFace& face);

} // namespace inspector
