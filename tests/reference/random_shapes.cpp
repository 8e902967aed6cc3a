// The shapes of random scenes. Most are made on the screen, where it is easy to say what overlaps what.
#include "tests/reference/random_scene.h"

#include <algorithm>
#include <cmath>

namespace kardeno::tests {

namespace {

struct Direction {
    f64 x, y;
};

// 24 directions, 15 degrees apart, anticlockwise.
Direction direction(i32 number)
{
    const f64 cosine = 0.9659258262890683, sine = 0.25881904510252074;
    Direction result = {1, 0};
    for (i32 i = 0; i < number; ++i)
        result = {result.x * cosine - result.y * sine, result.x * sine + result.y * cosine};
    return result;
}

// Some of them in ascending order.
std::vector<Direction> someDirections(i32 count, RandomNumbers& random)
{
    std::vector<i32> numbers;
    while (static_cast<i32>(numbers.size()) < count) {
        const i32 number = random.integer(0, 23);
        if (std::find(numbers.begin(), numbers.end(), number) == numbers.end()) numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    std::vector<Direction> directions;
    for (const i32 number : numbers) directions.push_back(direction(number));
    return directions;
}

CameraVertex cross(const CameraVertex& a, const CameraVertex& b, const CameraVertex& c)
{
    const f64 ux = static_cast<f64>(b.x) - a.x, uy = static_cast<f64>(b.y) - a.y, uz = static_cast<f64>(b.z) - a.z;
    const f64 wx = static_cast<f64>(c.x) - a.x, wy = static_cast<f64>(c.y) - a.y, wz = static_cast<f64>(c.z) - a.z;
    return {static_cast<f32>(uy * wz - uz * wy), static_cast<f32>(uz * wx - ux * wz),
            static_cast<f32>(ux * wy - uy * wx)};
}

struct Spot {
    f64 x, y, z;
};

Spot between(const Spot& origin, const Spot& a, f64 alongA, const Spot& b, f64 alongB)
{
    return {origin.x + a.x * alongA + b.x * alongB, origin.y + a.y * alongA + b.y * alongB,
            origin.z + a.z * alongA + b.z * alongB};
}

Spot randomVector(RandomNumbers& random, f64 length)
{
    const f64 parts[3] = {random.real(-1, 1), random.real(-1, 1), random.real(-1, 1)};
    return {parts[0] * length, parts[1] * length, parts[2] * length};
}

} // namespace

f64 RandomScene::randomDepth()
{
    const f64 nearZ = scene.view.record.nearZ, farZ = scene.view.record.farZ;
    const f64 t = random.real(0, 1);
    f64 z = nearZ * 1.02 + (farZ * 0.97 - nearZ * 1.02) * t * t * t;
    if (random.chance(30)) { // a power of two, which other faces have as well
        f64 power = 1.0 / 64;
        while (power < z) power *= 2;
        if (power < farZ) z = power;
    }
    return z;
}

f64 RandomScene::snapped(f64 coordinate)
{
    const i32 steps[] = {0, 0, 0, 1, 1, 2, 4};
    const i32 step = random.oneOf(steps);
    return step == 0 ? coordinate : std::floor(coordinate * step) / step;
}

i32 RandomScene::addVertex(Geometry& geometry, f64 x, f64 y, f64 z)
{
    geometry.vertices.push_back({static_cast<f32>(x), static_cast<f32>(y), static_cast<f32>(z)});
    return static_cast<i32>(geometry.vertices.size()) - 1;
}

i32 RandomScene::addScreenVertex(Geometry& geometry, f64 screenX, f64 screenY, f64 z)
{
    const ViewProjection& projection = scene.view.projection;
    return addVertex(geometry, (screenX - projection.centreX) / projection.scaleX * z,
                     (projection.centreY - screenY) / projection.scaleY * z, z);
}

// Corners are numbers of the geometry's own vertices; they move to the object's place in the host's arrays later.
void RandomScene::addFace(TestObject& object, const Geometry& geometry, std::vector<i32> corners)
{
    TestMaterial& material = *materials[random.next() % materials.size()];
    const u16 colour = static_cast<u16>(random.next());
    TestFace& face = scene.addFace(object, material, std::vector<ScreenCorner>{}, colour);
    if (random.chance(2)) face.faceColour = nullptr;
    face.name = "face " + std::to_string(faceCount++);
    face.shown = random.chance(97);

    const f64 mapping[8] = {random.real(-1, 2), random.real(-2, 2), random.real(-2, 2), random.real(-1, 1),
                            random.real(-1, 2), random.real(-2, 2), random.real(-2, 2), random.real(-1, 1)};
    f64 extent = 1e-6;
    const auto vertexOf = [&](size_t i) { return geometry.vertices[static_cast<size_t>(corners[i])]; };
    for (size_t i = 0; i < corners.size(); ++i) {
        for (const f32 part :
             {vertexOf(i).x - vertexOf(0).x, vertexOf(i).y - vertexOf(0).y, vertexOf(i).z - vertexOf(0).z})
            extent = std::max(extent, std::fabs(static_cast<f64>(part)));
    }
    face.coordinates.clear();
    for (size_t i = 0; i < corners.size(); ++i) {
        const f64 x = (vertexOf(i).x - vertexOf(0).x) / extent;
        const f64 y = (vertexOf(i).y - vertexOf(0).y) / extent;
        const f64 z = (vertexOf(i).z - vertexOf(0).z) / extent;
        face.coordinates.push_back({static_cast<f32>(mapping[0] + mapping[1] * x + mapping[2] * y + mapping[3] * z),
                                    static_cast<f32>(mapping[4] + mapping[5] * x + mapping[6] * y + mapping[7] * z)});
    }
    if (corners.size() >= 3) {
        const CameraVertex normal = cross(vertexOf(0), vertexOf(corners.size() / 3), vertexOf(2 * corners.size() / 3));
        face.normalX = normal.x;
        face.normalY = normal.y;
        face.normalZ = normal.z;
    }
    face.vertexCount = static_cast<i32>(corners.size());
    face.indices = std::move(corners);
    face.vertexIndices = face.indices.data();
    face.texCoords = face.coordinates.data();
}

// A convex polygon whose inverse depth is a plane over the screen.
void RandomScene::addScreenPolygon(TestObject& object, Geometry& geometry)
{
    const i32 cornerCount = random.chance(60) ? random.integer(3, 4) : random.integer(5, 10);
    const f64 x = random.real(-0.1, 1.1) * frameWidth, y = random.real(-0.1, 1.1) * frameHeight;
    const f64 radiusX = random.real(0.02, 0.7) * frameWidth, radiusY = random.real(0.02, 0.7) * frameHeight;
    const f64 z = randomDepth();
    const f64 slopeX = random.real(-0.45, 0.45), slopeY = random.real(-0.45, 0.45);
    const bool level = random.chance(25);
    std::vector<i32> corners;
    for (const Direction& towards : someDirections(cornerCount, random)) {
        const f64 cornerX = snapped(x + radiusX * towards.x);
        const f64 cornerY = snapped(y - radiusY * towards.y);
        const f64 slope = 1 + slopeX * (cornerX - x) / (radiusX + 1) + slopeY * (cornerY - y) / (radiusY + 1);
        corners.push_back(addScreenVertex(geometry, cornerX, cornerY, level ? z : z / slope));
    }
    if (random.chance(10)) std::reverse(corners.begin(), corners.end());
    std::rotate(corners.begin(), corners.begin() + random.integer(0, cornerCount - 1), corners.end());
    addFace(object, geometry, corners);
}

// Level rectangles one over the other, some of them equally deep or even equal.
void RandomScene::addRectangles(TestObject& object, Geometry& geometry)
{
    f64 z = randomDepth();
    std::vector<i32> corners;
    for (i32 count = random.integer(1, 5); count > 0; --count) {
        if (corners.empty() || random.chance(80)) {
            const f64 x = snapped(random.real(-0.2, 1) * frameWidth), y = snapped(random.real(-0.2, 1) * frameHeight);
            const f64 xEnd = x + snapped(random.real(1, 0.8 * frameWidth));
            const f64 yEnd = y + snapped(random.real(1, 0.8 * frameHeight));
            if (random.chance(60)) z = randomDepth();
            corners = {addScreenVertex(geometry, x, y, z), addScreenVertex(geometry, x, yEnd, z),
                       addScreenVertex(geometry, xEnd, yEnd, z), addScreenVertex(geometry, xEnd, y, z)};
        }
        addFace(object, geometry, corners);
    }
}

// A wide rectangle and narrow posts before it: the rectangle is seen in many pieces of a row.
void RandomScene::addPosts(TestObject& object, Geometry& geometry)
{
    const f64 z = randomDepth();
    const f64 top = snapped(random.real(0, 0.3) * frameHeight);
    const f64 bottom = snapped(random.real(0.5, 1.1) * frameHeight);
    const f64 depths[2] = {z * random.real(1, 1.3), z * random.real(1, 1.3)};
    const f64 xEnd = frameWidth * random.real(0.5, 1.1);
    addFace(object, geometry,
            {addScreenVertex(geometry, 1, top, depths[0]), addScreenVertex(geometry, 1, bottom, depths[0]),
             addScreenVertex(geometry, xEnd, bottom, depths[1]), addScreenVertex(geometry, xEnd, top, depths[1])});
    for (i32 count = random.integer(1, 6); count > 0; --count) {
        const f64 x = snapped(random.real(0, 1) * frameWidth);
        const f64 width = random.chance(50) ? random.real(0.01, 1.5) : random.real(1, 6);
        const f64 lean = random.chance(50) ? 0 : random.real(-30, 30);
        const f64 postTop = snapped(top + random.real(0, 20)), postBottom = snapped(bottom - random.real(0, 20));
        const f64 depth = random.chance(30) ? z : z * random.real(0.9, 1.1);
        addFace(object, geometry,
                {addScreenVertex(geometry, x, postTop, depth), addScreenVertex(geometry, x + lean, postBottom, depth),
                 addScreenVertex(geometry, x + lean + width, postBottom, depth),
                 addScreenVertex(geometry, x + width, postTop, depth)});
    }
}

// Polygons that overlap in one plane: depths that differ by no more than their roundings.
void RandomScene::addPlane(TestObject& object, Geometry& geometry)
{
    const f64 z = randomDepth();
    const f64 slopeX = random.real(-0.4, 0.4) / frameWidth, slopeY = random.real(-0.4, 0.4) / frameHeight;
    const TestFace* first = nullptr;
    for (i32 count = random.integer(2, 6); count > 0; --count) {
        const f64 x = random.real(0, 0.8) * frameWidth, y = random.real(0, 0.8) * frameHeight;
        const f64 radius = random.real(0.1, 0.5) * frameWidth;
        std::vector<i32> corners;
        for (const Direction& towards : someDirections(random.integer(3, 6), random)) {
            const f64 cornerX = snapped(x + radius * towards.x), cornerY = snapped(y - radius * towards.y);
            corners.push_back(
                addScreenVertex(geometry, cornerX, cornerY, z / (1 + slopeX * cornerX + slopeY * cornerY)));
        }
        addFace(object, geometry, corners);
        TestFace& face = static_cast<TestFace&>(*object.faceList.back());
        if (first && random.chance(70)) {
            face.normalX = first->normalX;
            face.normalY = first->normalY;
            face.normalZ = first->normalZ;
        }
        first = &face;
    }
}

// Sides that move by the same fraction of a column on every row and begin on whole columns, so that the last bit of
// their step decides about pixels.
void RandomScene::addSlants(TestObject& object, Geometry& geometry)
{
    const f64 slopes[] = {0, 0.25, 0.5, 1, 1, 2, -0.25, -0.5, -1, -1, -2};
    const f64 depths[] = {1, 2, 4, 8};
    for (i32 count = random.integer(1, 5); count > 0; --count) {
        f64 z = random.oneOf(depths);
        while (z < scene.view.record.nearZ) z *= 2;
        const f64 x = random.integer(0, frameWidth), y = random.integer(0, frameHeight / 2);
        const f64 yEnd = y + random.integer(1, frameHeight / 2 + 20);
        const f64 xEnd = x + random.integer(1, 40);
        const f64 leftSlope = random.oneOf(slopes), rightSlope = random.oneOf(slopes);
        addFace(object, geometry,
                {addScreenVertex(geometry, x, y, z), addScreenVertex(geometry, x + leftSlope * (yEnd - y), yEnd, z),
                 addScreenVertex(geometry, xEnd + rightSlope * (yEnd - y), yEnd, z),
                 addScreenVertex(geometry, xEnd, y, z)});
    }
}

// A net of cells that share corners and sides.
void RandomScene::addGrid(TestObject& object, Geometry& geometry)
{
    const i32 columns = random.integer(1, 4), rows = random.integer(1, 3);
    const f64 x = random.real(-0.2, 0.6) * frameWidth, y = random.real(-0.2, 0.6) * frameHeight;
    const f64 width = random.real(2, 0.3 * frameWidth), height = random.real(2, 0.3 * frameHeight);
    const f64 z = randomDepth();
    const f64 shake = random.chance(40) ? 0 : random.real(0, 0.4);
    std::vector<i32> net;
    for (i32 row = 0; row <= rows; ++row) {
        for (i32 column = 0; column <= columns; ++column) {
            const f64 cornerX = snapped(x + width * (column + random.real(-shake, shake)));
            const f64 cornerY = snapped(y + height * (row + random.real(-shake, shake)));
            net.push_back(addScreenVertex(geometry, cornerX, cornerY, z * (1 + random.real(0, shake))));
        }
    }
    const bool triangles = random.chance(60);
    for (i32 row = 0; row < rows; ++row) {
        for (i32 column = 0; column < columns; ++column) {
            const size_t first = static_cast<size_t>(row * (columns + 1) + column);
            const size_t below = first + static_cast<size_t>(columns) + 1;
            if (triangles) {
                addFace(object, geometry, {net[first], net[below], net[below + 1]});
                addFace(object, geometry, {net[first], net[below + 1], net[first + 1]});
            } else {
                addFace(object, geometry, {net[first], net[below], net[below + 1], net[first + 1]});
            }
        }
    }
}

// A slanted box that may stand anywhere, around the eye as well.
void RandomScene::addBox(TestObject& object, Geometry& geometry)
{
    const f64 nearZ = scene.view.record.nearZ, farZ = scene.view.record.farZ;
    const f64 z = random.chance(60)   ? randomDepth()
                  : random.chance(70) ? nearZ * random.real(0.2, 2)
                                      : farZ * random.real(0.8, 1.2);
    const Spot centre = {random.real(-1, 1) * z, random.real(-1, 1) * z, z};
    const Spot sides[3] = {randomVector(random, 0.5 * z), randomVector(random, 0.5 * z), randomVector(random, 0.5 * z)};
    for (i32 corner = 0; corner < 8; ++corner) {
        Spot spot = between(centre, sides[0], corner & 1 ? 1 : -1, sides[1], corner & 2 ? 1 : -1);
        spot = between(spot, sides[2], corner & 4 ? 1 : -1, sides[2], 0);
        addVertex(geometry, spot.x, spot.y, spot.z);
    }
    const i32 quads[6][4] = {{0, 1, 3, 2}, {4, 6, 7, 5}, {0, 4, 5, 1}, {2, 3, 7, 6}, {0, 2, 6, 4}, {1, 5, 7, 3}};
    for (const i32(&quad)[4] : quads) {
        std::vector<i32> corners(quad, quad + 4);
        // Seen from outside, corners go round so that the normal points into the box.
        const auto vertex = [&](size_t i) { return geometry.vertices[static_cast<size_t>(corners[i])]; };
        const CameraVertex normal = cross(vertex(0), vertex(1), vertex(2));
        const f64 outward = normal.x * (vertex(0).x - centre.x) + normal.y * (vertex(0).y - centre.y)
                            + normal.z * (vertex(0).z - centre.z);
        if (outward > 0) std::reverse(corners.begin(), corners.end());
        addFace(object, geometry, corners);
    }
}

// A flat convex polygon in any position, mostly through the near or the far plane.
void RandomScene::addSolidPolygon(TestObject& object, Geometry& geometry)
{
    const f64 nearZ = scene.view.record.nearZ, farZ = scene.view.record.farZ;
    const f64 z = random.chance(60) ? nearZ * random.real(0.3, 2.5) : random.chance(50) ? farZ : randomDepth();
    const Spot centre = {random.real(-1.2, 1.2) * z, random.real(-1.2, 1.2) * z, z};
    const f64 size = z * random.real(0.3, 2);
    const Spot a = randomVector(random, size), b = randomVector(random, size);
    std::vector<i32> corners;
    for (const Direction& towards : someDirections(random.integer(3, 10), random)) {
        const Spot spot = between(centre, a, towards.x, b, towards.y);
        corners.push_back(addVertex(geometry, spot.x, spot.y, spot.z));
    }
    const auto vertex = [&](size_t i) { return geometry.vertices[static_cast<size_t>(corners[i])]; };
    const CameraVertex normal = cross(vertex(0), vertex(1), vertex(2));
    const f64 away = static_cast<f64>(normal.x) * vertex(0).x + static_cast<f64>(normal.y) * vertex(0).y
                     + static_cast<f64>(normal.z) * vertex(0).z;
    if ((away < 0) != random.chance(12)) std::reverse(corners.begin(), corners.end());
    addFace(object, geometry, corners);
}

// Outlines that no host should give: repeated corners, corners in disorder, too few, too many.
void RandomScene::addSpoiltPolygon(TestObject& object, Geometry& geometry)
{
    addScreenPolygon(object, geometry);
    TestFace& face = static_cast<TestFace&>(*object.faceList.back());
    const size_t count = face.indices.size();
    switch (random.integer(0, 4)) {
    case 0: face.indices[random.next() % count] = face.indices[0]; break;
    case 1: std::swap(face.indices[0], face.indices[1 + random.next() % (count - 1)]); break;
    case 2: face.indices.resize(random.next() % 3); break;
    case 3: face.indices.resize(static_cast<size_t>(random.integer(11, 18)), face.indices[0]); break;
    default: // all corners on few columns
        for (const i32 index : face.indices) {
            CameraVertex& vertex = geometry.vertices[static_cast<size_t>(index)];
            vertex.x = geometry.vertices[static_cast<size_t>(face.indices[0])].x + vertex.x * 0.01f;
        }
        break;
    }
    if (face.indices.empty()) face.indices.push_back(0); // a list must begin somewhere
    face.vertexCount = static_cast<i32>(face.indices.size());
    face.coordinates.resize(face.indices.size(), {0.5f, 0.25f});
    face.vertexIndices = face.indices.data();
    face.texCoords = face.coordinates.data();
}

// A net over the whole frame, 100 cells high and as many wide as the crowd says, of two triangles a cell. Neighbours
// share their corners, so that edge lies on edge everywhere.
void RandomScene::addMesh(TestObject& object, Geometry& geometry)
{
    constexpr i32 rows = 100;
    const i32 columns = choice.crowd;
    const f64 width = 1.2 * frameWidth / columns, height = 1.2 * frameHeight / rows;
    const f64 z = randomDepth();
    const f64 shake = random.chance(50) ? 0 : 0.4;
    for (i32 row = 0; row <= rows; ++row) {
        for (i32 column = 0; column <= columns; ++column) {
            const f64 x = width * (column + random.real(-shake, shake)) - 0.1 * frameWidth;
            const f64 y = height * (row + random.real(-shake, shake)) - 0.1 * frameHeight;
            addScreenVertex(geometry, x, y, z * (1 + random.real(0, shake)));
        }
    }
    for (i32 row = 0; row < rows; ++row) {
        for (i32 column = 0; column < columns; ++column) {
            const i32 first = row * (columns + 1) + column;
            const i32 below = first + columns + 1;
            addFace(object, geometry, {first, below, below + 1});
            addFace(object, geometry, {first, below + 1, first + 1});
        }
    }
}

// Quadrilaterals that cover most of the frame, at any depths and slants.
void RandomScene::addLayers(TestObject& object, Geometry& geometry)
{
    for (i32 count = choice.crowd; count > 0; --count) {
        const f64 z = randomDepth();
        const f64 slopeX = random.real(-0.4, 0.4) / frameWidth, slopeY = random.real(-0.4, 0.4) / frameHeight;
        const f64 ends[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
        std::vector<i32> corners;
        for (const f64(&end)[2] : ends) {
            const f64 x = (end[0] + random.real(-0.2, 0.2)) * frameWidth;
            const f64 y = (end[1] + random.real(-0.2, 0.2)) * frameHeight;
            corners.push_back(addScreenVertex(geometry, x, y, z / (1 + slopeX * x + slopeY * y)));
        }
        addFace(object, geometry, corners);
    }
}

// Narrow posts that all begin on one row, many of them at the same column.
void RandomScene::addFullRow(TestObject& object, Geometry& geometry)
{
    const f64 top = random.integer(0, frameHeight / 2);
    const i32 columnsPerPost = random.integer(1, 8);
    const bool crowded = random.chance(50); // then nine of ten stand in a tenth of the row
    for (i32 count = choice.crowd; count > 0; --count) {
        const f64 place = random.real(0, crowded && random.chance(90) ? 0.1 : 1) * frameWidth;
        const f64 x = random.chance(30) ? std::floor(place) : place;
        const f64 xEnd = x + random.real(0, columnsPerPost);
        const f64 bottom = top + random.integer(1, 6);
        const f64 lean = random.chance(50) ? 0 : random.real(-2, 2);
        const f64 z = randomDepth();
        addFace(object, geometry,
                {addScreenVertex(geometry, x, top, z), addScreenVertex(geometry, x + lean, bottom, z),
                 addScreenVertex(geometry, xEnd + lean, bottom, z), addScreenVertex(geometry, xEnd, top, z)});
    }
}

// Posts from anywhere on the uppermost rows to anywhere on the lowest ones.
void RandomScene::addCrossings(TestObject& object, Geometry& geometry)
{
    const f64 height = random.real(0.05, 1) * frameHeight; // low ones cross within a few rows
    for (i32 count = choice.crowd; count > 0; --count) {
        const f64 x = random.real(0, 1) * frameWidth, xBelow = random.real(0, 1) * frameWidth;
        const f64 width = random.real(0.2, 12);
        const f64 top = random.integer(0, 3), bottom = height + random.integer(0, 3);
        const f64 z = randomDepth();
        addFace(object, geometry,
                {addScreenVertex(geometry, x, top, z), addScreenVertex(geometry, xBelow, bottom, z),
                 addScreenVertex(geometry, xBelow + width, bottom, z), addScreenVertex(geometry, x + width, top, z)});
    }
}

} // namespace kardeno::tests
