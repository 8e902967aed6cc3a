// What a host and the renderer agree on beside the places of the fields, which the records' own assertions hold.
#include "kardeno_soft/kardeno_soft.h"

#include <doctest/doctest.h>

#include <string>

using namespace kardeno;

TEST_CASE("the outcode bits are near 1, far 2, left 4, right 8, top 16 and bottom 32")
{
    CHECK(outcodeNear == 1);
    CHECK(outcodeFar == 2);
    CHECK(outcodeLeft == 4);
    CHECK(outcodeRight == 8);
    CHECK(outcodeTop == 16);
    CHECK(outcodeBottom == 32);
    CHECK(outcodeAll == 63);
}

TEST_CASE("what a host writes into its records has the numbers that old hosts write")
{
    CHECK(bitsPerPixel555 == 15);
    CHECK(bitsPerPixel565 == 16);
    CHECK(bitsPerTexelPalettised == 8);
    CHECK(bitsPerTexelPixels == 16);
    CHECK(transparencyNone == 0);
    CHECK(transparencyHalf == 50);
    CHECK(shadingPlain == 0);
    CHECK(shadingColourKey == 1);
    CHECK(shadingAdditive == 2);
    CHECK(shadingBillboardOverAll == 10);
    CHECK(shadingBillboard == 11);
    CHECK(stateUnlit == 0);
    CHECK(stateLit == 1);
    CHECK(stateLitToo == 2);
    CHECK(frameClear == 1);
    CHECK(fewestFaceCorners == 3);
    CHECK(mostFaceCorners == 10);
}

TEST_CASE("the flags of a material are 1, 2, 4, 8, 64, 256 and 512")
{
    CHECK(flagTextured == 1);
    CHECK(flagShade1 == 2);
    CHECK(flagHalfTransparent == 4);
    CHECK(flagOtherTransparency == 8);
    CHECK(flagShade2 == 64);
    CHECK(flagShade10 == 256);
    CHECK(flagShade11 == 512);
}

TEST_CASE("the version's text and number are made of its three parts")
{
    const std::string text = std::to_string(KARDENO_VERSION_MAJOR) + "." + std::to_string(KARDENO_VERSION_MINOR) + "."
                             + std::to_string(KARDENO_VERSION_PATCH);
    CHECK(text == KARDENO_VERSION);
    CHECK(KARDENO_VERSION_NUMBER
          == KARDENO_VERSION_MAJOR * 10000 + KARDENO_VERSION_MINOR * 100 + KARDENO_VERSION_PATCH);
}
