// What the renderer is given once and uses from then on: the context record, and the arrays of vertices. Every object
// of a scene has a part of these arrays.
#pragma once

#include "sample_host/host/renderer_table.h"
#include "sample_host/pictures/image.h"

#include <vector>

namespace sample_host {

enum class PixelFormat { rgb565, rgb555 };

// A colour as a pixel of the frame buffer.
u16 packedPixel(PixelFormat format, Colour colour);
// A pixel of the frame buffer as a colour: the short channels are widened to 0 to 255.
Colour unpackedPixel(PixelFormat format, u16 pixel);

class Engine {
public:
    Engine(const RendererTable& renderer, PixelFormat format);
    ~Engine();
    Engine(const Engine&) = delete; // the renderer keeps the address of the context
    Engine& operator=(const Engine&) = delete;

    // Makes room for more vertices and gives the index of the first of them. The room lasts as long as the engine. The
    // arrays may move, of which the context is told, so this may not be called while the renderer draws.
    i32 addVertices(i32 count);

    const RendererTable& renderer;
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
