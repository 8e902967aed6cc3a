#include "scenes/composed_scene.h"

namespace kardeno::scenes {

const ComposedScene composedScenes[composedSceneCount] = {
    {"flat_fallbacks", buildFlatFallbacks},
    {"plain_and_translucent", buildPlainAndTranslucent},
    {"true_colour_room", buildTrueColourRoom},
    {"palettised_room", buildPalettisedRoom},
    {"colour_keyed", buildColourKeyed},
    {"unlit_blends", buildUnlitBlends},
    {"billboards", buildBillboards},
    {"lit_plain", buildLitPlain},
    {"lit_textured", buildLitTextured},
    {"lit_blends", buildLitBlends},
    {"spare_rows", buildSpareRows},
    {"everything", buildEverything, {.left = 20.5f, .top = 12.75f, .right = 243.25f, .bottom = 181.5f, .farZ = 24}},
};

std::unique_ptr<Scene> ComposedScene::make(i32 bitsPerPixel) const
{
    Scene::Settings withFormat = settings;
    withFormat.bitsPerPixel = bitsPerPixel;
    auto scene = std::make_unique<Scene>(withFormat);
    build(*scene);
    return scene;
}

} // namespace kardeno::scenes
