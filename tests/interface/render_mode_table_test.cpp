// The twenty rows, by what their routines do: which list a row's emission routine feeds, and what its clippers carry.
#include "geometry/polygon_lists.h"
#include "host/render_modes.h"
#include "interface/render_mode_table.h"
#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

#include <cstring>
#include <set>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// What a row's polygons carry beside their position: t texture coordinates, i intensity, c colours.
struct ExpectedRow {
    const char* name;
    RenderModeRow row;
    const PolygonList& list;
    const char* carried;
};

// clang-format off
const ExpectedRow expectedRows[] = {
    {"FallbackFlat",                 rowFallbackFlat,                 resolvedPolygons,   ""},
    {"FallbackBlend",                rowFallbackBlend,                sortedPolygons,     ""},
    {"UnlitPlain",                   rowUnlitPlain,                   resolvedPolygons,   ""},
    {"UnlitTextured",                rowUnlitTextured,                resolvedPolygons,   "t"},
    {"UnlitTexturedShade1",          rowUnlitTexturedShade1,          sortedPolygons,     "t"},
    {"UnlitTranslucent",             rowUnlitTranslucent,             sortedPolygons,     ""},
    {"UnlitTexturedTranslucent",     rowUnlitTexturedTranslucent,     sortedPolygons,     "t"},
    {"UnlitTexturedShade2",          rowUnlitTexturedShade2,          sortedPolygons,     "t"},
    {"UnlitTexturedShade10",         rowUnlitTexturedShade10,         lateSortedPolygons, "t"},
    {"UnlitTexturedShade11",         rowUnlitTexturedShade11,         sortedPolygons,     "t"},
    {"UnlitPalettised",              rowUnlitPalettised,              resolvedPolygons,   "t"},
    {"LitPlain",                     rowLitPlain,                     resolvedPolygons,   "i"},
    {"LitTextured",                  rowLitTextured,                  resolvedPolygons,   "ti"},
    {"LitTexturedShade1",            rowLitTexturedShade1,            sortedPolygons,     "ti"},
    {"LitTranslucent",               rowLitTranslucent,               sortedPolygons,     "i"},
    {"LitTexturedTranslucent",       rowLitTexturedTranslucent,       sortedPolygons,     "ti"},
    {"LitTexturedShade1Translucent", rowLitTexturedShade1Translucent, sortedPolygons,     "ti"},
    {"LitTexturedShade2",            rowLitTexturedShade2,            sortedPolygons,     "ti"},
    {"SpareA",                       rowSpareA,                       resolvedPolygons,   "c"},
    {"SpareB",                       rowSpareB,                       resolvedPolygons,   "tc"},
};
// clang-format on

using Floats = f32[maxCorners];

// Every array of numbers of the record set to a value per corner.
void setArrays(ScreenPolygon& polygon, f32 (*value)(i32 corner))
{
    for (Floats* array :
         {&polygon.screenX, &polygon.screenY, &polygon.invDepth, &polygon.viewX, &polygon.viewY, &polygon.viewZ,
          &polygon.texU, &polygon.texV, &polygon.intensity, &polygon.colourR, &polygon.colourG, &polygon.colourB}) {
        for (i32 corner = 0; corner < maxCorners; ++corner) (*array)[corner] = value(corner);
    }
}

// Which attribute arrays do not begin with the value: "t", "i" and "c", arrays of one letter agreeing.
std::string arraysWithout(const ScreenPolygon& polygon, f32 value)
{
    std::string letters;
    const bool texU = polygon.texU[0] != value;
    CHECK((polygon.texV[0] != value) == texU);
    if (texU) letters += 't';
    if (polygon.intensity[0] != value) letters += 'i';
    const bool red = polygon.colourR[0] != value;
    CHECK((polygon.colourG[0] != value) == red);
    CHECK((polygon.colourB[0] != value) == red);
    if (red) letters += 'c';
    return letters;
}

std::vector<ClipRoutine> clippersOf(const RenderMode& mode)
{
    return {mode.clip.nearPlane, mode.clip.farPlane,    mode.clip.rightPlane,
            mode.clip.leftPlane, mode.clip.bottomPlane, mode.clip.topPlane};
}

constexpr u32 insideBits[] = {outcodeNear, outcodeFar, outcodeRight, outcodeLeft, outcodeBottom, outcodeTop};

} // namespace

TEST_CASE("the table has twenty rows, FallbackFlat first and SpareB last")
{
    CHECK(renderModeRowCount == 20);
    CHECK(sizeof RenderModeTable == 20 * sizeof(RenderMode));
    u32 index = 0;
    for (const ExpectedRow& expected : expectedRows) {
        CAPTURE(expected.name);
        CHECK(expected.row == index++);
    }
    CHECK(index == 20);
}

TEST_CASE("initialisation fills words 1 to 8 of every row and leaves the state alone")
{
    TestHost host;
    i32 states[renderModeRowCount];
    for (u32 i = 0; i < renderModeRowCount; ++i) {
        states[i] = RenderModeTable[i].state;
        RenderModeTable[i] = {.state = 1000 + static_cast<i32>(i), .emit = nullptr, .clip = {}, .fill = nullptr};
    }

    Kardeno_Init_Render_Dll(&host.context());

    for (u32 i = 0; i < renderModeRowCount; ++i) {
        CAPTURE(i);
        const RenderMode& mode = RenderModeTable[i];
        CHECK(mode.state == 1000 + static_cast<i32>(i));
        CHECK(static_cast<bool>(mode.emit));
        for (const ClipRoutine clipper : clippersOf(mode)) CHECK(static_cast<bool>(clipper));
        CHECK(static_cast<bool>(mode.fill));
        RenderModeTable[i].state = states[i];
    }
}

TEST_CASE("each row's emission routine feeds its own list and prepares its own attributes")
{
    for (const ExpectedRow& expected : expectedRows) {
        CAPTURE(expected.name);
        TestHost host;
        TestScene scene(host);
        TestTexture texture(8, 4, 4);
        TestMaterial& material = scene.bareMaterial();
        material.textureMap = &texture.map;
        MaterialPrivate privateRecord = {&RenderModeTable[expected.row], nullptr};
        material.renderPrivate = &privateRecord;
        const TestFace& face = scene.addFace(scene.addRoot(), material, TestScene::rectangle(2, 2, 9, 9));
        for (VertexShade& shade : host.shades) shade = {1, 2, 3, 4};

        RenderModeTable[expected.row].emit(&scene.view.record, &face);

        for (const PolygonList* list : {&resolvedPolygons, &sortedPolygons, &lateSortedPolygons})
            CHECK(list->count == (list == &expected.list ? 1 : 0));
        REQUIRE(expected.list.storedCount == 1);
        ScreenPolygon record;
        expand(*expected.list.held, record);
        CHECK(arraysWithout(record, 0) == expected.carried);
        const bool resolved = &expected.list == &resolvedPolygons;
        CHECK(record.occludes == (resolved ? 1 : 0));
        if (!resolved) CHECK(record.maxDepth == 1);
    }
}

TEST_CASE("only the rows of the two billboards refuse faces that have not four corners")
{
    for (const ExpectedRow& expected : expectedRows) {
        CAPTURE(expected.name);
        TestHost host;
        TestScene scene(host);
        TestTexture texture(8, 4, 4);
        TestMaterial& material = scene.bareMaterial();
        material.textureMap = &texture.map;
        MaterialPrivate privateRecord = {&RenderModeTable[expected.row], nullptr};
        material.renderPrivate = &privateRecord;
        const TestFace& face = scene.addFace(scene.addRoot(), material, {{2, 2}, {2, 9}, {9, 9}});

        RenderModeTable[expected.row].emit(&scene.view.record, &face);

        const bool billboard = expected.row == rowUnlitTexturedShade10 || expected.row == rowUnlitTexturedShade11;
        CHECK(expected.list.count == (billboard ? 0 : 1));
    }
}

TEST_CASE("each row's six clippers stand in the order near, far, right, left, bottom, top")
{
    TestHost host;
    const TestView view;
    for (const ExpectedRow& expected : expectedRows) {
        CAPTURE(expected.name);
        const std::vector<ClipRoutine> clippers = clippersOf(RenderModeTable[expected.row]);
        for (size_t word = 0; word < 6; ++word) {
            for (size_t plane = 0; plane < 6; ++plane) {
                CAPTURE(word);
                CAPTURE(plane);
                // Inside this one plane and outside the five others.
                ScreenPolygon polygon = screenPolygon({{1, 1}, {1, 5}, {5, 5}}, view);
                for (i32 i = 0; i < 3; ++i) polygon.outcode[i] = insideBits[plane];
                clippers[word](&view.record, &polygon);
                CHECK(polygon.vertexCount == (word == plane ? 3 : 0));
            }
        }
    }
}

TEST_CASE("each row's clippers carry the attributes that its emission routine prepares, and no others")
{
    TestHost host;
    const TestView view;
    for (const ExpectedRow& expected : expectedRows) {
        for (const ClipRoutine clipper : clippersOf(RenderModeTable[expected.row])) {
            CAPTURE(expected.name);
            ScreenPolygon polygon = screenPolygon({{1, 1}, {1, 5}, {5, 5}}, view);
            setArrays(polygon, [](i32 corner) { return static_cast<f32>(corner); });
            clipper(&view.record, &polygon);
            // With all corners inside, the outline begins with corner 1, and so do the arrays that are carried along.
            REQUIRE(polygon.vertexCount == 3);
            CHECK(arraysWithout(polygon, 0) == expected.carried);
        }
    }
}

TEST_CASE("rows of one vertex format share its six clippers")
{
    TestHost host;
    for (const ExpectedRow& one : expectedRows) {
        for (const ExpectedRow& other : expectedRows) {
            CAPTURE(one.name);
            CAPTURE(other.name);
            const bool sameFormat = std::strcmp(one.carried, other.carried) == 0;
            CHECK((clippersOf(RenderModeTable[one.row]) == clippersOf(RenderModeTable[other.row])) == sameFormat);
        }
    }
}

TEST_CASE("twelve emission routines and nineteen fillers: modes 2 and 11 of unlit textures share theirs")
{
    TestHost host;
    std::set<EmitRoutine> emitters;
    std::set<FillRoutine> fillers;
    for (const RenderMode& mode : RenderModeTable) {
        emitters.insert(mode.emit);
        fillers.insert(mode.fill);
    }
    CHECK(emitters.size() == 12);
    CHECK(fillers.size() == 19);
    CHECK((RenderModeTable[rowUnlitTexturedShade2].fill == RenderModeTable[rowUnlitTexturedShade11].fill));
}
