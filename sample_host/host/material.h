// Materials: how a surface is described, and the renderer's record made of it.
#pragma once

#include "sample_host/host/engine.h"
#include "sample_host/host/recipe_changes.h"
#include "sample_host/pictures/palette.h"

#include <memory>
#include <span>
#include <string>

namespace sample_host {

// What a scene says about a surface, without regard to pixel formats.
struct MaterialRecipe {
    std::string name;
    Colour ambient{40, 40, 40};
    Colour diffuse{200, 200, 200};
    Colour specular{0, 0, 0};
    Colour tint{255, 255, 255};
    i32 shininess = 0;                  // percent: the higher, the smaller the highlight
    i32 specularLevel = 0;              // percent
    i32 transparency = 0;               // 50: half transparent
    i32 shadingMode = 0;                // 1: hidden texels stay undrawn; 2, 10 and 11: added to what is behind
    std::shared_ptr<const Image> image; // or none; its sides are powers of two
    bool glows = false;                 // unlit in a lit picture too
    bool vertexColours = false;         // lit in colours; only if opaque and without shading mode
};

enum class TextureKind { trueColour, palettised };

// The ways of drawing that a picture chooses for all of its materials. The changes are made in the recipes of a scene
// before it makes materials of them.
struct MaterialMode {
    TextureKind textures = TextureKind::trueColour;
    i32 renderState = 0; // 0: unlit; 1 and 2: lit; 3: flat colours, whatever the material is
    RecipeChanges changes{};
};

// The wanted mode or, where the renderer cannot draw the material in that, the nearest one in which it can. Lit maps
// are always palettised; unlit maps can be so only where the material is opaque and has no shading mode.
MaterialMode drawableMode(const MaterialRecipe& recipe, MaterialMode wanted);

// The renderer's record is the base class, so that a pointer to the record leads to the material. The members are what
// the record points to.
class Material : public SceneMaterial {
public:
    // Announces the material to the renderer, and its texture map. Throws when there is no memory.
    Material(const Engine& engine, const MaterialRecipe& recipe, const MaterialMode& mode);
    ~Material();
    Material(const Material&) = delete;
    Material& operator=(const Material&) = delete;

    // The row of the renderer's table that draws it.
    RenderModeRow row() const;

    const std::string name; // for people

private:
    void makeTexture(const Image& image, TextureKind kind);
    void chooseSpareRow();
    void swapHiddenIndex(std::span<u8> indices, u8 index);

    const Engine& engine_;
    MaterialFlags flagWords_{};
    TextureMap map_{};
    std::array<u8, 1024> palette_{};
    std::vector<u32> imageRecord_; // a TextureImage with its texels behind it
};

} // namespace sample_host
