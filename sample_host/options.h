// The command line of the sample host.
#pragma once

#include "sample_host/material.h"

#include <span>

namespace sample_host {

struct Options {
    std::string modelFile; // none: the model that tools/fetch_models fetches, or the room when that is not there
    bool room = false;
    bool help = false;
    std::string libraryFile; // none: the library beside the program or in the folder above
    std::string outFolder = "pictures";
    int frames = 1;
    int width = 640, height = 480;
    PixelFormat format = PixelFormat::rgb565;
    MaterialMode mode;
};

extern const char* const usage;

// Throws with a sentence when an argument is unknown or its value cannot be used.
Options readOptions(std::span<const char* const> arguments);

} // namespace sample_host
