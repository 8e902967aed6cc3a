// The host's services: what the renderer is given once and uses for ever. The context record, and the arrays of
// vertices that every object of the scene has a part of.
#pragma once

#include "sample_host/image.h"
#include "sample_host/renderer_library.h"

#include <vector>

namespace sample_host {

enum class PixelFormat { rgb565, rgb555 };

// A colour as a pixel of the frame buffer.
u16 packedPixel(PixelFormat format, Colour colour);
// A pixel of the frame buffer as a colour: the short channels are widened to 0 to 255.
Colour unpackedPixel(PixelFormat format, u16 pixel);

class Engine {
public:
    Engine(const RendererLibrary& library, PixelFormat format);
    ~Engine();
    Engine(const Engine&) = delete; // the renderer keeps the address of the context
    Engine& operator=(const Engine&) = delete;

    // Makes room for some more vertices and gives the index of the first. The arrays may move, and the context is told
    // where they are now; not to be called while the renderer draws. The room lasts as long as the engine.
    i32 addVertices(i32 count);

    const RendererLibrary& library;
    const PixelFormat format;

    // One entry for each vertex of the scene. The first three are filled by the objects, the others by the renderer.
    std::vector<CameraVertex> cameraVertices;
    std::vector<u32> vertexOutcodes;
    std::vector<VertexShade> vertexShades;
    std::vector<ScreenVertex> screenVertices;
    std::vector<u32> vertexStamps;

private:
    HostContext context_{};
};

} // namespace sample_host
