// The one slot through which the renderer reaches the host's services and vertex arrays.
#pragma once

#include "interface/host_records.h"

namespace kardeno {

// Borrowed from the host at initialisation, for the library's lifetime; null before.
extern HostContext* hostContext;

// The two pixel formats of the frame buffer. Tables of routines are indexed by it.
enum PixelFormat : u32 { rgb555 = 0, rgb565 = 1, pixelFormatCount = 2 };

// Intended: two tests of bitsPerPixel. Tables and ramps take 16 as 5-6-5 and anything else as 5-5-5; the span fillers
// take 15 as 5-5-5 and anything else as 5-6-5. Hosts pass 15 or 16, for which they agree.
inline PixelFormat tableFormat(const HostContext& context)
{
    return context.bitsPerPixel == 16 ? rgb565 : rgb555;
}

inline PixelFormat fillerFormat(const HostContext& context)
{
    return context.bitsPerPixel == 15 ? rgb555 : rgb565;
}

} // namespace kardeno
