#include "sample_host/host/material.h"

#include "sample_host/host/failure.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace sample_host {

namespace {

MaterialColour record(const Engine& engine, Colour colour)
{
    return {colour.red, colour.green, colour.blue, 0, packedPixel(engine.format, colour)};
}

// The pixels of a 16-bit map. Hidden ones take the key, and visible ones that have the key's very value step aside.
std::vector<u16> pixels16(const Image& image, PixelFormat format, u16 key)
{
    std::vector<u16> pixels;
    pixels.reserve(image.pixelCount());
    for (std::size_t i = 0; i < image.pixelCount(); ++i) {
        u16 pixel = packedPixel(format, image.colour(i));
        if (image.hidden(i))
            pixel = key;
        else if (pixel == key)
            pixel ^= 1;
        pixels.push_back(pixel);
    }
    return pixels;
}

// In the one row that is colour-keyed, lit and half transparent the hidden index is fixed.
constexpr u8 hiddenIndexOfHalfBlend = 0;

} // namespace

MaterialMode drawableMode(const MaterialRecipe& recipe, MaterialMode wanted)
{
    const bool billboard = recipe.shadingMode == 10 || recipe.shadingMode == 11;
    if (recipe.vertexColours || billboard) return {TextureKind::trueColour, 0};
    if (recipe.glows) wanted.renderState = 0;
    const bool lit = wanted.renderState == 1 || wanted.renderState == 2;
    if (lit)
        wanted.textures = TextureKind::palettised;
    else if (recipe.transparency != 0 || recipe.shadingMode != 0)
        wanted.textures = TextureKind::trueColour;
    return wanted;
}

Material::Material(const Engine& engine, const MaterialRecipe& recipe, const MaterialMode& wanted)
    : SceneMaterial{}, name(recipe.name), engine_(engine)
{
    if (recipe.vertexColours && (recipe.transparency != 0 || recipe.shadingMode != 0))
        fail("a material with vertex colours must be opaque and have no shading mode");
    const MaterialMode mode = drawableMode(recipe, wanted);
    ambientColour = record(engine, recipe.ambient);
    diffuseColour = record(engine, recipe.diffuse);
    specularColour = record(engine, recipe.specular);
    tintColour = record(engine, recipe.tint);
    shininess = recipe.shininess;
    // Unlit palettised textures show the brightest level of the ramp, and no highlight should be in it.
    specularLevel = mode.renderState == 0 ? 0 : recipe.specularLevel;
    transparency = recipe.transparency;
    shadingMode = recipe.shadingMode;
    materialFlags = &flagWords_;
    if (recipe.image) makeTexture(*recipe.image, mode.textures);

    const RendererTable& renderer = engine_.renderer;
    if (textureMap) renderer.addMap(textureMap);
    if (!renderer.addMaterial(this)) failForMemory();
    // The render state comes last: it looks at everything above.
    if (!renderer.setMaterialRenderState(this, mode.renderState)) {
        renderer.releaseMaterial(this);
        failForMemory();
    }
    if (recipe.vertexColours) chooseSpareRow();
}

Material::~Material()
{
    engine_.renderer.releaseMaterial(this);
    if (textureMap) engine_.renderer.releaseMap(textureMap);
}

// Moves on to the row of vertex colours: from UnlitPlain to SpareA, from UnlitTextured to SpareB. The row's state tells
// the renderer that objects with such a material are to be lit.
void Material::chooseSpareRow()
{
    static_assert(rowSpareA - rowUnlitPlain == rowSpareB - rowUnlitTextured);
    renderPrivate->mode += rowSpareA - rowUnlitPlain;
    renderPrivate->mode->state = 1;
}

// Rows lie one after another in memory, and an unlit plain material shows where one of them lies.
RenderModeRow Material::row() const
{
    const Material plain(engine_, {}, {});
    return RenderModeRow(rowUnlitPlain + (renderPrivate->mode - plain.renderPrivate->mode));
}

void Material::makeTexture(const Image& image, TextureKind kind)
{
    const u32 width = u32(image.width), height = u32(image.height);
    if (!std::has_single_bit(width) || !std::has_single_bit(height))
        fail("the sides of a texture are not powers of two");

    TextureImage header{};
    header.bitsPerTexel = kind == TextureKind::palettised ? 8 : 16;
    header.is256x256 = width == 256 && height == 256;
    header.indexMask = width * height - 1;
    header.rowShift = u32(std::countr_zero(width));
    header.width = f32(width);
    header.height = f32(height);

    const std::size_t texelBytes = image.pixelCount() * header.bitsPerTexel / 8;
    imageRecord_.resize((sizeof header + texelBytes + 3) / 4);
    u8* record = reinterpret_cast<u8*>(imageRecord_.data());
    std::memcpy(record, &header, sizeof header);

    map_.transparentIndex = hiddenIndex;
    map_.transparentColour = packedPixel(engine_.format, {255, 0, 255});
    if (kind == TextureKind::palettised) {
        const PalettisedImage palettised = quantised(image);
        std::copy(palettised.indices.begin(), palettised.indices.end(), record + sizeof header);
        palette_ = palettised.palette;
        map_.palette = palette_.data();
        if (shadingMode == 1 && transparency == 50)
            swapHiddenIndex({record + sizeof header, image.pixelCount()}, hiddenIndexOfHalfBlend);
    } else {
        const std::vector<u16> pixels = pixels16(image, engine_.format, map_.transparentColour);
        std::memcpy(record + sizeof header, pixels.data(), texelBytes);
    }
    map_.image = reinterpret_cast<TextureImage*>(imageRecord_.data());
    textureMap = &map_;
}

// Gives the hidden texels another index, and theirs to those that had it.
void Material::swapHiddenIndex(std::span<u8> indices, u8 index)
{
    for (u8& texel : indices) texel = texel == index ? hiddenIndex : texel == hiddenIndex ? index : texel;
    std::swap_ranges(&palette_[4u * index], &palette_[4u * index] + 4, &palette_[4u * hiddenIndex]);
    map_.transparentIndex = index;
}

} // namespace sample_host
