#include "tests/raster/filler_setup.h"
#include "host/pixel_format.h"

#include <cstring>

namespace kardeno::tests {

std::string text(const Pixels& pixels)
{
    std::string result;
    for (size_t i = 0; i < pixels.size(); ++i) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%04x", pixels[i]);
        if (i > 0) result += i % 8 == 0 ? " | " : " ";
        result += digits;
    }
    return result;
}

Pixels pixelsOf(const std::string& text)
{
    Pixels result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ' ' || text[i] == '|') continue;
        result.push_back(static_cast<u16>(std::stoul(text.substr(i, 4), nullptr, 16)));
        i += 3;
    }
    return result;
}

void SpanLists::give(ScreenPolygon& polygon, const std::vector<Run>& runs)
{
    polygon.spanHead = runs.empty() ? -1 : static_cast<i32>(spans.size());
    for (const Run& run : runs)
        spans.push_back({static_cast<i16>(run.x), static_cast<u16>(run.length), static_cast<u16>(run.y), 0});
    if (!runs.empty()) spans.back().isLast = 1;
    SpanPool.held = SpanPool.spans = reinterpret_cast<MadeSpan*>(spans.data());
    SpanPool.heldCapacity = SpanPool.capacity = 0; // which puts the sorted half where the block begins
}

namespace {

constexpr i32 sizeOf(Addressing addressing)
{
    return addressing == Addressing::square ? 256 : 16;
}

u16* wideTexels(TextureImage& image)
{
    return reinterpret_cast<u16*>(&image + 1);
}

u8* paletteIndices(TextureImage& image)
{
    return reinterpret_cast<u8*>(&image + 1);
}

} // namespace

MarkedTexture::MarkedTexture(u32 bitsPerTexel, Addressing addressing)
    : TestTexture(bitsPerTexel, sizeOf(addressing), sizeOf(addressing), addressing == Addressing::square),
      bits(bitsPerTexel), size(sizeOf(addressing))
{
    for (i32 y = 0; y < size; ++y) {
        for (i32 x = 0; x < size; ++x) {
            const u32 column = static_cast<u32>(x) & 15;
            const u32 row = static_cast<u32>(y) & 15;
            setTexel(x, y, bits == 8 ? row * 0x10 + column : row * 0x1100 + column * 0x11);
        }
    }
}

void MarkedTexture::replace(u32 old, u32 value)
{
    for (i32 i = 0; i < size * size; ++i) {
        if (bits == 8 && paletteIndices(image())[i] == old) paletteIndices(image())[i] = static_cast<u8>(value);
        if (bits != 8 && wideTexels(image())[i] == old) wideTexels(image())[i] = static_cast<u16>(value);
    }
}

std::vector<RampEntry> markedTexturedRamp()
{
    std::vector<RampEntry> ramp;
    for (u32 level = 0; level < 64; ++level) {
        for (u32 index = 0; index < 256; ++index) ramp.push_back(level << 24 | index << 16 | 0xbeef);
    }
    return ramp;
}

std::vector<RampEntry> markedPlainRamp()
{
    std::vector<RampEntry> ramp;
    for (u32 level = 0; level < 64; ++level) ramp.push_back(level << 24 | level << 16 | 0xbeef);
    return ramp;
}

namespace {

SpanGradients emptyRecord()
{
    SpanGradients span;
    std::memset(&span, 0, sizeof span);
    return span;
}

} // namespace

SpanGradients flat()
{
    SpanGradients span = emptyRecord();
    span.start = {.invDepth = 1, .texU = 13 * 256, .texV = 6.5f * 256};
    span.step = {.texU = 192, .texV = -128};
    span.step8 = {.texU = 1536, .texV = -1024};
    span.shade = 10 * 256;
    span.shadeStep = 128;
    return span;
}

SpanGradients receding()
{
    SpanGradients span = emptyRecord();
    span.start = {.invDepth = 1, .texU = 0, .texV = 3072};
    span.step = {.invDepth = -0.03125f, .texU = 47.96875f, .texV = -120.03125f};
    span.step8 = {.invDepth = -0.25f, .texU = 383.75f, .texV = -960.25f};
    span.shade = 50 * 256;
    span.shadeStep = -64;
    return span;
}

SpanGradients flatShade()
{
    SpanGradients span = emptyRecord();
    span.start = {.invDepth = 1, .intensity = 10 * 256};
    span.step = {.intensity = 192};
    span.step8 = {.intensity = 1536};
    return span;
}

SpanGradients recedingShade()
{
    SpanGradients span = emptyRecord();
    span.start = {.invDepth = 1, .intensity = 12800};
    span.step = {.invDepth = -0.03125f, .intensity = -448.03125f};
    span.step8 = {.invDepth = -0.25f, .intensity = -3584.25f};
    return span;
}

void checkSpan(const SpanGradients& setUp, SpanRoutine routine, u16 destination, const char* pixels, Count count)
{
    const Pixels expected = pixelsOf(pixels);
    REQUIRE(expected.size() == 17);

    for (const i32 length : spanLengths) {
        CAPTURE(length);
        for (const size_t begin : {4u, 5u}) {
            SpanGradients before = setUp;
            before.count = length;
            SpanGradients span = before;
            Pixels row(26, destination);
            routine(&span, &row[begin]);

            Pixels wanted(26, destination);
            for (size_t i = 0; i < static_cast<size_t>(length); ++i) wanted[begin + i] = expected[i];
            CHECK(text(row) == text(wanted));

            CHECK(span.count == (count == Count::stays ? length : length % 8));
            span.count = before.count;
            CHECK(std::memcmp(&span, &before, sizeof span) == 0);
        }
    }
}

void checkTexturedSpans(const TexturedSpans& spans, const SpanGradients& setUp, const std::vector<SpanCase>& cases)
{
    const std::vector<RampEntry> ramp = markedTexturedRamp();
    for (const SpanCase& line : cases) {
        CAPTURE(line.pixels);
        MarkedTexture texture(spans.bitsPerTexel, line.addressing);
        texture.replace(spans.texelThatIsZero, 0);
        SpanGradients record = setUp;
        record.texture = &texture.image();
        record.ramp = ramp.data();
        record.key = spans.key;

        const bool isSquare = line.addressing == Addressing::square;
        for (const PixelFormat format : {rgb555, rgb565}) {
            if (line.format == (format == rgb555 ? Format::in565 : Format::in555)) continue;
            const SpanRoutine routine = (isSquare ? spans.routines.map256x256 : spans.routines.anyMap)[format];
            checkSpan(record, routine, spans.destination, line.pixels);
        }
    }
}

} // namespace kardeno::tests
