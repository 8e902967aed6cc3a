// A small scene and frame, and what the host's callbacks wrote down while it was drawn.
#pragma once

#include "tests/support/test_scene.h"

namespace kardeno::tests {

using Log = std::vector<std::string>;

class LoggedScene {
public:
    TestHost host;
    TestScene scene{host, {.right = 16, .bottom = 8}};

    // The calls of one frame, in order.
    Log draw()
    {
        scene.log.clear();
        scene.draw(frame);
        return scene.log;
    }

private:
    TestFrame frame{16, 8};
};

} // namespace kardeno::tests
