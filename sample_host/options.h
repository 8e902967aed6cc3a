// The command line of the sample host.
#pragma once

#include "sample_host/host/material.h"

#include <span>

namespace sample_host {

enum class Command {
    draw,    // a scene
    pick,    // what lies under a pixel of a scene
    stats,   // what happens in a frame of a scene
    window,  // the scene moves under the user's hand
    gallery, // all that is of our own making
    help,
    version,
};

struct Options {
    Command command = Command::draw;
    std::string modelFile; // neither this nor a scene: the model that tools/fetch_models fetches, or else the room
    std::string sceneName; // one of the scenes of our own
    std::string sceneFile; // or a file with a scene
    int pickX = 0, pickY = 0;
    bool asJson = false;     // the counts of a frame, and not as text
    std::string libraryFile; // none: the library beside the program
    std::string outFolder = "pictures";
    int frames = 1;
    int width = 640, height = 480;
    PixelFormat format = PixelFormat::rgb565;
    MaterialMode mode{TextureKind::trueColour, 1};
};

extern const char* const usage;

// Looks at nothing but the arguments. With -h or --help among them the command is help, whatever the others are, and
// otherwise with --version it is version. Throws with a sentence when an argument is unknown or its value cannot be
// used; where a word looks mistyped the sentence says what it may have meant.
Options readOptions(std::span<const char* const> arguments);

} // namespace sample_host
