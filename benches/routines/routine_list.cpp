#include "benches/routines/routine_list.h"

#include "benches/routines/bare_loops_sse2.h"
#include "benches/routines/plain_tables.h"
#include "raster/colour_fills.h"
#include "raster/pixel_blends.h"
#include "raster/shaded_fills.h"
#include "raster/unlit_textures.h"

#if __has_include("raster/colour_runs.h")
#include "raster/colour_runs.h"
#define KARDENO_HAS_COLOUR_RUNS
#endif

namespace kardeno::benches {

namespace {

// The forms of a routine: `used` is what the fillers use, `plain` is 0 when that is the plain routine itself.
std::vector<Form> formsOf(SpanRoutine used, SpanRoutine plain, const BareLoop* bare)
{
    std::vector<Form> forms{{"plain", plain ? plain : used}};
    if (plain && plain != used) forms.push_back({"packed", used});
    if (bare) {
        forms.push_back({"bare", bare->extracting});
        if (bare->throughMemory) forms.push_back({"bare", bare->throughMemory});
    }
    return forms;
}

// A textured family and its bare loop, which stands beside the routines for maps of 256 x 256 in 5-6-5.
void addTextured(std::vector<Routine>& list, const char* name, u32 bitsPerTexel, const TexturedSpanRoutines& used,
                 const TexturedSpanRoutines* plain, const BareLoop* bare)
{
    const auto add = [&](const char* map, const SpanRoutine(TexturedSpanRoutines::*kind)[pixelFormatCount],
                         PixelFormat format, const BareLoop* floor) {
        list.push_back({name, map, format == rgb565 ? "565" : "555", bitsPerTexel,
                        formsOf((used.*kind)[format], plain ? (plain->*kind)[format] : nullptr, floor)});
    };
    add("256x256", &TexturedSpanRoutines::map256x256, rgb565, bare);
    add("any", &TexturedSpanRoutines::anyMap, rgb565, nullptr);
    if (used.map256x256[rgb555] == used.map256x256[rgb565]) return;
    add("256x256", &TexturedSpanRoutines::map256x256, rgb555, nullptr);
    add("any", &TexturedSpanRoutines::anyMap, rgb555, nullptr);
}

void addPlain(std::vector<Routine>& list, const char* name, const PlainSpanRoutines& used,
              const PlainSpanRoutines* plain, const BareLoop* bare)
{
    list.push_back({name, "", "565", 0, formsOf(used[rgb565], plain ? (*plain)[rgb565] : nullptr, bare)});
    if (used[rgb555] == used[rgb565]) return;
    list.push_back({name, "", "555", 0, formsOf(used[rgb555], plain ? (*plain)[rgb555] : nullptr, nullptr)});
}

// Runs of one colour, which is the span's key here. They are no inner routines, but cost their fillers the same way.
template <class Blend>
void drawOneColour(SpanGradients* span, u16* pixels)
{
    const u16 colour = static_cast<u16>(span->key);
    for (i32 i = 0; i < span->count; ++i) pixels[i] = Blend::over(pixels[i], colour);
}

#if defined(KARDENO_HAS_COLOUR_RUNS)
void fillOneColourRun(SpanGradients* span, u16* pixels)
{
    fillRun(pixels, span->count, static_cast<u16>(span->key));
}

void blendOneColourRun(SpanGradients* span, u16* pixels)
{
    blendRun<HalfBlend<rgb565>>(pixels, span->count, static_cast<u16>(span->key));
}

constexpr SpanRoutine usedColourFill = fillOneColourRun, usedColourBlend = blendOneColourRun;
#else
constexpr SpanRoutine usedColourFill = drawOneColour<Replace>, usedColourBlend = drawOneColour<HalfBlend<rgb565>>;
#endif

} // namespace

std::vector<Routine> allRoutines()
{
    std::vector<Routine> list;
    addTextured(list, "textureCopy", 16, textureCopy, &plainTextureCopy, &bareTextureCopy);
    addTextured(list, "palettisedCopy", 8, palettisedCopy, &plainPalettisedCopy, &barePalettisedCopy);
    addTextured(list, "colourKeyedCopy", 16, colourKeyedCopy, &plainColourKeyedCopy, nullptr);
    addTextured(list, "textureHalfBlend", 16, textureHalfBlend, &plainTextureHalfBlend, &bareTextureHalfBlend);
    addTextured(list, "textureAdd", 16, textureAdd, &plainTextureAdd, &bareTextureAdd);
    addTextured(list, "wholeOutlineAdd", 16, wholeOutlineAdd, &plainWholeOutlineAdd, &bareTextureAdd);
    addTextured(list, "litTexture", 8, litTexture, &plainLitTexture, &bareLitTexture);
    addTextured(list, "colourKeyedLitTexture", 8, colourKeyedLitTexture, &plainColourKeyedLitTexture, nullptr);
    addTextured(list, "litTextureHalfBlend", 8, litTextureHalfBlend, &plainLitTextureHalfBlend,
                &bareLitTextureHalfBlend);
    addTextured(list, "colourKeyedLitHalfBlend", 8, colourKeyedLitHalfBlend, &plainColourKeyedLitHalfBlend, nullptr);
    addTextured(list, "litTextureAdd", 8, litTextureAdd, &plainLitTextureAdd, &bareLitTextureAdd);
    addTextured(list, "colourScaledTexture", 16, colourScaledTexture, &plainColourScaledTexture, nullptr);
    addPlain(list, "shadedCopy", shadedCopy, &plainShadedCopy, &bareShadedCopy);
    addPlain(list, "shadedHalfBlend", shadedHalfBlend, &plainShadedHalfBlend, &bareShadedHalfBlend);
    addPlain(list, "gouraudColour", gouraudColour, &plainGouraudColour, &bareGouraudColour);
    list.push_back({"one colour", "", "565", 0, formsOf(usedColourFill, drawOneColour<Replace>, &bareOneColour)});
    list.push_back({"one colour, half blend", "", "565", 0,
                    formsOf(usedColourBlend, drawOneColour<HalfBlend<rgb565>>, &bareOneColourHalfBlend)});
    return list;
}

} // namespace kardeno::benches
