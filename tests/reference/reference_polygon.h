// The reference renderer's screen polygons: whole corners side by side, where the library keeps an array per attribute.
#pragma once

#include "tests/reference/reference_materials.h"

#include <vector>

namespace kardeno::reference {

struct Corner {
    u32 outcode = 0;
    f32 viewX = 0, viewY = 0, viewZ = 0;
    f32 screenX = 0, screenY = 0, invDepth = 0;
    f32 texU = 0, texV = 0;
    f32 intensity = 0;
    f32 red = 0, green = 0, blue = 0;
    i32 scanY = 0;
};

// What a polygon carries beside its positions.
struct Format {
    bool texture = false;
    bool colours = false;
    bool intensity = false;
    bool intensityOverDepth = false; // else the intensity is linear on the screen
};

enum class List { resolved, sorted, lateSorted };

// How a row of the render-mode table emits its faces.
struct Emission {
    Format format;
    List list = List::resolved;
    bool billboard = false;
};

Emission emissionOf(Row row);

struct Span {
    i32 x, length, y;
};

struct Polygon {
    std::vector<Corner> corners;
    u32 outcodeAnd = 0x3f;
    u32 outcodeOr = 0;
    i32 maxDepth = 0;
    const SceneMaterial* material = nullptr;
    u16 faceColour = 0;
    f32 invDepthStepX = 0, invDepthStepY = 0, invDepthOrigin = 0;
    bool occludes = false;

    // While rows are resolved.
    i32 insideCount = 0;
    i32 runStart = 0;
    bool visible = true;
    std::vector<Span> spans; // as they were made; they are drawn from the last to the first
};

// The polygons of a frame.
struct PolygonLists {
    std::vector<Polygon> resolved, sorted, lateSorted;

    std::vector<Polygon>& operator[](List list)
    {
        return list == List::resolved ? resolved : list == List::sorted ? sorted : lateSorted;
    }
};

} // namespace kardeno::reference
