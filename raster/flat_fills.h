// The four fillers that draw a polygon in one colour, and their forms for runs of polygons.
#pragma once

#include "raster/run_fills.h"

namespace kardeno {

// Sets all pixels of the spans to 0.
void clearSpans(const SpanList& spans, const FillTarget& target);

// Draws the low byte of the face colour in both bytes of every pixel.
// Intended: the low byte of the face colour, repeated in both bytes of every pixel: 0x1234 draws 0x3434.
void fillFaceColourLowByte(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

// Blends the face colour half and half with the pixels that are already there.
void fillFaceColourHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

// Draws the material's packed diffuse colour.
void fillDiffuse(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

// Blends the material's packed diffuse colour half and half with the pixels that are already there.
void fillDiffuseHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

void fillRunFaceColourLowByte(PolygonRun& run, const FillTarget& target);
void fillRunFaceColourHalfBlend(PolygonRun& run, const FillTarget& target);
void fillRunDiffuse(PolygonRun& run, const FillTarget& target);
void fillRunDiffuseHalfBlend(PolygonRun& run, const FillTarget& target);

} // namespace kardeno
