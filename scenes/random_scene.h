// Scenes of random polygons, for properties that hold whatever is drawn. A seed gives the same scene everywhere.
#pragma once

#include "scenes/base_scene.h"
#include "scenes/random_numbers.h"

namespace kardeno::scenes {

// Which rows the polygons are spread over.
enum class RowChoice {
    all,           // the twenty
    opaque,        // those of the resolved list
    plain,         // unlit and opaque, a colour of its own for each polygon
    plainAndGlass, // the same, and a third of the polygons half transparent
};

struct RandomSceneSettings {
    i32 bitsPerPixel = 16;
    i32 polygons = 40;
    RowChoice rows = RowChoice::all;
    i32 litState = 1; // of the lit rows: 1 or 2
};

// Polygons of all sizes, before, across and behind all six planes, turned any way, through one another.
std::unique_ptr<Scene> makeTangledScene(u32 seed, const RandomSceneSettings& settings);

// Polygons that do not meet: each in a layer of depth of its own, with a gap around it, only slightly tilted. The
// nearest layer lies around the near plane and the farthest around the far one. At most `layerCount`.
inline constexpr i32 layerCount = 24;
std::unique_ptr<Scene> makeLayeredScene(u32 seed, const RandomSceneSettings& settings);

// The surfaces of the twenty rows, in the order of the rows.
Surface surfaceOfRow(i32 row, i32 litState, Texture& trueColour, Texture& palettised);

} // namespace kardeno::scenes
