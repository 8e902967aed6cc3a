#include "host/pixel_format.h"
#include "raster/shaded_fills.h"
#include "tests/raster/filler_setup.h"

using namespace kardeno;
using namespace kardeno::tests;

namespace {

SpanGradients withRamp(SpanGradients span, const std::vector<RampEntry>& ramp)
{
    span.ramp = ramp.data();
    return span;
}

} // namespace

TEST_CASE("a shaded span draws the ramp's colour at each pixel's level")
{
    const std::vector<RampEntry> ramp = markedPlainRamp();
    checkSpan(withRamp(flatShade(), ramp), shadedCopy[rgb565], 0x7777,
              "0a0a 0a0a 0b0b 0c0c 0d0d 0d0d 0e0e 0f0f | 1010 1010 1111 1212 1313 1313 1414 1515 | 1616");
    checkSpan(withRamp(recedingShade(), ramp), shadedCopy[rgb565], 0x7777,
              "3232 3131 3131 3131 3030 3030 3030 3030 | 2f2f 2f2f 2e2e 2e2e 2d2d 2d2d 2c2c 2c2c | 2b2b");
}

TEST_CASE("a shaded half blend draws the mean of ramp colour and pixel")
{
    // Over 0x2108, whose half is 0x1084. The colour loses bits 15, 10 and 5 in 5-5-5, bits 11 and 5 in 5-6-5, and is
    // halved: 0x0a0a gives 0x0a0a / 2 + 0x1084 = 0x1589 in 5-5-5 and 0x020a / 2 + 0x1084 = 0x1189 in 5-6-5.
    const std::vector<RampEntry> ramp = markedPlainRamp();
    checkSpan(withRamp(flatShade(), ramp), shadedHalfBlend[rgb555], 0x2108,
              "1589 1589 1609 148a 150a 150a 158b 160b | 188c 188c 190c 198d 1a0d 1a0d 188e 190e | 198f");
    checkSpan(withRamp(flatShade(), ramp), shadedHalfBlend[rgb565], 0x2108,
              "1189 1189 1209 128a 130a 130a 138b 140b | 188c 188c 190c 198d 1a0d 1a0d 1a8e 1b0e | 1b8f");
    checkSpan(withRamp(recedingShade(), ramp), shadedHalfBlend[rgb555], 0x2108,
              "298d 290c 290c 290c 288c 288c 288c 288c | 260b 260b 258b 258b 250a 250a 248a 248a | 2609");
    checkSpan(withRamp(recedingShade(), ramp), shadedHalfBlend[rgb565], 0x2108,
              "298d 290c 290c 290c 288c 288c 288c 288c | 240b 240b 238b 238b 230a 230a 228a 228a | 2209");
}

TEST_CASE("an untextured shade of 64.0 or more wraps to level 0, and a negative one comes in from level 63")
{
    // 62.5 + 0.5 a pixel: 62, 63, 63, 64 is level 0, 0, 1, 1, 2 | 2, 3, ...
    // Downward from 1.5 by 0.5: 1, 1, 0, 0, -0.5 is level 63, -1.0 is 63, -1.5 is 62, -2.0 is 62 | -2.5 is 61, ...
    const std::vector<RampEntry> ramp = markedPlainRamp();
    SpanGradients span = withRamp(flatShade(), ramp);
    span.start.intensity = 62.5f * 256;
    span.step8.intensity = 4 * 256;
    checkSpan(span, shadedCopy[rgb565], 0x7777,
              "3e3e 3f3f 3f3f 0000 0000 0101 0101 0202 | 0202 0303 0303 0404 0404 0505 0505 0606 | 0606");
    span.start.intensity = 1.5f * 256;
    span.step8.intensity = -4 * 256;
    checkSpan(span, shadedCopy[rgb565], 0x7777,
              "0101 0101 0000 0000 3f3f 3f3f 3e3e 3e3e | 3d3d 3d3d 3c3c 3c3c 3b3b 3b3b 3a3a 3a3a | 3939");
}

TEST_CASE("an untextured shade between -1/256 and 0 truncates to level 0 before it is looked up")
{
    // -0.75 truncates to 0; rounding down would give -1, which is level 63.
    const std::vector<RampEntry> ramp = markedPlainRamp();
    SpanGradients span = withRamp(flatShade(), ramp);
    span.start.intensity = -0.75f;
    span.step8.intensity = 0;
    checkSpan(span, shadedCopy[rgb565], 0x7777,
              "0000 0000 0000 0000 0000 0000 0000 0000 | 0000 0000 0000 0000 0000 0000 0000 0000 | 0000");
}
