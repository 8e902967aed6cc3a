#include "interface/render_mode_table.h"

#include "geometry/billboards.h"
#include "geometry/emission.h"
#include "raster/colour_fills.h"
#include "raster/flat_fills.h"
#include "raster/shaded_fills.h"
#include "raster/unshaded_textures.h"

namespace kardeno {

constinit RenderMode RenderModeTable[ModeRow::count] = {};

namespace {

struct RowRoutines {
    ModeRow::Index row;
    EmitRoutine emit;
    const ClipperFamily& clip;
    FillRoutine fill;
};

template <const SpanRoutines& routines, class Key = NoKey>
constexpr FillRoutine unlit = fillTextured<UnlitValues, routines, Key>;

template <const SpanRoutines& routines, class Key = NoKey>
constexpr FillRoutine lit = fillTextured<LitValues, routines, Key>;

// clang-format off
constexpr RowRoutines rows[] = {
    {ModeRow::FallbackFlat,                 emit<PositionsOnly, ResolvedPolygons>,    clippers<PositionsOnly>,    fillFaceColourLowByte},
    {ModeRow::FallbackBlend,                emit<PositionsOnly, SortedPolygons>,      clippers<PositionsOnly>,    fillFaceColourHalfBlend},
    {ModeRow::UnlitPlain,                   emit<PositionsOnly, ResolvedPolygons>,    clippers<PositionsOnly>,    fillDiffuse},
    {ModeRow::UnlitTextured,                emit<Textured, ResolvedPolygons>,         clippers<Textured>,         unlit<textureCopy>},
    {ModeRow::UnlitTexturedShade1,          emit<Textured, SortedPolygons>,           clippers<Textured>,         unlit<colourKeyedCopy, ColourKey>},
    {ModeRow::UnlitTranslucent,             emit<PositionsOnly, SortedPolygons>,      clippers<PositionsOnly>,    fillDiffuseHalfBlend},
    {ModeRow::UnlitTexturedTranslucent,     emit<Textured, SortedPolygons>,           clippers<Textured>,         unlit<textureHalfBlend>},
    {ModeRow::UnlitTexturedShade2,          emit<Textured, SortedPolygons>,           clippers<Textured>,         unlit<textureAdd>},
    {ModeRow::UnlitTexturedShade10,         emitBillboard<LateSortedPolygons>,        clippers<Textured>,         fillWholeOutlineAdd},
    {ModeRow::UnlitTexturedShade11,         emitBillboard<SortedPolygons>,            clippers<Textured>,         unlit<textureAdd>},
    {ModeRow::UnlitPalettised,              emit<Textured, ResolvedPolygons>,         clippers<Textured>,         unlit<palettisedCopy>},
    {ModeRow::LitPlain,                     emit<Lit, ResolvedPolygons>,              clippers<Lit>,              fillShaded},
    {ModeRow::LitTextured,                  emit<LitTextured, ResolvedPolygons>,      clippers<LitTextured>,      lit<litTexture>},
    {ModeRow::LitTexturedShade1,            emit<LitTextured, SortedPolygons>,        clippers<LitTextured>,      lit<colourKeyedLitTexture, IndexKey>},
    {ModeRow::LitTranslucent,               emit<Lit, SortedPolygons>,                clippers<Lit>,              fillShadedHalfBlend},
    {ModeRow::LitTexturedTranslucent,       emit<LitTextured, SortedPolygons>,        clippers<LitTextured>,      lit<litTextureHalfBlend>},
    {ModeRow::LitTexturedShade1Translucent, emit<LitTextured, SortedPolygons>,        clippers<LitTextured>,      lit<colourKeyedLitHalfBlend>},
    {ModeRow::LitTexturedShade2,            emit<LitTextured, SortedPolygons>,        clippers<LitTextured>,      lit<litTextureAdd>},
    {ModeRow::SpareA,                       emit<Coloured, ResolvedPolygons>,         clippers<Coloured>,         fillGouraud},
    {ModeRow::SpareB,                       emit<ColouredTextured, ResolvedPolygons>, clippers<ColouredTextured>, fillTextured<ColouredTextureValues, colourScaledTexture>},
};
// clang-format on
static_assert(sizeof(rows) / sizeof(rows[0]) == ModeRow::count);

} // namespace

void fillRenderModeTable()
{
    for (const RowRoutines& routines : rows) {
        RenderMode& mode = RenderModeTable[routines.row];
        mode.emit = routines.emit;
        mode.clip = routines.clip;
        mode.fill = routines.fill;
    }
}

} // namespace kardeno
