#include "tests/raster/row_setup.h"

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;
using enum kardeno::tests::Addressing;
using enum kardeno::tests::Format;

namespace {

const RowSettings additive = {.bitsPerTexel = 16, .destination = 0x4a52};

using Picture = std::vector<std::string>; // a line a row

std::string joined(const Picture& picture)
{
    std::string result;
    for (const std::string& row : picture) result += "\n" + row;
    return result;
}

// What the rows 0 to 3 hold after the filler, of a polygon without spans.
std::string drawnRows(RowScene& scene, i32 x, i32 xEnd)
{
    TestFrame frame(40, 4, scene.destination);
    scene.fill(frame);
    CHECK(frame.fencesStand());
    Picture rows;
    for (i32 y = 0; y < 4; ++y) rows.push_back(text(frame.row(y, x, xEnd)));
    return joined(rows);
}

// A map whose texels are all 0x0001 adds 1 to the blue of every pixel: 0x4a52 becomes 0x4a53 in 5-5-5.
struct PlainScene : RowScene {
    PlainScene() : RowScene(rowUnlitTexturedShade10, additive, 15, any, SetUp::flat)
    {
        for (i32 y = 0; y < 16; ++y) {
            for (i32 x = 0; x < 16; ++x) texture.setTexel(x, y, 1);
        }
        drawnRectangle = {0, 0, 12, 6};
    }

    void setOutline(const std::vector<Corner>& corners)
    {
        polygon.vertexCount = 0;
        for (const Corner& corner : corners) {
            const i32 i = polygon.vertexCount++;
            polygon.screenX[i] = corner.x;
            polygon.scanY[i] = static_cast<i32>(corner.y);
            polygon.invDepth[i] = 1;
        }
    }

    // One line a row: '#' where 1 was added, '.' where nothing was drawn, '?' anything else.
    std::string picture()
    {
        TestFrame frame(12, 6, destination);
        fill(frame);
        CHECK(frame.fencesStand());
        Picture rows;
        for (i32 y = 0; y < 6; ++y) {
            std::string row;
            for (const u16 pixel : frame.row(y, 0, 12)) {
                row += pixel == destination ? '.' : pixel == destination + 1 ? '#' : '?';
            }
            rows.push_back(row);
        }
        return joined(rows);
    }
};

} // namespace

TEST_CASE("the row UnlitTexturedShade10 adds the texture on every row of the outline, and truncates on any map")
{
    // No span was made for the polygon. Rows 0 to 3 are alike; the first 9 columns of each:
    struct Line {
        i32 bitsPerPixel;
        Addressing addressing;
        SetUp setUp;
        const char* pixels;
    };
    // clang-format off
    const Line lines[] = {
        {15, square, SetUp::flat,     "ffff ffff ffff ffff fe52 fe52 7fff 7ff4 | 6fff"},
        {16, square, SetUp::flat,     "afff afff 9fff 9fff 8652 8652 757f 7554 | 647f"},
        {15, any,    SetUp::flat,     "ffff ffff ffff ffff ff52 ff52 fe7f fe54 | 7fff"},
        {16, any,    SetUp::flat,     "afff afff 9fff 9fff 9752 9752 867f 8654 | 757f"},
        {15, square, SetUp::receding, "fe52 fff2 fff2 fff2 fff2 ffff ffff ffff | 77ff"},
        {16, square, SetUp::receding, "fe52 f552 f552 f552 f552 f57f f57f f57f | e47f"},
        {15, any,    SetUp::receding, "fe52 fff2 fff2 fff2 fff2 ffff ffff ffff | 77ff"},
        {16, any,    SetUp::receding, "fe52 f552 f552 f552 f552 f57f f57f f57f | e47f"},
    };
    // clang-format on
    for (const Line& line : lines) {
        CAPTURE(line.pixels);
        RowScene scene(rowUnlitTexturedShade10, additive, line.bitsPerPixel, line.addressing, line.setUp);
        CHECK(drawnRows(scene, 0, 9) == joined(Picture(4, line.pixels)));
    }
}

TEST_CASE("a whole outline is drawn where it has no spans, and its spans are not looked at")
{
    PlainScene scene;
    scene.setOutline({{2, 1}, {2, 4}, {9, 4}, {9, 1}});
    for (const i32 y : {0, 4}) { // what an earlier polygon may have left there
        OutlineTable[y] = {};
        OutlineTable[y].right.x = 12;
    }
    const std::string whole = joined({
        "............", //
        "..#######...", //
        "..#######...", //
        "..#######...", //
        "............", // the bottom row, 4, is not drawn
        "............",
    });
    CHECK(scene.picture() == whole);
    scene.spans.give(scene.polygon, {{0, 12, 0}, {0, 12, 5}});
    CHECK(scene.picture() == whole);
}

TEST_CASE("a whole outline runs from the left chain's column up to the right chain's on each row")
{
    // A diamond: left 5, 3, 1, 3; right 5, 7, 9, 7. Its top row has no width.
    PlainScene scene;
    scene.setOutline({{5, 1}, {1, 3}, {5, 5}, {9, 3}});
    CHECK(scene.picture()
          == joined({
              "............",
              "............",
              "...####.....",
              ".########...",
              "...####.....",
              "............",
          }));
}

TEST_CASE("a whole outline in the other winding draws nothing")
{
    PlainScene scene;
    scene.setOutline({{2, 1}, {9, 1}, {9, 4}, {2, 4}});
    CHECK(scene.picture() == joined(Picture(6, "............")));
}

TEST_CASE("a whole outline whose chains cross draws the rows that are the right way round")
{
    // Left from column 2 by 3 a row, right from column 8 by -1: 2 to 8, 5 to 7, then 8 to 6 and 11 to 5.
    PlainScene scene;
    scene.setOutline({{2, 0}, {14, 4}, {4, 4}, {8, 0}});
    CHECK(scene.picture()
          == joined({
              "..######....",
              ".....##.....",
              "............",
              "............",
              "............",
              "............",
          }));
}

TEST_CASE("a whole outline is cut to the drawn rectangle on all four sides")
{
    PlainScene scene;
    scene.setOutline({{-20, -3}, {-20, 300}, {70, 300}, {70, -3}});
    drawnRectangle = {.left = 3, .top = 1, .right = 7, .bottom = 4};
    CHECK(scene.picture()
          == joined({
              "............",
              "...####.....",
              "...####.....",
              "...####.....",
              "............",
              "............",
          }));
}

TEST_CASE("a whole outline beside the drawn rectangle draws nothing")
{
    PlainScene scene;
    drawnRectangle = {.left = 3, .top = 1, .right = 7, .bottom = 4};
    const std::string nothing = joined(Picture(6, "............"));
    scene.setOutline({{0, 1}, {0, 4}, {3, 4}, {3, 1}});
    CHECK(scene.picture() == nothing);
    scene.setOutline({{7, 1}, {7, 4}, {9, 4}, {9, 1}});
    CHECK(scene.picture() == nothing);
    scene.setOutline({{4, -3}, {4, 1}, {6, 1}, {6, -3}});
    CHECK(scene.picture() == nothing);
    scene.setOutline({{4, 4}, {4, 6}, {6, 6}, {6, 4}});
    CHECK(scene.picture() == nothing);
}

TEST_CASE("a whole outline over a drawn rectangle with negative columns draws them")
{
    // A frame may begin in the middle of a row: column -2 lies before it.
    PlainScene scene;
    scene.setOutline({{-2, 1}, {-2, 2}, {2, 2}, {2, 1}});
    drawnRectangle = {.left = -5, .top = 0, .right = 10, .bottom = 6};
    TestFrame frame(12, 3, scene.destination);
    modeOf(scene.material).fill(&scene.polygon, frame.pixels() + 5, 0, static_cast<u32>(frame.pitch()));
    CHECK(text(frame.row(1, 0, 9)) == "4a52 4a52 4a52 4a53 4a53 4a53 4a53 4a52 | 4a52");
}

TEST_CASE("a whole outline that is cut on the left goes on with the values of its first drawn column")
{
    // The flat set-up from column 4 on: texels (0, 5), (0, 5), (1, 4), ... of any map.
    RowScene scene(rowUnlitTexturedShade10, additive, 16, any, SetUp::flat);
    drawnRectangle = {.left = 4, .top = 0, .right = 40, .bottom = 4};
    CHECK(drawnRows(scene, 0, 9) == joined(Picture(4, "4a52 4a52 4a52 4a52 9752 9752 867f 8654 | 757f")));
}

TEST_CASE("a whole outline starts with the left values at the left column, where it is not cut")
{
    // Moved 3 columns to the right, it draws there what it drew from column 0 on.
    RowScene scene(rowUnlitTexturedShade10, additive, 16, square, SetUp::receding);
    for (i32 i = 0; i < 4; ++i) scene.polygon.screenX[i] += 3;
    CHECK(drawnRows(scene, 0, 12)
          == joined(Picture(4, "4a52 4a52 4a52 fe52 f552 f552 f552 f552 | f57f f57f f57f e47f")));
}
