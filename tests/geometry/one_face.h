// One face of a material of its own, handed to an emission routine directly, and what is seen of the polygon that it
// becomes. There are two ways to see it: the screen polygon that the long way of emission makes, which has the outcodes
// and the camera space too, and the polygon that the list stores. Wherever a test looks at the one, both are compared.
#pragma once

#include "geometry/billboards.h"
#include "geometry/emission.h"
#include "tests/support/test_host.h"
#include "tests/support/test_view.h"

#include <doctest/doctest.h>

#include <bit>
#include <cstring>
#include <deque>

namespace kardeno::tests {

// The values of an array of a record's corners; printed when a check fails.
struct Values : std::vector<f32> {
    using std::vector<f32>::vector;
};

inline std::ostream& operator<<(std::ostream& out, const Values& values)
{
    for (const f32 value : values) out << value << ' ';
    return out;
}

inline Values valuesOf(const ScreenPolygon& polygon, const f32 (&array)[maxCorners])
{
    return Values(array, array + polygon.vertexCount);
}

inline std::vector<u32> outcodesOf(const ScreenPolygon& polygon)
{
    return std::vector<u32>(polygon.outcode, polygon.outcode + polygon.vertexCount);
}

// What a screen polygon is full of before it is made. As a number it is 195.26.
constexpr u8 unsetByte = 0x43;
constexpr u32 unsetWord = 0x43434343;
inline const f32 unsetValue = std::bit_cast<f32>(unsetWord);

// A face that is given corner by corner. Its texture is 64 x 32 texels.
class OneFace {
public:
    TestHost host;
    TestView view;
    SceneFace face;
    SceneMaterial material;
    RenderMode mode = {};
    MaterialPrivate privateRecord = {&mode, nullptr};
    TextureMap map;
    TextureImage image;
    u16 colour = 0x1234;

    explicit OneFace(const TestView::Settings& settings = {}) : view(settings)
    {
        std::memset(&face, 0, sizeof face);
        std::memset(&material, 0, sizeof material);
        std::memset(&map, 0, sizeof map);
        std::memset(&image, 0, sizeof image);
        image.width = 64;
        image.height = 32;
        map.image = &image;
        material.textureMap = &map;
        material.renderPrivate = &privateRecord;
        face.material = &material;
        face.faceColour = &colour;
        face.normalZ = 1;
    }

    void corner(const CameraVertex& at, u32 outcode = outcodeAll, const TexCoord& texCoord = {},
                const VertexShade& shade = {})
    {
        indices.push_back(host.addVertex(at.x, at.y, at.z, outcode));
        host.shades.back() = shade;
        texCoords.push_back(texCoord);
        face.vertexCount = static_cast<i32>(indices.size());
        face.vertexIndices = indices.data();
        face.texCoords = texCoords.data();
    }

    // A corner at depth 1 under the plainest projection: x and y are its screen coordinates, the outcode is the view's.
    void screenCorner(f32 x, f32 y, const TexCoord& texCoord = {})
    {
        corner({x, -y, 1}, screenOutcode(view.record, x, y), texCoord);
    }

    // A triangle well inside everything.
    void triangle()
    {
        screenCorner(10, 10);
        screenCorner(10, 20);
        screenCorner(20, 20);
    }

    // The screen polygon that the face becomes; null when it is dropped. The clippers are those of the format.
    template <class Format, class TargetList>
    ScreenPolygon* emitted()
    {
        mode.clip = clippers<Format>;
        return emittedWithOwnClippers<Format, TargetList>();
    }

    // The same with the clippers that stand in `mode`. They run twice when the face is taken.
    template <class Format, class TargetList>
    ScreenPolygon* emittedWithOwnClippers()
    {
        if (!isTaken<TargetList>(emit<Format, TargetList>)) return nullptr;
        ScreenPolygon& record = unsetRecord();
        REQUIRE(makePolygon<Format, TargetList>(host.context(), view.record, face, record));
        compareWithStored<Format, TargetList>(record);
        return &record;
    }

    template <class TargetList>
    ScreenPolygon* emittedBillboard()
    {
        mode.clip = clippers<Textured>;
        if (!isTaken<TargetList>(emitBillboard<TargetList>)) return nullptr;
        ScreenPolygon& record = unsetRecord();
        REQUIRE(makeBillboard<TargetList>(host.context(), view.record, face, record));
        compareWithStored<Textured, TargetList>(record);
        return &record;
    }

    // Emits the face and looks at nothing but whether the list took it.
    template <class TargetList>
    bool isTaken(EmitRoutine routine)
    {
        const i32 before = TargetList::list().count;
        routine(&view.record, &face);
        return TargetList::list().count != before;
    }

private:
    std::vector<i32> indices;
    std::vector<TexCoord> texCoords;
    std::deque<ScreenPolygon> records; // those that tests still look at stay where they are

    ScreenPolygon& unsetRecord()
    {
        ScreenPolygon& record = records.emplace_back();
        std::memset(static_cast<void*>(&record), unsetByte, sizeof record);
        return record;
    }

    // Checks that the polygon that the list took last is this one, in everything that is stored of it.
    template <class Format, class TargetList>
    static void compareWithStored(const ScreenPolygon& record)
    {
        const PolygonList& list = TargetList::list();
        if (!list.lastIsStored) {
            CHECK_FALSE(TargetList::sorted);
            for (i32 i = 0; i < record.vertexCount; ++i) CHECK(record.scanY[i] == record.scanY[0]);
            return;
        }
        const auto& stored =
            *reinterpret_cast<const StoredPolygon*>(reinterpret_cast<const u8*>(list.end()) - list.lastBytes);
        CHECK(stored.format == Format::id);
        CHECK(stored.bytes == list.lastBytes);
        CHECK(stored.state == unseenState);

        ScreenPolygon expanded;
        expand(stored, expanded);
        CHECK(expanded.vertexCount == record.vertexCount);
        CHECK(expanded.material == record.material);
        CHECK(expanded.faceColour == record.faceColour);
        CHECK(expanded.occludes == record.occludes);
        if (TargetList::sorted) CHECK(expanded.maxDepth == record.maxDepth);
        if (TargetList::resolved) CHECK(std::memcmp(&expanded.invDepthStepX, &record.invDepthStepX, 3 * 4) == 0);
        const auto sameValues = [&](const auto& one, const auto& other) {
            return std::memcmp(&one, &other, static_cast<size_t>(record.vertexCount) * 4) == 0;
        };
        CHECK(sameValues(expanded.screenX, record.screenX));
        CHECK(sameValues(expanded.scanY, record.scanY));
        if (isInPerspective<Format>) CHECK(sameValues(expanded.invDepth, record.invDepth));
        Format::Attributes::forEach(
            [&]<class Attribute>() { CHECK(sameValues(expanded.*Attribute::values, record.*Attribute::values)); });
    }
};

// A polygon in camera space, as it reaches the near and far clippers. All of its corners lie inside the side planes.
inline ScreenPolygon cameraPolygon(std::initializer_list<CameraVertex> vertices, const TestView& view)
{
    ScreenPolygon polygon;
    std::memset(&polygon, 0, sizeof polygon);
    for (const CameraVertex& vertex : vertices) {
        const i32 i = polygon.vertexCount++;
        polygon.viewX[i] = vertex.x;
        polygon.viewY[i] = vertex.y;
        polygon.viewZ[i] = vertex.z;
        polygon.outcode[i] = outcodeAll;
        if (vertex.z < view.record.nearZ) polygon.outcode[i] &= ~u32{outcodeNear};
        if (vertex.z > view.record.farZ) polygon.outcode[i] &= ~u32{outcodeFar};
    }
    return polygon;
}

} // namespace kardeno::tests
