#include "sample_host/host/engine.h"

#include "sample_host/host/failure.h"
#include "sample_host/host/host_memory.h"

namespace sample_host {

u16 packedPixel(PixelFormat format, Colour colour)
{
    const int green = format == PixelFormat::rgb565 ? (colour.green & 0xfc) << 3 : (colour.green & 0xf8) << 2;
    const int red = (colour.red & 0xf8) << (format == PixelFormat::rgb565 ? 8 : 7);
    return u16(red | green | colour.blue >> 3);
}

Colour unpackedPixel(PixelFormat format, u16 pixel)
{
    const bool wideGreen = format == PixelFormat::rgb565;
    const int red = pixel >> (wideGreen ? 11 : 10) & 31, blue = pixel & 31;
    const int green = pixel >> 5 & (wideGreen ? 63 : 31);
    return {u8(red << 3 | red >> 2), u8(wideGreen ? green << 2 | green >> 4 : green << 3 | green >> 2),
            u8(blue << 3 | blue >> 2)};
}

Engine::Engine(const RendererTable& renderer_, PixelFormat format_) : renderer(renderer_), format(format_)
{
    HostMemory::serve(context_);
    context_.bitsPerPixel = format == PixelFormat::rgb565 ? 16 : 15;
    if (!renderer.initRender(&context_)) fail("the renderer cannot be initialised");
}

Engine::~Engine()
{
    renderer.releaseRender(nullptr);
}

i32 Engine::addVertices(i32 count)
{
    const std::size_t first = cameraVertices.size();
    const std::size_t total = first + std::size_t(count);
    cameraVertices.resize(total);
    vertexOutcodes.resize(total);
    vertexShades.resize(total);
    screenVertices.resize(total);
    vertexStamps.resize(total); // 0: the renderer counts its stamps from 1, so no new vertex passes for projected

    context_.cameraVertices = cameraVertices.data();
    context_.vertexOutcodes = vertexOutcodes.data();
    context_.vertexShades = vertexShades.data();
    context_.screenVertices = screenVertices.data();
    context_.vertexStamps = vertexStamps.data();
    return i32(first);
}

} // namespace sample_host
