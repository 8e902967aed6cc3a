// Scenes of random polygons, for tests of properties that hold whatever is drawn. A seed gives the same scene
// everywhere.
#pragma once

#include "scenes/base_scene.h"
#include "scenes/random_numbers.h"

namespace kardeno::scenes {

// The rows of the render-mode table that the polygons are spread over.
enum class RowChoice {
    all,           // all twenty
    opaque,        // those whose polygons hide what lies farther
    plain,         // UnlitPlain, with a colour of its own for each polygon
    plainAndGlass, // the same, but about a third of the polygons are half transparent
};

struct RandomSceneSettings {
    i32 bitsPerPixel = 16;
    i32 polygons = 40;
    RowChoice rows = RowChoice::all;
    i32 litState = 1; // the render state of the lit rows, 1 or 2
};

// Makes a scene of polygons of all sizes, turned any way and running through one another. They lie inside, across and
// outside all six clip planes.
std::unique_ptr<Scene> makeTangledScene(u32 seed, const RandomSceneSettings& settings);

// Makes a scene of at most `layerCount` polygons that do not meet. Each is only slightly tilted and has a layer of
// depth of its own, with gaps between the layers. The nearest layer lies around the near plane and the farthest around
// the far one.
inline constexpr i32 layerCount = 24;
std::unique_ptr<Scene> makeLayeredScene(u32 seed, const RandomSceneSettings& settings);

// Returns a surface that is drawn by the given row of the render-mode table.
Surface surfaceOfRow(i32 row, i32 litState, Texture& trueColour, Texture& palettised);

} // namespace kardeno::scenes
