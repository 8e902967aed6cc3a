#include "benches/frames/frame_times.h"

#include <algorithm>
#include <cstdio>

#if defined(__linux__)
#include <time.h>
#else
#include <chrono>
#endif

// The counter of instructions counts while this function runs and finds it by its name.
extern "C" __attribute__((noinline)) void drawTimedFrame(benches::Subject& subject, int frame)
{
    subject.draw(frame);
}

namespace benches {

namespace {

#if defined(__linux__)
double now()
{
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) * 1e-6;
}
#else
double now()
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
#endif

} // namespace

FrameTimes timeFrames(Subject& subject, const Run& run)
{
    const int length = subject.frameCount();
    const int frames = std::min(run.frames, length);
    const auto frameAt = [&](int i) { return i * length / frames; };

    FrameTimes times{{}, 2166136261u};
    for (int i = 0; i < frames; ++i) {
        subject.draw(frameAt(i));
        for (const kardeno::u16 pixel : subject.pixels()) times.pixels = (times.pixels ^ pixel) * 16777619u;
    }
    for (int pass = 0; pass < run.passes; ++pass) {
        for (int i = 0; i < frames; ++i) {
            const double start = now();
            drawTimedFrame(subject, frameAt(i));
            times.milliseconds.push_back(now() - start);
        }
    }
    return times;
}

void print(const FrameTimes& times)
{
    std::printf("{\"pixels\": \"%08x\", \"milliseconds\": [", unsigned(times.pixels));
    const char* separator = "";
    for (const double time : times.milliseconds) {
        std::printf("%s%.5f", separator, time);
        separator = ", ";
    }
    std::printf("]}\n");
}

} // namespace benches
