// The four fillers that draw a polygon in one colour.
#pragma once

#include "geometry/screen_polygon.h"

namespace kardeno {

// Intended: the low byte of the face colour, repeated in both bytes of every pixel: 0x1234 draws 0x3434.
void fillFaceColourLowByte(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

// Half blend of the face colour.
void fillFaceColourHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

// The material's packed diffuse colour.
void fillDiffuse(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

// Half blend of the material's packed diffuse colour.
void fillDiffuseHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

} // namespace kardeno
