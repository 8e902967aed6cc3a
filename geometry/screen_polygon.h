// A screen polygon is the working form of a face: the clippers rewrite its outline in place, which lies in one array
// per vertex attribute, and the plain fillers read it. Its size is fixed, so a vertex is reached by its index and no
// polygon needs an allocation of its own. What a list keeps of it is a StoredPolygon.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

inline constexpr i32 maxCorners = 16;

// Arrays that the polygon's vertex format does not use hold stale data.
struct ScreenPolygon {
    i32 vertexCount;
    u32 outcodeAnd;          // of the face's vertices before clipping; a plane whose bit is set needs no clipper
    u32 outcodeOr;           // likewise; a plane whose bit is clear has no vertex inside
    u32 outcode[maxCorners]; // a bit that is set means that the vertex lies inside that plane
    i32 maxDepth;            // the largest truncated viewZ after near and far clipping; set in sorted lists only
    f32 screenX[maxCorners];
    f32 screenY[maxCorners];
    f32 invDepth[maxCorners];
    f32 viewX[maxCorners]; // camera space; viewX and viewY are filled only for faces that are clipped there
    f32 viewY[maxCorners];
    f32 viewZ[maxCorners];
    f32 texU[maxCorners]; // in 1/256 texel; divided by depth after projection
    f32 texV[maxCorners];
    f32 intensity[maxCorners]; // light intensity x 64; divided by depth in polygons without a texture
    f32 colourR[maxCorners];
    f32 colourG[maxCorners];
    f32 colourB[maxCorners];
    i32 scanY[maxCorners]; // screenY after all clipping, truncated
    u32 reserved[maxCorners];
    SceneMaterial* material; // borrowed from the host
    u16 faceColour;
    u16 faceColourHigh;
    i32 spanHead; // index of the first visible span in the span pool; -1 when there is none
    f32 invDepthStepX;
    f32 invDepthStepY;
    f32 invDepthOrigin;
    // The places of what the scanline resolver notes about a polygon. It keeps its notes in a PolygonState of the span
    // buffer; emission sets the values that a polygon begins with.
    ScreenPolygon* above;
    ScreenPolygon* below;
    i32 activeCount;
    i32 engineWord;
    i32 occludes; // 1 when the polygon hides what lies farther; 0 when it is see-through
    i32 engineFlag;
};
KARDENO_SIZE(ScreenPolygon, 1024, 1040);
KARDENO_OFFSET(ScreenPolygon, vertexCount, 0, 0);
KARDENO_OFFSET(ScreenPolygon, outcodeAnd, 4, 4);
KARDENO_OFFSET(ScreenPolygon, outcodeOr, 8, 8);
KARDENO_OFFSET(ScreenPolygon, outcode, 12, 12);
KARDENO_OFFSET(ScreenPolygon, maxDepth, 76, 76);
KARDENO_OFFSET(ScreenPolygon, screenX, 80, 80);
KARDENO_OFFSET(ScreenPolygon, screenY, 144, 144);
KARDENO_OFFSET(ScreenPolygon, invDepth, 208, 208);
KARDENO_OFFSET(ScreenPolygon, viewX, 272, 272);
KARDENO_OFFSET(ScreenPolygon, viewY, 336, 336);
KARDENO_OFFSET(ScreenPolygon, viewZ, 400, 400);
KARDENO_OFFSET(ScreenPolygon, texU, 464, 464);
KARDENO_OFFSET(ScreenPolygon, texV, 528, 528);
KARDENO_OFFSET(ScreenPolygon, intensity, 592, 592);
KARDENO_OFFSET(ScreenPolygon, colourR, 656, 656);
KARDENO_OFFSET(ScreenPolygon, colourG, 720, 720);
KARDENO_OFFSET(ScreenPolygon, colourB, 784, 784);
KARDENO_OFFSET(ScreenPolygon, scanY, 848, 848);
KARDENO_OFFSET(ScreenPolygon, reserved, 912, 912);
KARDENO_OFFSET(ScreenPolygon, material, 976, 976);
KARDENO_OFFSET(ScreenPolygon, faceColour, 980, 984);
KARDENO_OFFSET(ScreenPolygon, faceColourHigh, 982, 986);
KARDENO_OFFSET(ScreenPolygon, spanHead, 984, 988);
KARDENO_OFFSET(ScreenPolygon, invDepthStepX, 988, 992);
KARDENO_OFFSET(ScreenPolygon, invDepthStepY, 992, 996);
KARDENO_OFFSET(ScreenPolygon, invDepthOrigin, 996, 1000);
KARDENO_OFFSET(ScreenPolygon, above, 1000, 1008);
KARDENO_OFFSET(ScreenPolygon, below, 1004, 1016);
KARDENO_OFFSET(ScreenPolygon, activeCount, 1008, 1024);
KARDENO_OFFSET(ScreenPolygon, engineWord, 1012, 1028);
KARDENO_OFFSET(ScreenPolygon, occludes, 1016, 1032);
KARDENO_OFFSET(ScreenPolygon, engineFlag, 1020, 1036);

} // namespace kardeno
