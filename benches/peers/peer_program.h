// The command line that all peers have: SCENE.bin --variant NAME --size WxH --frames N --passes N, and options of a
// peer's own. A peer prints what frames_bench prints.
#pragma once

#include "benches/frames/frame_times.h"
#include "benches/frames/scene_file.h"
#include "benches/frames/variant.h"

#include <map>
#include <string>

namespace benches {

struct PeerOptions {
    std::string scene;
    Variant variant;
    int width = 640, height = 480;
    Run run;
    std::map<std::string, std::string> own;
};

PeerOptions readPeerOptions(int count, char** arguments);
// Reads the scene, or ends the program with a sentence.
void readScene(const PeerOptions& options, SceneFile& scene);

} // namespace benches
