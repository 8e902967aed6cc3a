// An animated PNG: a PNG file with further frames, played by every current browser.
#pragma once

#include "sample_host/pictures/image.h"

#include <fstream>
#include <string>

namespace sample_host {

class AnimatedPng {
public:
    // Opens the file; exactly `frames` frames of this size must follow. Throws with a sentence that names the file.
    AnimatedPng(const std::string& file, int width, int height, int frames, int framesPerSecond);

    void addFrame(const Image& image);
    // Writes the end of the file. Throws when any part of it could not be written.
    void finish();

private:
    using Bytes = std::vector<std::uint8_t>;
    void writeChunk(const char* type, const Bytes& content);

    std::string file_;
    std::ofstream stream_;
    int width_, height_, framesPerSecond_;
    std::uint32_t frame_ = 0;
    std::uint32_t sequence_ = 0; // of the chunks that only an animation has
};

} // namespace sample_host
