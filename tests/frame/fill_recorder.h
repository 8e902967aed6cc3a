// Rows whose filler draws nothing and writes its call down: which polygons a frame hands to their fillers, in what
// order, and with what arguments.
#pragma once

#include "geometry/screen_polygon.h"
#include "host/render_modes.h"
#include "tests/support/test_scene.h"

namespace kardeno::tests {

struct FillCall {
    const SceneMaterial* material;
    i32 maxDepth;
    u16* frameBuffer;
    u32 argument;
    u32 pitch;
    u16 firstPixel; // of the frame buffer, when the filler was called
};

class FillRecorder {
public:
    FillRecorder() { calls.clear(); }

    // Makes the material's filler a recording one; all else stays as its row has it.
    void watch(SceneMaterial& material)
    {
        RenderMode& row = rows.emplace_back(*material.renderPrivate->mode);
        row.fill = record;
        material.renderPrivate->mode = &row;
    }

    static inline std::vector<FillCall> calls;

    static std::vector<const SceneMaterial*> materials()
    {
        std::vector<const SceneMaterial*> result;
        for (const FillCall& call : calls) result.push_back(call.material);
        return result;
    }
    static std::vector<i32> depths()
    {
        std::vector<i32> result;
        for (const FillCall& call : calls) result.push_back(call.maxDepth);
        return result;
    }

private:
    std::deque<RenderMode> rows;

    static void record(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch)
    {
        calls.push_back({polygon->material, polygon->maxDepth, frameBuffer, argument, pitch, frameBuffer[0]});
    }
};

} // namespace kardeno::tests
