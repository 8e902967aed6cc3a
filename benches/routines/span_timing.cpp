#include "benches/routines/span_timing.h"

#include "host/render_modes.h"
#include "raster/colour_tables.h"

#include <algorithm>
#include <time.h>

namespace kardeno::benches {

namespace {

constexpr int passes = 5;

double now()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

class Noise {
public:
    u32 next() { return state_ = state_ * 1664525 + 1013904223; }

private:
    u32 state_ = 1;
};

TextureImage& imageIn(std::vector<u32>& record, u32 bitsPerTexel)
{
    record.resize((sizeof(TextureImage) + 256 * 256 * bitsPerTexel / 8 + 3) / 4);
    TextureImage& image = *reinterpret_cast<TextureImage*>(record.data());
    image = {};
    image.bitsPerTexel = bitsPerTexel;
    image.is256x256 = 1;
    image.indexMask = 256 * 256 - 1;
    image.rowShift = 8;
    image.width = image.height = 256;
    return image;
}

// A span at a place of the frame buffer, as the rows of a tilted polygon would have it: about one texel a pixel, along
// the rows of the texture, across them or down its columns, and depth, shade and colours that change slowly.
SpanGradients spanAt(i32 x, i32 y)
{
    constexpr f32 texelSteps[3][2] = {{250, 9}, {181, 179}, {7, 251}}; // in 1/256 texel
    const f32 uStep = texelSteps[y % 3][0], vStep = texelSteps[y % 3][1];
    const f32 column = static_cast<f32>(x), row = static_cast<f32>(y);
    const f32 u = column * uStep - row * vStep + 77, v = column * vStep + row * uStep + 33;
    const f32 shade = 0x1000 + 11 * column;
    constexpr f32 invDepthStep = 0.0004f;
    const f32 invDepth = 0.5f + invDepthStep * column;
    // What a value that is divided by depth changes by from pixel to pixel.
    const auto overDepth = [&](f32 value, f32 step) { return step * invDepth + value * invDepthStep; };

    SpanGradients span{};
    span.x = x;
    span.start = {invDepth,           u * invDepth,       v * invDepth,       shade * invDepth,
                  20 + 0.3f * column, 40 + 0.2f * column, 200 - 0.3f * column};
    span.step = {invDepthStep, overDepth(u, uStep), overDepth(v, vStep), overDepth(shade, 11), 0.3f, 0.2f, -0.3f};
    const Interpolants& step = span.step;
    span.step8 = {8 * step.invDepth, 8 * step.texU,    8 * step.texV,   8 * step.intensity,
                  8 * step.colourR,  8 * step.colourG, 8 * step.colourB};
    span.shade = static_cast<i32>(shade);
    span.shadeStep = 11;
    return span;
}

} // namespace

SpanTiming::SpanTiming() : frame_(static_cast<size_t>(width) * height), spans_(distinctSpans)
{
    makeTextures();
    Noise noise;
    for (u32 i = 0; i < rampLevels * paletteSize; ++i) ramp_.push_back(noise.next());
    buildColourScaleTables(rgb565);
}

void SpanTiming::makeTextures()
{
    u16* wide = reinterpret_cast<u16*>(&imageIn(wideImage_, 16) + 1);
    u8* narrow = reinterpret_cast<u8*>(&imageIn(narrowImage_, 8) + 1);
    Noise noise;
    for (u32 y = 0; y < 256; ++y) {
        for (u32 x = 0; x < 256; ++x) {
            const bool hidden = (((x >> 4) ^ (y >> 4)) & 3) == 0;
            const u32 value = noise.next();
            *wide++ = hidden ? hiddenTexel : static_cast<u16>((value >> 16) | 1);
            *narrow++ = hidden ? hiddenIndex : static_cast<u8>((value >> 24) | 1);
        }
    }
}

void SpanTiming::choose(const Routine& routine, i32 length)
{
    length_ = length;
    const i32 spansInARow = width / length;
    for (i32 i = 0; i < distinctSpans; ++i) {
        SpanGradients& span = spans_[static_cast<size_t>(i)];
        span = spanAt(i % spansInARow * length, i / spansInARow);
        span.texture =
            reinterpret_cast<const TextureImage*>(routine.bitsPerTexel == 8 ? narrowImage_.data() : wideImage_.data());
        span.ramp = ramp_.data();
        span.key = routine.bitsPerTexel == 8 ? hiddenIndex : hiddenTexel;
    }
}

void SpanTiming::drawAll(SpanRoutine routine)
{
    i32 index = 0;
    for (i32 y = 0; y < height; ++y) {
        u16* const row = &frame_[static_cast<size_t>(y) * width];
        for (i32 x = 0; x + length_ <= width; x += length_) {
            SpanGradients& span = spans_[static_cast<size_t>(index)];
            index = (index + 1) % distinctSpans;
            span.count = length_;
            routine(&span, row + x);
        }
    }
}

void SpanTiming::fillFrame()
{
    Noise noise;
    for (u16& pixel : frame_) pixel = static_cast<u16>(noise.next() >> 16);
}

double SpanTiming::time(SpanRoutine routine)
{
    double fastest = 1e30;
    for (int pass = 0; pass < passes; ++pass) {
        const double start = now();
        drawAll(routine);
        fastest = std::min(fastest, now() - start);
    }
    return fastest / (static_cast<double>(width / length_ * length_) * height);
}

u32 SpanTiming::pixelsOf(SpanRoutine routine)
{
    fillFrame();
    drawAll(routine);
    u32 hash = 2166136261u;
    for (const u16 pixel : frame_) hash = (hash ^ pixel) * 16777619u;
    return hash;
}

} // namespace kardeno::benches
