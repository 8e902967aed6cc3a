// What happens while a frame is drawn, counted from the host's side, with any renderer.
//
// The host counts its own calls: which objects and vertices the renderer asks for. The rest is counted by rows of the
// host's own: a material's pointer to its row may be moved, so for one frame it is moved to a copy of the row whose
// routines count and then call the renderer's.
#pragma once

#include "sample_host/host/scene.h"

#include <array>

namespace sample_host {

struct FrameCounts {
    int objects = 0, objectsDrawn = 0;
    int verticesLit = 0, verticesPrepared = 0;
    int facesTested = 0;
    int facesEmitted = 0;         // those that show their front, handed to the emission of their row
    std::array<int, 6> clipped{}; // polygons cut at the near, far, right, left, bottom and top plane
    int polygonsInView = 0;       // what came out of emission
    int polygonsVisible = 0;      // those of which a pixel is seen
    int spans = 0;                // runs of pixels in a row that one polygon draws
    long long pixelsDrawn = 0;    // by all polygons together
    int pixelsCovered = 0;        // of the picture: drawn by any polygon
    int pixelsOfPicture = 0;
};

// Draws the frame once and counts. The frame is the one that is always drawn. A pixel that a polygon leaves as it is,
// whatever is behind it, is not counted: a hidden texel, or black that is added.
FrameCounts countFrame(Scene& scene, FrameBuffer& frame, double phase);

} // namespace sample_host
