#include "geometry/screen_polygon.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace kardeno;

TEST_CASE("a screen polygon is 256 words: counts, outcodes, depth, thirteen arrays of sixteen, and its bookkeeping")
{
    CHECK(sizeof(ScreenPolygon) == 256 * 4);
    CHECK(maxCorners == 16);

    // Offsets in words.
    const auto at = [](size_t offset) { return offset / 4; };
    CHECK(at(offsetof(ScreenPolygon, vertexCount)) == 0);
    CHECK(at(offsetof(ScreenPolygon, outcodeAnd)) == 1);
    CHECK(at(offsetof(ScreenPolygon, outcodeOr)) == 2);
    CHECK(at(offsetof(ScreenPolygon, outcode)) == 3);
    CHECK(at(offsetof(ScreenPolygon, maxDepth)) == 19);
    CHECK(at(offsetof(ScreenPolygon, screenX)) == 20);
    CHECK(at(offsetof(ScreenPolygon, screenY)) == 36);
    CHECK(at(offsetof(ScreenPolygon, invDepth)) == 52);
    CHECK(at(offsetof(ScreenPolygon, viewX)) == 68);
    CHECK(at(offsetof(ScreenPolygon, viewY)) == 84);
    CHECK(at(offsetof(ScreenPolygon, viewZ)) == 100);
    CHECK(at(offsetof(ScreenPolygon, texU)) == 116);
    CHECK(at(offsetof(ScreenPolygon, texV)) == 132);
    CHECK(at(offsetof(ScreenPolygon, intensity)) == 148);
    CHECK(at(offsetof(ScreenPolygon, colourR)) == 164);
    CHECK(at(offsetof(ScreenPolygon, colourG)) == 180);
    CHECK(at(offsetof(ScreenPolygon, colourB)) == 196);
    CHECK(at(offsetof(ScreenPolygon, scanY)) == 212);
    CHECK(at(offsetof(ScreenPolygon, reserved)) == 228);
    CHECK(at(offsetof(ScreenPolygon, material)) == 244);
    CHECK(at(offsetof(ScreenPolygon, faceColour)) == 245);
    CHECK(at(offsetof(ScreenPolygon, spanHead)) == 246);
    CHECK(at(offsetof(ScreenPolygon, invDepthStepX)) == 247);
    CHECK(at(offsetof(ScreenPolygon, invDepthStepY)) == 248);
    CHECK(at(offsetof(ScreenPolygon, invDepthOrigin)) == 249);
    CHECK(at(offsetof(ScreenPolygon, above)) == 250);
    CHECK(at(offsetof(ScreenPolygon, below)) == 251);
    CHECK(at(offsetof(ScreenPolygon, activeCount)) == 252);
    CHECK(at(offsetof(ScreenPolygon, engineWord)) == 253);
    CHECK(at(offsetof(ScreenPolygon, occludes)) == 254);
    CHECK(at(offsetof(ScreenPolygon, engineFlag)) == 255);
}

TEST_CASE("the face's colour is the low half of its word")
{
    CHECK(offsetof(ScreenPolygon, faceColour) % 4 == 0);
    CHECK(sizeof(ScreenPolygon::faceColour) == 2);
}
