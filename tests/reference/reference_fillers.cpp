#include "tests/reference/reference_fillers.h"

#include "tests/reference/reference_arithmetic.h"
#include "tests/reference/reference_spans.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace kardeno::reference {

namespace {

enum class Blend { replace, half, add };

// How a row colours its pixels.
struct Filling {
    bool outline = false; // interpolates; else one colour for the whole polygon
    bool texture = false; // u and v, with perspective
    bool shade = false;   // a ramp level: with perspective on untextured rows, else an integer that is linear on a row
    bool colours = false; // three channels, linear
    bool fastPathRounds = false; // u and v on 256 x 256 maps
    enum { noKey, transparentColour, transparentIndex, indexZero } key = noKey;
    Blend blend = Blend::replace;
    bool wholeOutline = false; // instead of the visible spans
};

Filling fillingOf(Row row)
{
    switch (row) {
    case Row::fallbackFlat:
    case Row::unlitPlain: return {};
    case Row::fallbackBlend:
    case Row::unlitTranslucent: return {.blend = Blend::half};
    case Row::unlitTextured: return {.outline = true, .texture = true, .fastPathRounds = true};
    case Row::unlitTexturedShade1:
        return {.outline = true, .texture = true, .fastPathRounds = true, .key = Filling::transparentColour};
    case Row::unlitTexturedTranslucent:
        return {.outline = true, .texture = true, .fastPathRounds = true, .blend = Blend::half};
    case Row::unlitTexturedShade2:
    case Row::unlitTexturedShade11:
        return {.outline = true, .texture = true, .fastPathRounds = true, .blend = Blend::add};
    case Row::unlitTexturedShade10:
        return {.outline = true, .texture = true, .blend = Blend::add, .wholeOutline = true};
    case Row::unlitPalettised: return {.outline = true, .texture = true};
    case Row::litPlain: return {.outline = true, .shade = true};
    case Row::litTranslucent: return {.outline = true, .shade = true, .blend = Blend::half};
    case Row::litTextured: return {.outline = true, .texture = true, .shade = true, .fastPathRounds = true};
    case Row::litTexturedShade1:
        return {
            .outline = true, .texture = true, .shade = true, .fastPathRounds = true, .key = Filling::transparentIndex};
    case Row::litTexturedTranslucent:
        return {.outline = true, .texture = true, .shade = true, .fastPathRounds = true, .blend = Blend::half};
    case Row::litTexturedShade1Translucent:
        return {.outline = true, .texture = true, .shade = true, .key = Filling::indexZero, .blend = Blend::half};
    case Row::litTexturedShade2: return {.outline = true, .texture = true, .shade = true, .blend = Blend::add};
    case Row::spareA: return {.outline = true, .colours = true};
    case Row::spareB: return {.outline = true, .texture = true, .colours = true};
    }
    return {};
}

u16 halfBlend(u32 source, u32 destination, bool is555)
{
    const u32 mask = is555 ? 0x7bdf : 0xf7df;
    return static_cast<u16>(((source & mask) + (destination & mask)) >> 1);
}

// The carry that saturates a channel stays where it arrived.
u16 saturatingAdd(u32 source, u32 destination, bool is555)
{
    const u32 mask = is555 ? 0x7bdf : 0xf7df;
    u32 sum = (source & mask) + (destination & mask);
    if (sum & 0x20) sum |= 0x1f;
    if (is555) {
        if (sum & 0x400) sum |= 0x3e0;
        if (sum & 0x8000) sum |= 0x7c00;
    } else {
        if (sum & 0x800) sum |= 0x7e0;
        if (sum & 0x10000) sum |= 0xf800;
    }
    return static_cast<u16>(sum);
}

void put(u16& pixel, u32 colour, Blend blend, bool is555)
{
    switch (blend) {
    case Blend::replace: pixel = static_cast<u16>(colour); break;
    case Blend::half: pixel = halfBlend(colour, pixel, is555); break;
    case Blend::add: pixel = saturatingAdd(colour, pixel, is555); break;
    }
}

// One polygon being filled.
struct Filler {
    const Polygon& polygon;
    const Materials& materials;
    const Material& own;
    Row row;
    Filling filling;
    bool is555;
    i32 firstColumn, endColumn;

    u32 flatColour() const;
    u32 texelAt(i32 u, i32 v) const;
    bool isHidden(u32 texel) const;
    void drawSpan(const RowWalk& walk, i32 x, i32 count, u16* rowPixels) const;
};

u32 Filler::flatColour() const
{
    if (row == Row::fallbackFlat) return (polygon.faceColour & 0xffu) * 0x0101u;
    if (row == Row::fallbackBlend) return polygon.faceColour;
    return polygon.material->diffuseColour.packed;
}

u32 Filler::texelAt(i32 u, i32 v) const
{
    const TextureImage& image = *polygon.material->textureMap->image;
    const u8* const texels = reinterpret_cast<const u8*>(&image) + sizeof(TextureImage);
    u32 index;
    if (image.is256x256) {
        index = static_cast<u32>(((v >> 8) & 255) * 256 + ((u >> 8) & 255));
    } else {
        index = static_cast<u32>(wrappedSum(shiftedLeft(v >> 8, image.rowShift), u >> 8)) & image.indexMask;
    }
    const bool palettised = filling.shade || row == Row::unlitPalettised;
    if (palettised) return texels[index];
    u16 texel;
    std::memcpy(&texel, texels + 2 * index, sizeof texel);
    return texel;
}

bool Filler::isHidden(u32 texel) const
{
    const TextureMap* const map = polygon.material->textureMap;
    switch (filling.key) {
    case Filling::transparentColour: return texel == map->transparentColour;
    case Filling::transparentIndex: return texel == map->transparentIndex;
    case Filling::indexZero: return texel == 0;
    default: return false;
    }
}

// `walk` stands at column x. Columns outside the view are passed over without a mark.
void Filler::drawSpan(const RowWalk& walk, i32 x, i32 count, u16* rowPixels) const
{
    std::vector<i32> u, v, s;
    if (filling.texture) {
        const bool fast = polygon.material->textureMap->image->is256x256;
        i32 (*const toInteger)(f64) = fast && filling.fastPathRounds ? roundedByBias : truncated;
        u = perspective(walk, texUValue, count, toInteger);
        v = perspective(walk, texVValue, count, toInteger);
    }
    if (filling.shade && !filling.texture) s = perspective(walk, intensityValue, count, truncated);
    i32 shade = walk.shade;
    i32 channels[3], channelSteps[3]; // red, green, blue with 8 fractional bits
    for (size_t c = 0; c < 3; ++c) {
        channels[c] = truncated(walk.values[redValue + c] * 256.0);
        channelSteps[c] = truncated(walk.gradients[redValue + c] * 256.0);
    }

    for (i32 i = 0; i < count; ++i) {
        const size_t pixel = static_cast<size_t>(i);
        const u32 texel = filling.texture ? texelAt(u[pixel], v[pixel]) : 0;
        u32 colour = texel;
        if (filling.shade) {
            const i32 level = filling.texture ? (shade >> 8) & 63 : (s[pixel] >> 8) & 63;
            colour =
                own.ramp[static_cast<size_t>(filling.texture ? level * 256 + static_cast<i32>(texel) : level)] >> 16;
        } else if (row == Row::unlitPalettised) {
            colour = own.ramp[63 * 256 + texel] >> 16;
        } else if (filling.colours && !filling.texture) {
            const u32 red = static_cast<u32>(channels[0] >> 11) & 31;
            const u32 green =
                is555 ? static_cast<u32>(channels[1] >> 11) & 31 : static_cast<u32>(channels[1] >> 10) & 63;
            const u32 blue = static_cast<u32>(channels[2] >> 11) & 31;
            colour = (red * (is555 ? 32 : 64) + green) * 32 + blue;
        } else if (filling.colours) {
            const auto intensity = [&](size_t c) { return static_cast<size_t>(channels[c] >> 8 & 255) * 256; };
            colour = materials.blueScale[intensity(2) + (texel & 0xff)]
                     + materials.greenScale[intensity(1) + (texel >> 5 & 0xff)]
                     + materials.redScale[intensity(0) + (texel >> 8)];
        }
        const bool inView = x + i >= firstColumn && x + i < endColumn;
        if (inView && !isHidden(texel)) put(rowPixels[x + i], colour & 0xffff, filling.blend, is555);

        shade = wrappedSum(shade, walk.shadeStep);
        for (size_t c = 0; c < 3; ++c) channels[c] = wrappedSum(channels[c], channelSteps[c]);
    }
}

} // namespace

void fill(const Polygon& polygon, const Materials& materials, const RenderView& view, i32 bitsPerPixel,
          u16* frameBuffer)
{
    const Material& own = materials.of(polygon.material);
    const Filler filler = {polygon,
                           materials,
                           own,
                           own.row,
                           fillingOf(own.row),
                           bitsPerPixel == 15,
                           truncated(view.left),
                           truncated(view.projection->right)};
    const i32 firstRow = truncated(view.top);
    const i32 endRow = truncated(view.projection->bottom);
    const auto pixelsOf = [&](i32 y) { return frameBuffer + static_cast<std::ptrdiff_t>(y) * view.pitch; };

    if (!filler.filling.outline) {
        for (auto span = polygon.spans.rbegin(); span != polygon.spans.rend(); ++span) {
            for (i32 x = span->x; x < span->x + span->length; ++x)
                put(pixelsOf(span->y)[x], filler.flatColour(), filler.filling.blend, filler.is555);
        }
        return;
    }
    if (polygon.spans.empty() && !filler.filling.wholeOutline) return;

    Outline outline(polygon, firstRow, endRow);
    if (filler.filling.wholeOutline) {
        for (i32 y = std::max(outline.top, firstRow); y < std::min(outline.bottom, endRow); ++y) {
            const Boundary& left = outline.left[y];
            const Boundary& right = outline.right[y];
            if (right.x > left.x) filler.drawSpan(RowWalk(left, right), left.x, right.x - left.x, pixelsOf(y));
        }
        return;
    }
    std::optional<RowWalk> walk;
    i32 walkRow = -1;
    for (auto span = polygon.spans.rbegin(); span != polygon.spans.rend(); ++span) {
        if (span->y != walkRow) {
            walk.emplace(outline.left[span->y], outline.right[span->y]);
            walkRow = span->y;
        }
        walk->moveTo(span->x);
        filler.drawSpan(*walk, span->x, span->length, pixelsOf(span->y));
    }
}

} // namespace kardeno::reference
