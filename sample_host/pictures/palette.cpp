#include "sample_host/pictures/palette.h"

#include <algorithm>
#include <limits>

namespace sample_host {

namespace {

using Channels = std::array<std::uint8_t, 3>; // red, green, blue

// One colour of the image and how many pixels have it.
struct CountedColour {
    Channels channels;
    std::uint64_t pixels;
};

using Colours = std::vector<CountedColour>;

// A run of the list of colours: those that are to become one.
struct Box {
    std::size_t begin, end;
    std::size_t longestChannel = 0;
    std::uint64_t gain = 0; // what parting it is worth: its pixels times its longest side; 0 for a single colour
};

Channels channelsOf(Colour colour)
{
    return {colour.red, colour.green, colour.blue};
}

// The distinct colours of the visible pixels, in ascending order.
Colours countedColours(const Image& image)
{
    std::vector<Channels> all;
    for (std::size_t pixel = 0; pixel < image.pixelCount(); ++pixel)
        if (!image.hidden(pixel)) all.push_back(channelsOf(image.colour(pixel)));
    std::sort(all.begin(), all.end());
    Colours distinct;
    for (const Channels& channels : all) {
        if (distinct.empty() || distinct.back().channels != channels) distinct.push_back({channels, 0});
        ++distinct.back().pixels;
    }
    return distinct;
}

Box measuredBox(const Colours& colours, std::size_t begin, std::size_t end)
{
    Box box{begin, end};
    Channels low{255, 255, 255}, high{};
    std::uint64_t pixels = 0;
    for (std::size_t i = begin; i < end; ++i) {
        pixels += colours[i].pixels;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            low[channel] = std::min(low[channel], colours[i].channels[channel]);
            high[channel] = std::max(high[channel], colours[i].channels[channel]);
        }
    }
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const std::uint64_t gain = pixels * std::uint64_t(high[channel] - low[channel]);
        if (gain > box.gain) {
            box.gain = gain;
            box.longestChannel = channel;
        }
    }
    return box;
}

// Where to part a box that is sorted along its longest side: half of its pixels to each side, no side empty.
std::size_t median(const Colours& colours, const Box& box)
{
    std::uint64_t pixels = 0, before = 0;
    for (std::size_t i = box.begin; i < box.end; ++i) pixels += colours[i].pixels;
    std::size_t middle = box.begin;
    while (middle < box.end - 1 && (middle == box.begin || 2 * before < pixels)) before += colours[middle++].pixels;
    return middle;
}

std::vector<Box> partedBoxes(Colours& colours, std::size_t most)
{
    std::vector<Box> boxes;
    if (!colours.empty()) boxes.push_back(measuredBox(colours, 0, colours.size()));
    while (!boxes.empty() && boxes.size() < most) {
        const auto gainsLess = [](const Box& a, const Box& b) { return a.gain < b.gain; };
        Box& best = *std::max_element(boxes.begin(), boxes.end(), gainsLess);
        if (best.gain == 0) break;
        // The channels after the longest one decide between equals, so that the order never depends on the sort.
        std::sort(colours.begin() + std::ptrdiff_t(best.begin), colours.begin() + std::ptrdiff_t(best.end),
                  [channel = best.longestChannel](const CountedColour& a, const CountedColour& b) {
                      return a.channels[channel] != b.channels[channel] ? a.channels[channel] < b.channels[channel]
                                                                        : a.channels < b.channels;
                  });
        const std::size_t middle = median(colours, best);
        const Box upper = measuredBox(colours, middle, best.end);
        best = measuredBox(colours, best.begin, middle);
        boxes.push_back(upper);
    }
    return boxes;
}

// The mean of a box's pixels, rounded to nearest.
Channels mean(const Colours& colours, const Box& box)
{
    std::uint64_t pixels = 0;
    std::array<std::uint64_t, 3> sums{};
    for (std::size_t i = box.begin; i < box.end; ++i) {
        pixels += colours[i].pixels;
        for (std::size_t channel = 0; channel < 3; ++channel)
            sums[channel] += colours[i].pixels * colours[i].channels[channel];
    }
    Channels channels;
    for (std::size_t channel = 0; channel < 3; ++channel)
        channels[channel] = std::uint8_t((sums[channel] + pixels / 2) / pixels);
    return channels;
}

std::uint8_t nearest(const std::vector<Channels>& entries, const Channels& wanted)
{
    std::size_t best = 0;
    int smallest = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        int distance = 0;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const int difference = int(entries[i][channel]) - int(wanted[channel]);
            distance += difference * difference;
        }
        if (distance < smallest) {
            smallest = distance;
            best = i;
        }
    }
    return std::uint8_t(best);
}

} // namespace

PalettisedImage quantised(const Image& image)
{
    bool anyHidden = false;
    for (std::size_t pixel = 0; pixel < image.pixelCount(); ++pixel) anyHidden |= image.hidden(pixel);

    Colours colours = countedColours(image);
    std::vector<Channels> entries;
    for (const Box& box : partedBoxes(colours, anyHidden ? hiddenIndex : 256)) entries.push_back(mean(colours, box));

    PalettisedImage result;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        result.palette[4 * i] = entries[i][2];
        result.palette[4 * i + 1] = entries[i][1];
        result.palette[4 * i + 2] = entries[i][0];
    }

    // Each distinct colour looks for its entry once.
    std::sort(colours.begin(), colours.end(),
              [](const CountedColour& a, const CountedColour& b) { return a.channels < b.channels; });
    std::vector<std::uint8_t> entryOf;
    for (const CountedColour& colour : colours) entryOf.push_back(nearest(entries, colour.channels));
    for (std::size_t pixel = 0; pixel < image.pixelCount(); ++pixel) {
        if (image.hidden(pixel)) {
            result.indices.push_back(hiddenIndex);
            continue;
        }
        const auto isBefore = [](const CountedColour& a, const Channels& b) { return a.channels < b; };
        const auto found = std::lower_bound(colours.begin(), colours.end(), channelsOf(image.colour(pixel)), isBefore);
        result.indices.push_back(entryOf[std::size_t(found - colours.begin())]);
    }
    return result;
}

} // namespace sample_host
