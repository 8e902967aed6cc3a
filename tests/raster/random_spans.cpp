#include "tests/raster/random_spans.h"

#include "support/arithmetic.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>

namespace kardeno::tests {

using scenes::RandomNumbers;

TestTexture randomTexture(u32 bitsPerTexel, i32 width, i32 height, bool is256x256, bool fewValues)
{
    RandomNumbers random(bitsPerTexel + static_cast<u32>(width) + fewValues);
    TestTexture texture(bitsPerTexel, width, height, is256x256);
    for (i32 y = 0; y < height; ++y) {
        for (i32 x = 0; x < width; ++x) texture.setTexel(x, y, random.next() & (fewValues ? 3 : 0xffff));
    }
    return texture;
}

std::vector<RampEntry> randomRamp()
{
    RandomNumbers random(1);
    std::vector<RampEntry> ramp(64 * 256);
    for (RampEntry& entry : ramp) entry = random.next();
    return ramp;
}

namespace {

// Any f32. Of numbers that are none there is one only: compilers may choose which of two survives an operation.
f32 anyValue(RandomNumbers& random)
{
    constexpr f32 infinity = std::numeric_limits<f32>::infinity();
    constexpr f32 notANumber = std::numeric_limits<f32>::quiet_NaN();
    constexpr f32 largest = std::numeric_limits<f32>::max();
    constexpr f32 smallest = std::numeric_limits<f32>::denorm_min();
    constexpr f32 values[] = {0,        -0.0f,      1,        -1,        3e9f,    -5e9f,    2147483648.0f,
                              1e12f,    -1e12f,     infinity, -infinity, largest, -largest, -2147483648.0f,
                              65535.5f, 8388607.5f, smallest, notANumber};
    if (random.chance(50)) return random.oneOf(values);
    const f32 value = std::bit_cast<f32>(random.next());
    return std::isnan(value) ? notANumber : value;
}

f32 between(RandomNumbers& random, f64 low, f64 high)
{
    return static_cast<f32>(random.real(low, high));
}

} // namespace

SpanGradients ordinarySpan(RandomNumbers& random)
{
    SpanGradients span;
    std::memset(&span, 0, sizeof span);
    const f32 depth = between(random, 0.01, 2);
    span.start.invDepth = depth;
    span.step.invDepth = between(random, -0.0001, 0.01);
    for (f32 Interpolants::*const value : {&Interpolants::texU, &Interpolants::texV, &Interpolants::intensity}) {
        span.start.*value = between(random, -200000, 200000) * depth;
        span.step.*value = between(random, -700, 700) * depth;
    }
    for (f32 Interpolants::*const value : {&Interpolants::colourR, &Interpolants::colourG, &Interpolants::colourB}) {
        span.start.*value = between(random, 0, 255);
        span.step.*value = between(random, -8, 8);
    }
    for (f32 Interpolants::*const value :
         {&Interpolants::invDepth, &Interpolants::texU, &Interpolants::texV, &Interpolants::intensity}) {
        span.step8.*value = stored(span.step.*value * 8.0);
    }
    span.shade = random.integer(0, 0x3fff);
    span.shadeStep = random.integer(-300, 300);
    span.key = static_cast<u32>(random.integer(0, 3));
    return span;
}

SpanGradients extremeSpan(RandomNumbers& random)
{
    SpanGradients span = ordinarySpan(random);
    for (Interpolants* const values : {&span.start, &span.step, &span.step8}) {
        for (f32 Interpolants::*const value :
             {&Interpolants::invDepth, &Interpolants::texU, &Interpolants::texV, &Interpolants::intensity,
              &Interpolants::colourR, &Interpolants::colourG, &Interpolants::colourB}) {
            if (random.chance(50)) values->*value = anyValue(random);
        }
    }
    if (random.chance(50)) span.shade = static_cast<i32>(random.next());
    if (random.chance(50)) span.shadeStep = static_cast<i32>(random.next());
    if (random.chance(50)) span.key = random.next() & 0xff;
    return span;
}

RandomRow::RandomRow(RandomNumbers& random)
{
    for (u16& pixel : row) pixel = static_cast<u16>(random.next());
}

bool RandomRow::operator==(const RandomRow& other) const
{
    return std::memcmp(row, other.row, sizeof row) == 0;
}

std::string difference(SpanRoutine plain, SpanRoutine packed, const SpanGradients& span, i32 begin,
                       const RandomRow& before)
{
    RandomRow expected = before;
    RandomRow drawn = before;
    SpanGradients expectedRecord = span;
    SpanGradients record = span;
    plain(&expectedRecord, expected.at(begin));
    packed(&record, drawn.at(begin));

    if (std::memcmp(&record, &expectedRecord, sizeof record) != 0)
        return "count " + std::to_string(record.count) + " instead of " + std::to_string(expectedRecord.count)
               + ", or another field was changed";
    for (size_t i = 0; i < std::size(drawn.row); ++i) {
        if (drawn.row[i] == expected.row[i]) continue;
        const i32 pixel = static_cast<i32>(i) - guardPixels - begin;
        return "pixel " + std::to_string(pixel) + " of " + std::to_string(span.count) + " is "
               + std::to_string(drawn.row[i]) + " instead of " + std::to_string(expected.row[i]);
    }
    return "";
}

} // namespace kardeno::tests
