#include "tests/reference/reference_materials.h"

#include "tests/reference/reference_arithmetic.h"

#include <algorithm>

namespace kardeno::reference {

namespace {

u32 flagWord(const SceneMaterial& material)
{
    u32 flags = 0;
    if (material.textureMap) flags |= 1;
    if (material.transparency != 0) flags |= material.transparency == 50 ? 4 : 8;
    if (material.shadingMode == 1) flags |= 2;
    if (material.shadingMode == 2) flags |= 64;
    if (material.shadingMode == 10) flags |= 256;
    if (material.shadingMode == 11) flags |= 512;
    return flags;
}

Row litRow(u32 flags)
{
    switch (flags) {
    case 0: return Row::litPlain;
    case 1: return Row::litTextured;
    case 3: return Row::litTexturedShade1;
    case 4: return Row::litTranslucent;
    case 5: return Row::litTexturedTranslucent;
    case 7: return Row::litTexturedShade1Translucent;
    case 65: return Row::litTexturedShade2;
    default: return Row::fallbackFlat;
    }
}

Row unlitRow(u32 flags)
{
    switch (flags) {
    case 0: return Row::unlitPlain;
    case 1: return Row::unlitTextured;
    case 3: return Row::unlitTexturedShade1;
    case 4: return Row::unlitTranslucent;
    case 5: return Row::unlitTexturedTranslucent;
    case 65: return Row::unlitTexturedShade2;
    case 257: return Row::unlitTexturedShade10;
    case 513: return Row::unlitTexturedShade11;
    default: return Row::fallbackFlat;
    }
}

} // namespace

const char* nameOf(Row row)
{
    static const char* const names[rowCount] = {"FallbackFlat",
                                                "FallbackBlend",
                                                "UnlitPlain",
                                                "UnlitTextured",
                                                "UnlitTexturedShade1",
                                                "UnlitTranslucent",
                                                "UnlitTexturedTranslucent",
                                                "UnlitTexturedShade2",
                                                "UnlitTexturedShade10",
                                                "UnlitTexturedShade11",
                                                "UnlitPalettised",
                                                "LitPlain",
                                                "LitTextured",
                                                "LitTexturedShade1",
                                                "LitTranslucent",
                                                "LitTexturedTranslucent",
                                                "LitTexturedShade1Translucent",
                                                "LitTexturedShade2",
                                                "SpareA",
                                                "SpareB"};
    return names[static_cast<i32>(row)];
}

void Materials::initialise(i32 bitsPerPixel)
{
    known.clear();
    if (format == bitsPerPixel && !redScale.empty()) return;
    format = bitsPerPixel;
    redScale.assign(65536, 0);
    greenScale.assign(65536, 0);
    blueScale.assign(65536, 0);
    const f64 k = 0.00392156862745098;
    for (i32 i = 0; i < 256; ++i) {
        for (i32 v = 0; v < 256; ++v) {
            const size_t entry = static_cast<size_t>(i * 256 + v);
            blueScale[entry] = static_cast<u32>(truncated((v & 0x1f) * i * k));
            if (bitsPerPixel == 16) {
                greenScale[entry] = static_cast<u32>(truncated((((v & 0x3f) * i) << 5) * k)) & 0x7e0;
                redScale[entry] = static_cast<u32>(truncated((((v & 0xf8) * i) << 8) * k)) & 0xf800;
            } else {
                greenScale[entry] = static_cast<u32>(truncated((((v & 0x1f) * i) << 5) * k)) & 0x3e0;
                redScale[entry] = static_cast<u32>(truncated((((v & 0x7c) * i) << 8) * k)) & 0x7c00;
            }
        }
    }
}

void Materials::add(const SceneMaterial* material)
{
    known[material] = Material{};
}

void Materials::release(const SceneMaterial* material)
{
    known.erase(material);
}

void Materials::update(const SceneMaterial* material)
{
    Material& own = known.at(material);
    if (!own.ramp.empty()) fillRamp(*material, own);
}

void Materials::setFlags(const SceneMaterial* material)
{
    known.at(material).flags = flagWord(*material);
}

void Materials::setRenderState(const SceneMaterial* material, i32 state)
{
    Material& own = known.at(material);
    own.flags = flagWord(*material);
    const bool palettised = material->textureMap && material->textureMap->image->bitsPerTexel == 8;
    const auto needRamp = [&] {
        if (!own.ramp.empty()) return;
        own.ramp.assign(own.flags & 1 ? 16384 : 64, 0);
        fillRamp(*material, own);
    };

    if (state == 1 || state == 2) {
        if (material->textureMap && !palettised) {
            own.row = Row::fallbackFlat;
        } else {
            needRamp();
            own.row = litRow(own.flags);
        }
    } else if (state != 0) {
        own.row = own.flags & 0x1e ? Row::fallbackBlend : Row::fallbackFlat;
    } else if (palettised) {
        needRamp();
        own.row = own.flags == 1 ? Row::unlitPalettised : Row::fallbackFlat;
    } else {
        own.row = unlitRow(own.flags);
    }
    own.hasRow = true;
    rowStates[static_cast<size_t>(own.row)] = state;
}

i32 Materials::renderState(const SceneMaterial* material) const
{
    return stateOf(of(material).row);
}

void Materials::pointAt(const SceneMaterial* material, Row row)
{
    Material& own = known.at(material);
    own.row = row;
    own.hasRow = true;
}

u32 Materials::rampEntry(i32 red, i32 green, i32 blue) const
{
    const u32 r = static_cast<u32>(std::clamp(red, 0, 255));
    const u32 g = static_cast<u32>(std::clamp(green, 0, 255));
    const u32 b = static_cast<u32>(std::clamp(blue, 0, 255));
    const u32 pixel =
        format == 16 ? (r & 0xf8) << 8 | (g & 0xfc) << 3 | b >> 3 : (r & 0xf8) << 7 | (g & 0xf8) << 2 | b >> 3;
    return pixel << 16;
}

// Which of the two ramps is filled is decided by the flag word of this moment; a ramp keeps the size it was made with.
void Materials::fillRamp(const SceneMaterial& material, Material& own) const
{
    const i32 highlightLevels = 32 - wrappedProduct(material.shininess, 28) / 100;
    const i32 firstHighlight = highlightLevels > 0 ? 64 - highlightLevels : 64;
    const i32 step =
        highlightLevels > 0 ? wrappedProduct(material.specularLevel, 256) / wrappedProduct(highlightLevels, 100) : 0;

    for (i32 level = 0; level < 64; ++level) {
        const bool highlighted = level >= firstHighlight;
        const i32 rise = highlighted ? wrappedProduct(level - firstHighlight, step) : 0;
        const auto highlight = [&](u8 specular) { return wrappedProduct(rise, specular) >> 8; };
        const i32 red = highlight(material.specularColour.red);
        const i32 green = highlight(material.specularColour.green);
        const i32 blue = highlight(material.specularColour.blue);
        const MaterialColour& tint = material.tintColour;

        if (!(own.flags & 1)) {
            const auto base = [&](u8 diffuse, u8 tinting, u8 ambient) {
                return (((level * diffuse * tinting * 3) >> 14) + ambient) >> 2;
            };
            const MaterialColour& diffuse = material.diffuseColour;
            const MaterialColour& ambient = material.ambientColour;
            own.ramp[static_cast<size_t>(level)] =
                rampEntry(wrappedSum(base(diffuse.red, tint.red, ambient.red), red),
                          wrappedSum(base(diffuse.green, tint.green, ambient.green), green),
                          wrappedSum(base(diffuse.blue, tint.blue, ambient.blue), blue));
            continue;
        }
        for (i32 index = 0; index < 256; ++index) {
            const u8* const colour = material.textureMap->palette + 4 * index; // blue, green, red
            const auto base = [&](u8 tinting, u8 palette) { return (((level * tinting) >> 8) * palette) >> 6; };
            own.ramp[static_cast<size_t>(level * 256 + index)] =
                rampEntry(wrappedSum(base(tint.red, colour[2]), red), wrappedSum(base(tint.green, colour[1]), green),
                          wrappedSum(base(tint.blue, colour[0]), blue));
        }
    }
}

} // namespace kardeno::reference
