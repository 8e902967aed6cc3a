#include "inspector/followed_face.h"

#include "geometry/billboards.h"
#include "host/host_context.h"

namespace inspector {

namespace {

using namespace kardeno;

class Follower {
public:
    explicit Follower(const RenderView& view) : view_(view) {}

    FollowedFace follow(const SceneFace& face)
    {
        if (!foldOutcodes(*hostContext, polygon_, face)) return std::move(result_);
        copyCameraOutline(*hostContext, polygon_, face);
        note("the corners in camera space", false, false);
        const bool crosses = (polygon_.outcodeAnd & outcodeDepthPlanes) != outcodeDepthPlanes;
        const RenderModeRow row = RenderModeRow(&modeOf(*face.material) - RenderModeTable);
        const bool isBillboard = row == rowUnlitTexturedShade10 || row == rowUnlitTexturedShade11;
        if (isBillboard && crosses) return std::move(result_);

        const ClipperFamily& family = clippers<PositionsOnly>;
        if (!isBillboard) {
            if (!pass("near plane", family.nearPlane, outcodeNear, false)) return std::move(result_);
            if (!pass("far plane", family.farPlane, outcodeFar, false)) return std::move(result_);
        }
        project();
        note("projected to the screen", true, false);
        if (isBillboard) {
            squareCorners(view_, polygon_);
            note("made a square around the middle", true, false);
        }
        if (pass("right side", family.rightPlane, outcodeRight, true)
            && pass("left side", family.leftPlane, outcodeLeft, true)
            && pass("bottom side", family.bottomPlane, outcodeBottom, true))
            pass("top side", family.topPlane, outcodeTop, true);
        return std::move(result_);
    }

private:
    // A plane that has all corners of the face on its inner side is passed without being looked at.
    bool pass(const char* name, ClipRoutine clipper, u32 bit, bool onScreen)
    {
        const bool cut = !(polygon_.outcodeAnd & bit);
        if (cut) clipper(&view_, &polygon_);
        if (polygon_.vertexCount < minCorners) polygon_.vertexCount = 0;
        note(name, onScreen, cut);
        return polygon_.vertexCount > 0;
    }

    void project()
    {
        for (i32 i = 0; i < polygon_.vertexCount; ++i) {
            const ScreenVertex vertex = projected(*view_.projection, cameraCorner(polygon_, i));
            polygon_.screenX[i] = vertex.x;
            polygon_.screenY[i] = vertex.y;
            polygon_.invDepth[i] = vertex.invDepth;
        }
    }

    void note(const char* name, bool onScreen, bool cut)
    {
        FollowedFace::Stage stage{name, onScreen, cut, {}};
        for (i32 i = 0; i < polygon_.vertexCount; ++i)
            stage.corners.push_back(
                onScreen ? FollowedFace::Corner{polygon_.screenX[i], polygon_.screenY[i], polygon_.invDepth[i]}
                         : FollowedFace::Corner{polygon_.viewX[i], polygon_.viewY[i], polygon_.viewZ[i]});
        result_.stages.push_back(std::move(stage));
    }

    const RenderView& view_;
    ScreenPolygon polygon_{};
    FollowedFace result_;
};

} // namespace

FollowedFace followFace(const RenderView& view, const SceneFace& face)
{
    return Follower(view).follow(face);
}

} // namespace inspector
