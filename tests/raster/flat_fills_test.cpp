#include "raster/flat_fills.h"
#include "tests/raster/filler_setup.h"

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// A polygon of one span, columns 2 to 6 of row 1, in a frame of 8 x 3 pixels.
struct FlatPolygon {
    explicit FlatPolygon(i32 bitsPerPixel) : host(bitsPerPixel)
    {
        std::memset(static_cast<void*>(&material), 0, sizeof material);
        std::memset(&polygon, 0, sizeof polygon);
        polygon.material = &material;
        spans.give(polygon, {{2, 5, 1}});
    }

    // Row 1 after the filler has drawn over pixels of one colour; the other rows must be as they were.
    std::string drawn(FillRoutine fill, u16 over)
    {
        TestFrame frame(8, 3, over);
        fill(&polygon, frame.pixels(), 0, static_cast<u32>(frame.pitch()));
        CHECK(frame.fencesStand());
        CHECK(frame.row(0, 0, 8) == Pixels(8, over));
        CHECK(frame.row(2, 0, 8) == Pixels(8, over));
        return text(frame.row(1, 0, 8));
    }

    TestHost host;
    SpanLists spans;
    SceneMaterial material;
    ScreenPolygon polygon;
};

} // namespace

TEST_CASE("the low byte of the face colour is repeated in both bytes of every pixel: 0x1234 draws 0x3434")
{
    FlatPolygon flat(16);
    flat.polygon.faceColour = 0x1234;
    CHECK(flat.drawn(fillFaceColourLowByte, 0x7777) == "7777 7777 3434 3434 3434 3434 3434 7777");
}

TEST_CASE("a face colour of 0xf800 draws 0x0000, one of 0x00ff draws 0xffff")
{
    FlatPolygon flat(16);
    flat.polygon.faceColour = 0xf800;
    CHECK(flat.drawn(fillFaceColourLowByte, 0x7777) == "7777 7777 0000 0000 0000 0000 0000 7777");
    flat.polygon.faceColour = 0x00ff;
    CHECK(flat.drawn(fillFaceColourLowByte, 0x7777) == "7777 7777 ffff ffff ffff ffff ffff 7777");
}

TEST_CASE("the face colour fill writes exactly its span, of any length and from any column")
{
    FlatPolygon flat(16);
    flat.polygon.faceColour = 0x5a;
    for (i32 x = 0; x < 4; ++x) {
        for (i32 length = 0; length <= 12; ++length) {
            TestFrame frame(16, 1, 0x7777);
            flat.spans.give(flat.polygon, {{x, length, 0}});
            fillFaceColourLowByte(&flat.polygon, frame.pixels(), 0, static_cast<u32>(frame.pitch()));
            Pixels expected(16, 0x7777);
            for (i32 i = 0; i < length; ++i) expected[static_cast<size_t>(x + i)] = 0x5a5a;
            CHECK(text(frame.row(0, 0, 16)) == text(expected));
            CHECK(frame.fencesStand());
        }
    }
}

TEST_CASE("the face colour half blend mixes the whole face colour with each pixel")
{
    // 0x7c21 over 0x0c63. In 5-5-5: (0x7801 + 0x0843) / 2 = 0x4022. In 5-6-5 (0x7401 + 0x0443) / 2 = 0x3c22.
    FlatPolygon in555(15);
    in555.polygon.faceColour = 0x7c21;
    CHECK(in555.drawn(fillFaceColourHalfBlend, 0x0c63) == "0c63 0c63 4022 4022 4022 4022 4022 0c63");
}

TEST_CASE("the face colour half blend of 5-6-5 has that format's mask")
{
    FlatPolygon in565(16);
    in565.polygon.faceColour = 0x7c21;
    CHECK(in565.drawn(fillFaceColourHalfBlend, 0x0c63) == "0c63 0c63 3c22 3c22 3c22 3c22 3c22 0c63");
}

TEST_CASE("the material colour fill stores the packed diffuse colour as it is, in either format")
{
    for (const i32 bitsPerPixel : {15, 16}) {
        FlatPolygon flat(bitsPerPixel);
        flat.polygon.faceColour = 0x5555;
        flat.material.diffuseColour = {.red = 1, .green = 2, .blue = 3, .packed = 0xfedc};
        CHECK(flat.drawn(fillDiffuse, 0x7777) == "7777 7777 fedc fedc fedc fedc fedc 7777");
    }
}

TEST_CASE("the material half fill mixes the packed diffuse colour with each pixel")
{
    // As above.
    FlatPolygon in555(15);
    in555.material.diffuseColour.packed = 0x7c21;
    in555.polygon.faceColour = 0x5555;
    CHECK(in555.drawn(fillDiffuseHalfBlend, 0x0c63) == "0c63 0c63 4022 4022 4022 4022 4022 0c63");
}

TEST_CASE("the material half fill of 5-6-5 has that format's mask")
{
    FlatPolygon in565(16);
    in565.material.diffuseColour.packed = 0x7c21;
    in565.polygon.faceColour = 0x5555;
    CHECK(in565.drawn(fillDiffuseHalfBlend, 0x0c63) == "0c63 0c63 3c22 3c22 3c22 3c22 3c22 0c63");
}

TEST_CASE("every pixel of a half fill is mixed with what lies under it")
{
    FlatPolygon flat(16);
    flat.material.diffuseColour.packed = 0x0010;
    TestFrame frame(4, 1, 0);
    for (i32 x = 0; x < 4; ++x) frame.at(x, 0) = static_cast<u16>(2 * x);
    flat.spans.give(flat.polygon, {{0, 4, 0}});
    fillDiffuseHalfBlend(&flat.polygon, frame.pixels(), 0, static_cast<u32>(frame.pitch()));
    CHECK(text(frame.row(0, 0, 4)) == "0008 0009 000a 000b");
}

TEST_CASE("flat fills draw all spans of the list, on any rows")
{
    for (const FillRoutine fill : {fillFaceColourLowByte, fillDiffuse}) {
        FlatPolygon flat(16);
        flat.polygon.faceColour = 0x11;
        flat.material.diffuseColour.packed = 0x1111;
        flat.spans.give(flat.polygon, {{1, 2, 2}, {5, 1, 0}, {0, 0, 1}, {0, 1, 0}});
        TestFrame frame(6, 3, 0x7777);
        fill(&flat.polygon, frame.pixels(), 0, static_cast<u32>(frame.pitch()));
        CHECK(text(frame.row(0, 0, 6)) == "1111 7777 7777 7777 7777 1111");
        CHECK(text(frame.row(1, 0, 6)) == "7777 7777 7777 7777 7777 7777");
        CHECK(text(frame.row(2, 0, 6)) == "7777 1111 1111 7777 7777 7777");
    }
}
