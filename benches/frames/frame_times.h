// Draws the frames of a subject and times them.
#pragma once

#include "benches/frames/subject.h"

#include <vector>

namespace benches {

struct Run {
    int frames = 36; // of the path, evenly spread over it
    int passes = 2;  // over those frames, after one that is not timed
};

struct FrameTimes {
    std::vector<double> milliseconds; // of all timed frames
    kardeno::u32 pixels;              // FNV-1a over the pixels of one pass: who draws other pixels has another number
};

// Times are of the processor, where the system tells them, which other programs disturb less than those of the clock on
// the wall.
FrameTimes timeFrames(Subject& subject, const Run& run);

// Prints one line of JSON.
void print(const FrameTimes& times);

} // namespace benches
