// Times a routine on spans of one length that tile a frame buffer.
#pragma once

#include "benches/routines/routine_list.h"

namespace kardeno::benches {

class SpanTiming {
public:
    SpanTiming();

    // Chooses the spans: their length, and the texture that they read.
    void choose(const Routine& routine, i32 length);
    // Nanoseconds a pixel of the fastest of a few passes over the frame buffer.
    double time(SpanRoutine routine);
    // Stands for the pixels that the routine leaves.
    u32 pixelsOf(SpanRoutine routine);

    // What the colour-keyed routines leave out: a quarter of the texels, in squares of 16 x 16.
    static constexpr u16 hiddenTexel = 0x1234;
    static constexpr u8 hiddenIndex = 0; // that which colourKeyedLitHalfBlend leaves out

private:
    void makeTextures();
    void drawAll(SpanRoutine routine);
    void fillFrame();

    static constexpr i32 width = 640, height = 96;
    // So many spans have gradients of their own; further ones begin anew. More of them would leave the caches.
    static constexpr i32 distinctSpans = 256;

    std::vector<u16> frame_;
    std::vector<u32> wideImage_, narrowImage_; // a TextureImage with its texels behind it
    std::vector<RampEntry> ramp_;
    std::vector<SpanGradients> spans_;
    i32 length_ = 0;
};

} // namespace kardeno::benches
