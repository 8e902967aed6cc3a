#include "benches/peers/peer_program.h"

#include <cstdio>
#include <cstdlib>

namespace benches {

PeerOptions readPeerOptions(int count, char** arguments)
{
    PeerOptions options;
    for (int i = 1; i < count; ++i) {
        const std::string option = arguments[i];
        if (!option.starts_with("--")) {
            options.scene = option;
            continue;
        }
        const std::string value = i + 1 < count ? arguments[++i] : "";
        if (option == "--variant")
            readVariant(value, options.variant);
        else if (option == "--size")
            std::sscanf(value.c_str(), "%dx%d", &options.width, &options.height);
        else if (option == "--frames")
            options.run.frames = std::atoi(value.c_str());
        else if (option == "--passes")
            options.run.passes = std::atoi(value.c_str());
        else
            options.own[option.substr(2)] = value;
    }
    return options;
}

void readScene(const PeerOptions& options, SceneFile& scene)
{
    std::string sentence;
    if (readSceneFile(options.scene, scene, sentence)) return;
    std::fprintf(stderr, "%s\n", sentence.c_str());
    std::exit(1);
}

} // namespace benches
