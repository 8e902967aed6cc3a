#include "interface/materials.h"

#include "interface/host_context.h"
#include "interface/shade_ramp.h"

namespace kardeno {

namespace {

u32 flagWordOf(const SceneMaterial& material)
{
    u32 flags = 0;
    if (material.textureMap) flags |= flagTextured;
    if (material.transparency) flags |= material.transparency == 50 ? flagHalfTransparent : flagOtherTransparency;
    switch (material.shadingMode) {
    case 1: flags |= flagShade1; break;
    case 2: flags |= flagShade2; break;
    case 10: flags |= flagShade10; break;
    case 11: flags |= flagShade11; break;
    default: break;
    }
    return flags;
}

// A selection compares the whole flag word: a combination that is not listed falls to FallbackFlat.

ModeRow::Index litRow(u32 flags)
{
    switch (flags) {
    case 0: return ModeRow::LitPlain;
    case flagTextured: return ModeRow::LitTextured;
    case flagTextured | flagShade1: return ModeRow::LitTexturedShade1;
    case flagHalfTransparent: return ModeRow::LitTranslucent;
    case flagTextured | flagHalfTransparent: return ModeRow::LitTexturedTranslucent;
    case flagTextured | flagShade1 | flagHalfTransparent: return ModeRow::LitTexturedShade1Translucent;
    case flagTextured | flagShade2: return ModeRow::LitTexturedShade2;
    default: return ModeRow::FallbackFlat;
    }
}

ModeRow::Index unlitRow(u32 flags)
{
    switch (flags) {
    case 0: return ModeRow::UnlitPlain;
    case flagTextured: return ModeRow::UnlitTextured;
    case flagTextured | flagShade1: return ModeRow::UnlitTexturedShade1;
    case flagHalfTransparent: return ModeRow::UnlitTranslucent;
    case flagTextured | flagHalfTransparent: return ModeRow::UnlitTexturedTranslucent;
    case flagTextured | flagShade2: return ModeRow::UnlitTexturedShade2;
    case flagTextured | flagShade10: return ModeRow::UnlitTexturedShade10;
    case flagTextured | flagShade11: return ModeRow::UnlitTexturedShade11;
    default: return ModeRow::FallbackFlat;
    }
}

// Intended: only the low byte counts, of which flagTextured and flagShade2 are not looked at.
ModeRow::Index otherRow(u32 flags)
{
    return flags & 0x1e ? ModeRow::FallbackBlend : ModeRow::FallbackFlat;
}

bool hasRamp(SceneMaterial& material)
{
    return material.renderPrivate->shadeRamp || buildShadeRamp(material);
}

// What a state and a flag word ask for.
struct Selection {
    ModeRow::Index row;
    bool needsRamp;
};

Selection select(const SceneMaterial& material, i32 state)
{
    const u32 flags = material.materialFlags->flags;
    const bool textured = material.textureMap;
    const bool palettised = textured && material.textureMap->image->bitsPerTexel == 8;

    if (state == 1 || state == 2) {
        if (textured && !palettised) return {ModeRow::FallbackFlat, false};
        return {litRow(flags), true};
    }
    if (state != 0) return {otherRow(flags), false};
    if (palettised) return {flags == flagTextured ? ModeRow::UnlitPalettised : ModeRow::FallbackFlat, true};
    return {unlitRow(flags), false};
}

} // namespace

bool addMaterial(SceneMaterial& material)
{
    material.renderPrivate = static_cast<MaterialPrivate*>(hostContext->alloc(1, sizeof(MaterialPrivate)));
    return material.renderPrivate;
}

void releaseMaterial(const SceneMaterial& material)
{
    if (!material.renderPrivate) return;
    if (material.renderPrivate->shadeRamp) hostContext->free(material.renderPrivate->shadeRamp);
    hostContext->free(material.renderPrivate);
}

void updateMaterial(const SceneMaterial& material)
{
    if (material.renderPrivate && material.renderPrivate->shadeRamp) fillShadeRamp(material);
}

void setMaterialFlags(SceneMaterial& material)
{
    material.materialFlags->flags = flagWordOf(material);
}

bool setMaterialState(SceneMaterial& material, i32 state)
{
    setMaterialFlags(material);
    if (!material.renderPrivate) return false;

    const Selection selection = select(material, state);
    if (selection.needsRamp && !hasRamp(material)) return false;

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
