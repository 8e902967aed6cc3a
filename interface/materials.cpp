#include "interface/materials.h"

#include "interface/render_mode_table.h"
#include "interface/shade_ramp.h"

namespace kardeno {

namespace {

u32 flagWordOf(const SceneMaterial& material)
{
    u32 flags = 0;
    if (material.textureMap) flags |= flagTextured;
    switch (material.transparency) {
    case transparencyNone: break;
    case transparencyHalf: flags |= flagHalfTransparent; break;
    default: flags |= flagOtherTransparency; break;
    }
    switch (material.shadingMode) {
    case shadingColourKey: flags |= flagShade1; break;
    case shadingAdditive: flags |= flagShade2; break;
    case shadingBillboardOverAll: flags |= flagShade10; break;
    case shadingBillboard: flags |= flagShade11; break;
    default: break;
    }
    return flags;
}

// Lit and unlit rows are selected by the whole flag word. A combination that is not listed gets FallbackFlat.

RenderModeRow litRow(u32 flags)
{
    switch (flags) {
    case 0: return rowLitPlain;
    case flagTextured: return rowLitTextured;
    case flagTextured | flagShade1: return rowLitTexturedShade1;
    case flagHalfTransparent: return rowLitTranslucent;
    case flagTextured | flagHalfTransparent: return rowLitTexturedTranslucent;
    case flagTextured | flagShade1 | flagHalfTransparent: return rowLitTexturedShade1Translucent;
    case flagTextured | flagShade2: return rowLitTexturedShade2;
    default: return rowFallbackFlat;
    }
}

RenderModeRow unlitRow(u32 flags)
{
    switch (flags) {
    case 0: return rowUnlitPlain;
    case flagTextured: return rowUnlitTextured;
    case flagTextured | flagShade1: return rowUnlitTexturedShade1;
    case flagHalfTransparent: return rowUnlitTranslucent;
    case flagTextured | flagHalfTransparent: return rowUnlitTexturedTranslucent;
    case flagTextured | flagShade2: return rowUnlitTexturedShade2;
    case flagTextured | flagShade10: return rowUnlitTexturedShade10;
    case flagTextured | flagShade11: return rowUnlitTexturedShade11;
    default: return rowFallbackFlat;
    }
}

// The row of the fallback states.
// Intended: only the low byte counts, of which flagTextured and flagShade2 are not looked at.
RenderModeRow otherRow(u32 flags)
{
    return flags & 0x1e ? rowFallbackBlend : rowFallbackFlat;
}

// Builds the material's shade ramp, unless it has one. Returns false when the host refused memory.
bool ensureRamp(HostContext& context, SceneMaterial& material)
{
    return material.renderPrivate->shadeRamp || buildShadeRamp(context, material);
}

// The row that a render state and a flag word select.
struct Selection {
    RenderModeRow row;
    bool needsRamp;
};

Selection select(const SceneMaterial& material, i32 state)
{
    const u32 flags = material.materialFlags->flags;
    const bool textured = material.textureMap;
    const bool palettised = textured && material.textureMap->image->bitsPerTexel == bitsPerTexelPalettised;

    if (state == stateLit || state == stateLitToo) {
        if (textured && !palettised) return {rowFallbackFlat, false};
        return {litRow(flags), true};
    }
    if (state != stateUnlit) return {otherRow(flags), false};
    if (palettised) return {flags == flagTextured ? rowUnlitPalettised : rowFallbackFlat, true};
    return {unlitRow(flags), false};
}

} // namespace

bool addMaterial(HostContext& context, SceneMaterial& material)
{
    material.renderPrivate = static_cast<MaterialPrivate*>(context.alloc(1, sizeof(MaterialPrivate)));
    return material.renderPrivate;
}

void releaseMaterial(HostContext& context, const SceneMaterial& material)
{
    if (!material.renderPrivate) return;
    if (material.renderPrivate->shadeRamp) context.free(material.renderPrivate->shadeRamp);
    context.free(material.renderPrivate);
}

void updateMaterial(HostContext& context, const SceneMaterial& material)
{
    if (material.renderPrivate && material.renderPrivate->shadeRamp) fillShadeRamp(context, material);
}

void setMaterialFlags(SceneMaterial& material)
{
    material.materialFlags->flags = flagWordOf(material);
}

bool setMaterialState(HostContext& context, SceneMaterial& material, i32 state)
{
    setMaterialFlags(material);
    if (!material.renderPrivate) return false;

    const Selection selection = select(material, state);
    if (selection.needsRamp && !ensureRamp(context, material)) return false;

    RenderMode& mode = RenderModeTable[selection.row];
    material.renderPrivate->mode = &mode;
    mode.state = state;
    return true;
}

i32 materialState(const SceneMaterial& material)
{
    if (!material.renderPrivate || !material.renderPrivate->mode) return 0;
    return modeOf(material).state;
}

} // namespace kardeno
