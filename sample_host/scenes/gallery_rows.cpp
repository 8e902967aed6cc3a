#include "sample_host/scenes/gallery_rows.h"

#include "sample_host/scenes/own_textures.h"

namespace sample_host {

std::vector<GalleryRow> galleryRows()
{
    const MaterialMode unlit{TextureKind::trueColour, 0}, palettised{TextureKind::palettised, 0};
    const MaterialMode lit{TextureKind::palettised, 1}, other{TextureKind::trueColour, 3};
    constexpr i32 half = 50;

    const MaterialRecipe paint{.diffuse = {52, 120, 214}};
    // With a highlight, which only lit rows have.
    const MaterialRecipe gloss{
        .diffuse = {255, 116, 56}, .specular = {255, 255, 255}, .shininess = 85, .specularLevel = 80};
    MaterialRecipe glass = gloss;
    glass.diffuse = {60, 200, 120};
    glass.transparency = half;

    const auto mapped = [](SharedImage image, i32 shadingMode = 0, i32 transparency = 0) {
        return MaterialRecipe{.specular = {255, 255, 255},
                              .shininess = 85,
                              .specularLevel = 60,
                              .transparency = transparency,
                              .shadingMode = shadingMode,
                              .image = std::move(image)};
    };
    const auto colours = [](SharedImage image) {
        return MaterialRecipe{.image = std::move(image), .vertexColours = true};
    };
    const SharedImage box = crate(), panes = leadedGlass(), bars = lattice(), rays = rings();
    const SharedImage spark = glow({220, 130, 40});
    constexpr GalleryShape sprites = GalleryShape::sprites;

    // clang-format off
    return {
        {"FallbackFlat", "each face in a random colour", {.transparency = 8}, unlit},
        {"FallbackBlend", "the same, half transparent", {.transparency = half}, other},
        {"UnlitPlain", "one colour", paint, unlit},
        {"UnlitTextured", "16-bit map", mapped(box), unlit},
        {"UnlitTexturedShade1", "16-bit map, colour key", mapped(bars, 1), unlit},
        {"UnlitTranslucent", "one colour, half transparent", {.diffuse = paint.diffuse, .transparency = half}, unlit},
        {"UnlitTexturedTranslucent", "16-bit map, half transparent", mapped(panes, 0, half), unlit},
        {"UnlitTexturedShade2", "16-bit map, added", mapped(rays, 2), unlit},
        {"UnlitTexturedShade10", "billboard over everything", mapped(spark, 10), unlit, sprites},
        {"UnlitTexturedShade11", "billboard, can be hidden", mapped(spark, 11), unlit, sprites},
        {"UnlitPalettised", "256-colour map", mapped(box), palettised},
        {"LitPlain", "smooth shading, highlight", gloss, lit},
        {"LitTextured", "256-colour map, lit", mapped(box), lit},
        {"LitTexturedShade1", "the same, colour key", mapped(bars, 1), lit},
        {"LitTranslucent", "shaded, half transparent", glass, lit},
        {"LitTexturedTranslucent", "lit map, half transparent", mapped(panes, 0, half), lit},
        {"LitTexturedShade1Translucent", "the same, colour key", mapped(bars, 1, half), lit},
        {"LitTexturedShade2", "lit map, added", mapped(rays, 2), lit},
        {"SpareA", "a colour at each vertex", colours(nullptr), unlit},
        {"SpareB", "the same over a 16-bit map", colours(marble()), unlit},
    };
    // clang-format on
}

} // namespace sample_host
