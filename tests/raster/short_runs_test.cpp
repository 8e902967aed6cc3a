// Runs of 1 to 7 pixels drawn from values in registers, beside the plain inner routines.
#include "raster/shaded_fills.h"
#include "raster/short_runs.h"
#include "raster/unlit_textures.h"
#include "tests/raster/random_spans.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;
using scenes::RandomNumbers;

namespace {

f32x4 texturedLanes(const Interpolants& values, f32 rest)
{
    return f32x4{values.invDepth, values.texU, values.texV, rest};
}

f32x4 shadedLanes(const Interpolants& values, f32 rest)
{
    return f32x4{values.invDepth, values.intensity, rest, rest};
}

// Draws a run of every length by the plain routine and by few(), and a run of one pixel by one() too. The lanes that
// nobody looks at hold rubbish.
template <class Run>
void checkRuns(SpanRoutine plain, f32x4 (&lanesOf)(const Interpolants&, f32), SpanGradients span, RandomNumbers& random)
{
    for (f32 Interpolants::*const value :
         {&Interpolants::invDepth, &Interpolants::texU, &Interpolants::texV, &Interpolants::intensity}) {
        span.step8.*value = stored(span.step.*value * 8.0);
    }
    // What a run takes from the polygon's record are the texture and the ramp.
    SpanGradients polygon = extremeSpan(random);
    polygon.texture = span.texture;
    polygon.ramp = span.ramp;
    const Run run(polygon);
    const f32 rest = static_cast<f32>(random.integer(-1000, 1000));
    const f32x4 start = lanesOf(span.start, rest);
    const f32x4 step = lanesOf(span.step, rest);
    const RandomRow before(random);
    for (i32 count = 1; count < 8; ++count) {
        CAPTURE(count);
        RandomRow expected = before;
        SpanGradients record = span;
        record.count = count;
        plain(&record, expected.at(count));

        RandomRow drawn = before;
        run.few(start, step, span.shade, span.shadeStep, count, drawn.at(count));
        CHECK((drawn == expected));
        if (count > 1) continue;
        drawn = before;
        run.one(start, span.shade, drawn.at(count));
        CHECK((drawn == expected));
    }
}

} // namespace

TEST_CASE("short runs in registers have the pixels of the plain inner routines")
{
    TestTexture wide = randomTexture(16, 256, 256, true, false);
    TestTexture palettised = randomTexture(8, 256, 256, true, false);
    const std::vector<RampEntry> ramp = randomRamp();
    forEachSeed(2000, [&](u32 seed) {
        RandomNumbers random(seed);
        SpanGradients span = seed % 2 == 0 ? ordinarySpan(random) : extremeSpan(random);
        span.ramp = ramp.data();
        span.texture = &wide.image();
        checkRuns<ShortTextureCopy>(plainTextureCopy.map256x256[rgb565], texturedLanes, span, random);
        span.texture = &palettised.image();
        checkRuns<ShortPalettisedCopy>(plainPalettisedCopy.map256x256[rgb565], texturedLanes, span, random);
        checkRuns<ShortLitTexture>(plainLitTexture.map256x256[rgb565], texturedLanes, span, random);
        checkRuns<ShortShadedCopy>(plainShadedCopy[rgb565], shadedLanes, span, random);
    });
}
