#include "interface/render_mode_table.h"

#include "geometry/billboards.h"
#include "geometry/emission.h"
#include "raster/colour_fills.h"
#include "raster/flat_fills.h"
#include "raster/interpolated_fills.h"
#include "raster/shaded_fills.h"
#include "raster/short_runs.h"
#include "raster/unlit_textures.h"

namespace kardeno {

namespace {

// The routines of a row.
struct RowRoutines {
    EmitRoutine emit;
    const ClipperFamily& clip;
    FillRoutine fill;
    RunFiller fillRun;
};

// The routines that draw faces of a vertex format. The clippers and the values that the filler interpolates follow from
// the format.
template <class Format, class TargetList, class Filler>
constexpr RowRoutines faces = {emit<Format, TargetList>, clippers<Format>, Filler::template fill<Format>,
                               Filler::template fillRun<Format>};

// The routines that draw billboards.
template <class TargetList, class Filler>
constexpr RowRoutines billboards = {emitBillboard<TargetList>, clippers<Textured>, Filler::template fill<Textured>,
                                    Filler::template fillRun<Textured>};

// A filler that interpolates nothing is the same routine for every format.
template <FillRoutine routine, RunFiller runRoutine>
struct OneColour {
    template <class>
    static constexpr FillRoutine fill = routine;
    template <class>
    static constexpr RunFiller fillRun = runRoutine;
};
using TextureCopy = TexturedSpans<textureCopy, ShortTextureCopy>;
using PalettisedCopy = TexturedSpans<palettisedCopy, ShortPalettisedCopy>;
using LitTexture = TexturedSpans<litTexture, ShortLitTexture>;
using ShadedCopy = PlainSpans<shadedCopy, ShortShadedCopy>;

using FaceColourLowByte = OneColour<fillFaceColourLowByte, fillRunFaceColourLowByte>;
using FaceColourHalfBlend = OneColour<fillFaceColourHalfBlend, fillRunFaceColourHalfBlend>;
using Diffuse = OneColour<fillDiffuse, fillRunDiffuse>;
using DiffuseHalfBlend = OneColour<fillDiffuseHalfBlend, fillRunDiffuseHalfBlend>;

struct Row {
    RenderModeRow place;
    RowRoutines routines;
};

// clang-format off
constexpr Row rows[] = {
    {rowFallbackFlat,                 faces<PositionsOnly, ResolvedPolygons, FaceColourLowByte>},
    {rowFallbackBlend,                faces<PositionsOnly, SortedPolygons, FaceColourHalfBlend>},
    {rowUnlitPlain,                   faces<PositionsOnly, ResolvedPolygons, Diffuse>},
    {rowUnlitTextured,                faces<Textured, ResolvedPolygons, TextureCopy>},
    {rowUnlitTexturedShade1,          faces<Textured, SortedPolygons, TexturedSpans<colourKeyedCopy>>},
    {rowUnlitTranslucent,             faces<PositionsOnly, SortedPolygons, DiffuseHalfBlend>},
    {rowUnlitTexturedTranslucent,     faces<Textured, SortedPolygons, TexturedSpans<textureHalfBlend>>},
    {rowUnlitTexturedShade2,          faces<Textured, SortedPolygons, TexturedSpans<textureAdd>>},
    {rowUnlitTexturedShade10,         billboards<LateSortedPolygons, TexturedOutline<wholeOutlineAdd>>},
    {rowUnlitTexturedShade11,         billboards<SortedPolygons, TexturedSpans<textureAdd>>},
    {rowUnlitPalettised,              faces<Textured, ResolvedPolygons, PalettisedCopy>},
    {rowLitPlain,                     faces<Lit, ResolvedPolygons, ShadedCopy>},
    {rowLitTextured,                  faces<LitTextured, ResolvedPolygons, LitTexture>},
    {rowLitTexturedShade1,            faces<LitTextured, SortedPolygons, TexturedSpans<colourKeyedLitTexture>>},
    {rowLitTranslucent,               faces<Lit, SortedPolygons, PlainSpans<shadedHalfBlend>>},
    {rowLitTexturedTranslucent,       faces<LitTextured, SortedPolygons, TexturedSpans<litTextureHalfBlend>>},
    {rowLitTexturedShade1Translucent, faces<LitTextured, SortedPolygons, TexturedSpans<colourKeyedLitHalfBlend>>},
    {rowLitTexturedShade2,            faces<LitTextured, SortedPolygons, TexturedSpans<litTextureAdd>>},
    {rowSpareA,                       faces<Coloured, ResolvedPolygons, PlainSpans<gouraudColour>>},
    {rowSpareB,                       faces<ColouredTextured, ResolvedPolygons, TexturedSpans<colourScaledTexture>>},
};
// clang-format on
static_assert(sizeof(rows) / sizeof(rows[0]) == renderModeRowCount);

} // namespace

void fillRenderModeTable()
{
    for (const Row& row : rows) {
        RenderMode& mode = RenderModeTable[row.place];
        mode.emit = row.routines.emit;
        mode.clip = row.routines.clip;
        mode.fill = row.routines.fill;
        RunFillers[row.place] = row.routines.fillRun;
    }
}

} // namespace kardeno
