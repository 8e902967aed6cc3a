#include "checked/material_checks.h"

#include "checked/numbers.h"
#include "checked/registry.h"

namespace kardeno::checked {

namespace {

// clang-format off
constexpr RowNeeds rowNeeds[renderModeRowCount] = {
    // texels  ramp   light  shades billboard
    {0,        false, false, false, false}, // FallbackFlat
    {0,        false, false, false, false}, // FallbackBlend
    {0,        false, false, false, false}, // UnlitPlain
    {16,       false, false, false, false}, // UnlitTextured
    {16,       false, false, false, false}, // UnlitTexturedShade1
    {0,        false, false, false, false}, // UnlitTranslucent
    {16,       false, false, false, false}, // UnlitTexturedTranslucent
    {16,       false, false, false, false}, // UnlitTexturedShade2
    {16,       false, false, false, true},  // UnlitTexturedShade10
    {16,       false, false, false, true},  // UnlitTexturedShade11
    {8,        true,  false, false, false}, // UnlitPalettised
    {0,        true,  true,  true,  false}, // LitPlain
    {8,        true,  true,  true,  false}, // LitTextured
    {8,        true,  true,  true,  false}, // LitTexturedShade1
    {0,        true,  true,  true,  false}, // LitTranslucent
    {8,        true,  true,  true,  false}, // LitTexturedTranslucent
    {8,        true,  true,  true,  false}, // LitTexturedShade1Translucent
    {8,        true,  true,  true,  false}, // LitTexturedShade2
    {0,        false, false, true,  false}, // SpareA
    {16,       false, false, true,  false}, // SpareB
};
// clang-format on

constexpr u32 plainRamp = rampLevels;
constexpr u32 texturedRamp = rampLevels * paletteSize;

bool isPalettised(const SceneMaterial& material)
{
    return material.textureMap && material.textureMap->image->bitsPerTexel == bitsPerTexelPalettised;
}

bool isPowerOfTwo(f64 value)
{
    for (f64 power = 1; power <= 65536; power *= 2) {
        if (value == power) return true;
    }
    return false;
}

// Whether the renderer stays within the image.
bool lookAtImage(const TextureImage& image, const Place& place)
{
    const f64 width = image.width, height = image.height;
    if (image.bitsPerTexel != bitsPerTexelPalettised && image.bitsPerTexel != bitsPerTexelPixels)
        tell(Mistake::texelBits, place, "%u", image.bitsPerTexel);
    if (!isPowerOfTwo(width) || !isPowerOfTwo(height)) {
        tell(Mistake::mapSize, place, "width %g, height %g", width, height);
        return true;
    }
    const bool isSquare = width == 256 && height == 256;
    const f64 texels = width * height;
    if (image.is256x256 ? texels < 65536 : image.indexMask >= texels) {
        tell(Mistake::mapBeyondEnd, place, "width %g, height %g, indexMask %u, is256x256 %u", width, height,
             image.indexMask, image.is256x256);
        return false;
    }
    if (image.is256x256 && isSquare) return true;
    if (image.is256x256 || image.indexMask != texels - 1 || image.rowShift > 16
        || width != static_cast<f64>(1u << image.rowShift)) {
        tell(Mistake::mapSize, place, "width %g, height %g, indexMask %u, rowShift %u, is256x256 %u", width, height,
             image.indexMask, image.rowShift, image.is256x256);
    }
    if (isSquare) tell(Mistake::mapUnmarked, place);
    return true;
}

bool hasImage(const SceneMaterial& material, const Place& place)
{
    if (!material.textureMap || material.textureMap->image) return true;
    tell(Mistake::missingImage, place);
    return false;
}

bool hasPalette(const SceneMaterial& material, const Place& place)
{
    if (material.textureMap->palette) return true;
    tell(Mistake::missingPalette, place);
    return false;
}

bool isLitState(i32 state)
{
    return state == stateLit || state == stateLitToo;
}

// Why a state from 0 to 2 ended in the flat fallback.
const char* reasonOf(const SceneMaterial& material, i32 state)
{
    const bool lit = isLitState(state);
    if (material.transparency != transparencyNone && material.transparency != transparencyHalf)
        return "transparency is neither 0 nor 50";
    switch (material.shadingMode) {
    case shadingColourKey:
    case shadingAdditive:
        if (!material.textureMap) return "this shadingMode needs a texture map";
        if (!lit && isPalettised(material)) return "a palettised map has this shadingMode in states 1 and 2 only";
        break;
    case shadingBillboardOverAll:
    case shadingBillboard:
        if (lit) return "a billboard has a row in state 0 only";
        if (!material.textureMap || isPalettised(material)) return "a billboard needs a 16-bit map";
        break;
    default:
        if (!lit && isPalettised(material)) return "a palettised map is half transparent in states 1 and 2 only";
        break;
    }
    return "this shadingMode cannot be half transparent here";
}

} // namespace

const RowNeeds& needsOf(RenderModeRow row)
{
    return rowNeeds[row];
}

Place at(const Place& place, const SceneMaterial& material)
{
    Place result = place;
    result.material = &material;
    result.materialNumber = numberOf(material);
    result.about = &material;
    return result;
}

bool isAdded(const SceneMaterial& material, const Place& place)
{
    const Standing standing = standingOf(material);
    if (standing == Standing::good) return true;
    tell(standing == Standing::released ? Mistake::materialReleased : Mistake::materialNotAdded, place);
    return false;
}

bool mayChooseState(const SceneMaterial& material, i32 state, const Place& place)
{
    if (!material.materialFlags) {
        tell(Mistake::missingFlagBlock, place);
        return false;
    }
    if (!isAdded(material, place) || !hasImage(material, place)) return false;
    const bool palettised = isPalettised(material);
    if (material.textureMap && !lookAtImage(*material.textureMap->image, place)) return false;
    const bool needsRamp = isLitState(state) ? palettised || !material.textureMap : state == stateUnlit && palettised;
    if (!needsRamp) return true;
    if (!material.renderPrivate->shadeRamp) return !palettised || hasPalette(material, place);
    if (palettised && entriesOfRamp(material.renderPrivate->shadeRamp) == plainRamp) {
        tell(Mistake::shortRamp, place);
        return false;
    }
    return true;
}

void lookAtChoice(const SceneMaterial& material, i32 state, bool hadRamp, const Place& place)
{
    if (material.renderPrivate->shadeRamp && !hadRamp)
        rememberRamp(material.renderPrivate->shadeRamp,
                     material.materialFlags->flags & flagTextured ? texturedRamp : plainRamp);
    if (material.renderPrivate->mode != &RenderModeTable[rowFallbackFlat]) {
        if (material.renderPrivate->shadeRamp && (material.shininess < 0 || material.shininess > 100))
            tell(Mistake::shininessRange, place, "%d", material.shininess);
        return;
    }
    if (isLitState(state) && material.textureMap && !isPalettised(material))
        tell(Mistake::litPixels, place);
    else if (isLitState(state) || state == stateUnlit)
        tell(Mistake::fallbackRow, place, "state %d, flag word %u: %s", state, material.materialFlags->flags,
             reasonOf(material, state));
}

bool mayRefillRamp(const SceneMaterial& material, const Place& place)
{
    if (!isAdded(material, place)) return false;
    const RampEntry* const ramp = material.renderPrivate->shadeRamp;
    if (!ramp) return true;
    if (!material.materialFlags) {
        tell(Mistake::missingFlagBlock, place);
        return false;
    }
    if (!(material.materialFlags->flags & flagTextured) || !material.textureMap) return true;
    if (entriesOfRamp(ramp) == plainRamp) {
        tell(Mistake::shortRamp, place);
        return false;
    }
    return hasPalette(material, place);
}

bool hasRow(const SceneMaterial& material, const Place& place, RenderModeRow* row)
{
    if (!isAdded(material, place)) return false;
    const RenderMode* const mode = material.renderPrivate->mode;
    if (!mode) {
        tell(Mistake::missingState, place);
        return false;
    }
    const uintptr_t distance = reinterpret_cast<uintptr_t>(mode) - reinterpret_cast<uintptr_t>(RenderModeTable);
    if (distance % sizeof(RenderMode) || distance / sizeof(RenderMode) >= renderModeRowCount) {
        tell(Mistake::missingRow, place);
        return false;
    }
    *row = static_cast<RenderModeRow>(distance / sizeof(RenderMode));
    return true;
}

bool mayBeDrawnWith(const SceneMaterial& material, const Place& place, RenderModeRow* row)
{
    if (!hasRow(material, place, row)) return false;
    const RowNeeds& needs = needsOf(*row);
    if (needs.texelBits) {
        if (!material.textureMap || !material.textureMap->image) {
            tell(Mistake::missingImage, place);
            return false;
        }
        const TextureImage& image = *material.textureMap->image;
        const u32 bits = image.bitsPerTexel == bitsPerTexelPalettised ? 8 : 16;
        if (bits != needs.texelBits) {
            tell(Mistake::mapOfOtherKind, place, "bitsPerTexel %u", image.bitsPerTexel);
            return false;
        }
        if (!lookAtImage(image, place)) return false;
    }
    if (!needs.ramp) return true;
    const RampEntry* const ramp = material.renderPrivate->shadeRamp;
    if (!ramp) {
        tell(Mistake::missingRamp, place);
        return false;
    }
    if (needs.texelBits && entriesOfRamp(ramp) == plainRamp) {
        tell(Mistake::shortRamp, place);
        return false;
    }
    return true;
}

} // namespace kardeno::checked
