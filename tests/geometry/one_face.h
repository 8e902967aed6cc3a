// One face of a material of its own, handed to an emission routine directly, and what is seen of the record it becomes.
#pragma once

#include "geometry/billboards.h"
#include "geometry/emission.h"
#include "tests/support/test_host.h"
#include "tests/support/test_view.h"

#include <cstring>

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

    // The record that the face becomes; null when it is dropped. The clippers are those of the format.
    template <class Format, class TargetList>
    ScreenPolygon* emitted()
    {
        mode.clip = clippers<Format>;
        return emittedWithOwnClippers<Format, TargetList>();
    }

    // The same with the clippers that stand in `mode`.
    template <class Format, class TargetList>
    ScreenPolygon* emittedWithOwnClippers()
    {
        return recordOf<TargetList>(emit<Format, TargetList>);
    }

    template <class TargetList>
    ScreenPolygon* emittedBillboard()
    {
        mode.clip = clippers<Textured>;
        return recordOf<TargetList>(emitBillboard<TargetList>);
    }

private:
    std::vector<i32> indices;
    std::vector<TexCoord> texCoords;

    template <class TargetList>
    ScreenPolygon* recordOf(EmitRoutine routine)
    {
        const PolygonList& list = TargetList::list();
        const i32 before = list.count;
        routine(&view.record, &face);
        return list.count == before ? nullptr : &list.held[list.count - 1];
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
