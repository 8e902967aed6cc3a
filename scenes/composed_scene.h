// The composed scenes. Each shows one family of materials, or one use of several, in a picture that a person can judge.
// The golden frames are drawn from them.
#pragma once

#include "scenes/base_scene.h"

namespace kardeno::scenes {

struct ComposedScene {
    const char* name;
    void (*build)(Scene& scene);
    Scene::Settings settings = {};

    std::unique_ptr<Scene> make(i32 bitsPerPixel) const;
};

inline constexpr i32 composedSceneCount = 12;
extern const ComposedScene composedScenes[composedSceneCount];

// These show unlit rows.
void buildFlatFallbacks(Scene& scene);
void buildPlainAndTranslucent(Scene& scene);
void buildTrueColourRoom(Scene& scene);
void buildPalettisedRoom(Scene& scene);
void buildUnlitBlends(Scene& scene);
void buildBillboards(Scene& scene);

// These show colour-keyed rows, lit rows and the two rows that interpolate colours.
void buildColourKeyed(Scene& scene);
void buildLitPlain(Scene& scene);
void buildLitTextured(Scene& scene);
void buildLitBlends(Scene& scene);
void buildSpareRows(Scene& scene);

// This one shows all rows, in a rectangle inside the frame, with faces cut by all six planes.
void buildEverything(Scene& scene);

} // namespace kardeno::scenes
