// Properties of hidden-surface removal that hold for any scene, or for any scene without intersections.
#include "scenes/random_scene.h"
#include "tests/scenes/frame_spans.h"
#include "tests/support/seeds.h"
#include "tests/support/test_frame.h"

#include <algorithm>

using namespace kardeno;
using namespace kardeno::scenes;
using kardeno::tests::checkOverAllSeeds;
using kardeno::tests::forEachSeed;
using kardeno::tests::TestFrame;

namespace {

void drawInto(TestFrame& frame, Scene& scene)
{
    scene.draw(frame.pixels(), frame.pitch());
}

// How often each pixel of a frame is covered by spans. Counts what lies outside of it, or has no length, as errors.
struct Coverage {
    i32 width, height;
    std::vector<i32> times;
    i32 errors = 0;

    Coverage(i32 theWidth, i32 theHeight)
        : width(theWidth), height(theHeight), times(static_cast<size_t>(theWidth * theHeight), 0)
    {
    }

    void add(const std::vector<VisibleSpan>& spans)
    {
        for (const VisibleSpan& span : spans) {
            if (span.length < 1 || span.x < 0 || span.x + span.length > width || span.y < 0 || span.y >= height) {
                ++errors;
                continue;
            }
            for (i32 x = span.x; x < span.x + span.length; ++x) ++times[static_cast<size_t>(span.y * width + x)];
        }
    }

    // Whether every pixel from the left top corner on is covered `inside` times, and none before it.
    bool isExactly(i32 inside, i32 left, i32 top) const
    {
        if (errors) return false;
        for (i32 y = 0; y < height; ++y) {
            for (i32 x = 0; x < width; ++x) {
                if (times[static_cast<size_t>(y * width + x)] != (x >= left && y >= top ? inside : 0)) return false;
            }
        }
        return true;
    }

    bool isAtMostOnce() const
    {
        return errors == 0 && std::all_of(times.begin(), times.end(), [](i32 count) { return count <= 1; });
    }
};

Coverage emptyCoverage(const Scene& scene)
{
    return Coverage(scene.width(), scene.height());
}

} // namespace

TEST_CASE("the spans of the opaque polygons and the background tile every row exactly once")
{
    i32 opaqueSpans = 0;
    forEachSeed(300, [&](u32 seed) {
        const auto scene = makeTangledScene(seed, {.polygons = 10 + static_cast<i32>(seed % 60)});
        TestFrame frame(scene->width(), scene->height());
        drawInto(frame, *scene);

        Coverage opaque = emptyCoverage(*scene);
        for (const auto& spans : spansOf(resolvedPolygons)) {
            opaque.add(spans);
            opaqueSpans += static_cast<i32>(spans.size());
        }
        opaque.add(backgroundSpans());
        CHECK(opaque.isExactly(1, static_cast<i32>(scene->view.left), static_cast<i32>(scene->view.top)));

        for (const auto& spans : spansOf(sortedPolygons)) {
            Coverage seeThrough = emptyCoverage(*scene);
            seeThrough.add(spans);
            CHECK(seeThrough.isAtMostOnce());
        }
        CHECK(frame.fencesStand());
    });
    checkOverAllSeeds(opaqueSpans > 0);
}

TEST_CASE("corners that lie exactly on the sides of the picture leave no gap and nothing outside")
{
    // X = -Z, X = Z, Y = Z or Y = -Z: inside, and so not clipped, while 1/Z is rounded and the projection may come out
    // a little beyond the side. The wider the picture, the farther: here by more than a 65,536th of a column.
    i32 cornersBeyond = 0;
    forEachSeed(100, [&](u32 seed) {
        RandomNumbers random(seed);
        constexpr f64 widthByHeight = 32;
        Scene scene({.right = 2048, .bottom = 64, .nearZ = 1, .farZ = 100, .zoom = 1});
        Material& material = scene.addMaterial({});
        Object& object = scene.addObject();
        for (i32 i = 0; i < 30; ++i) {
            std::vector<Corner> corners;
            for (i32 corner = 0; corner < 3; ++corner) {
                const f64 z = static_cast<f32>(random.real(2, 90));
                const f64 choices[3] = {-z, z, random.real(-1, 1) * z};
                const f64 x = widthByHeight * choices[random.integer(0, 2)];
                const f64 y = choices[random.integer(0, 2)];
                corners.push_back({scene.addVertex({x, y, z})});
            }
            if (scene.isOffTheEye(corners)) scene.addFace(object, material, corners);
        }
        TestFrame frame(scene.width(), scene.height());
        drawInto(frame, scene);

        Coverage coverage = emptyCoverage(scene);
        for (const auto& spans : spansOf(resolvedPolygons)) coverage.add(spans);
        coverage.add(backgroundSpans());
        CHECK(coverage.isExactly(1, 0, 0));
        CHECK(frame.fencesStand());
        for (const ScreenPolygon& polygon : outlinesOf(resolvedPolygons)) {
            for (i32 corner = 0; corner < polygon.vertexCount; ++corner) {
                const f32 x = polygon.screenX[corner];
                const i32 y = polygon.scanY[corner];
                cornersBeyond += x < 0 || x > 2048 || y < 0 || y > 64;
            }
        }
    });
    checkOverAllSeeds(cornersBeyond > 0);
}

TEST_CASE("nothing is written outside the drawn rectangle, and inside it every pixel is")
{
    forEachSeed(60, [&](u32 seed) {
        const auto scene = makeTangledScene(seed, {.rows = RowChoice::opaque});
        TestFrame frame(scene->width(), scene->height(), 0xeeee);
        drawInto(frame, *scene);
        TestFrame again(scene->width(), scene->height(), 0x1111);
        drawInto(again, *scene);

        bool outsideUntouched = true, insideWritten = true;
        for (i32 y = 0; y < frame.height; ++y) {
            for (i32 x = 0; x < frame.width; ++x) {
                const bool inside = x >= static_cast<i32>(scene->view.left) && y >= static_cast<i32>(scene->view.top);
                if (inside)
                    insideWritten = insideWritten && frame.at(x, y) == again.at(x, y);
                else
                    outsideUntouched = outsideUntouched && frame.at(x, y) == 0xeeee && again.at(x, y) == 0x1111;
            }
        }
        CHECK(outsideUntouched);
        CHECK(insideWritten);
        CHECK(frame.fencesStand());
    });
}

TEST_CASE("see-through polygons hide nothing: without them every opaque span is the same")
{
    i32 seeThroughSpans = 0;
    forEachSeed(200, [&](u32 seed) {
        const auto scene = makeLayeredScene(seed, {.polygons = layerCount, .rows = RowChoice::plainAndGlass});
        TestFrame frame(scene->width(), scene->height());
        drawInto(frame, *scene);
        const auto opaqueWithGlass = spansOf(resolvedPolygons);
        const auto backgroundWithGlass = backgroundSpans();
        for (const auto& spans : spansOf(sortedPolygons)) seeThroughSpans += static_cast<i32>(spans.size());

        for (Object& object : scene->objects) {
            std::erase_if(object.faceList, [](const SceneFace* face) { return face->material->transparency != 0; });
            object.faces = object.faceList.data();
            object.faceCount = static_cast<i32>(object.faceList.size());
        }
        drawInto(frame, *scene);
        CHECK(sortedPolygons.count == 0);
        CHECK((spansOf(resolvedPolygons) == opaqueWithGlass));
        CHECK((backgroundSpans() == backgroundWithGlass));
    });
    checkOverAllSeeds(seeThroughSpans > 0);
}

TEST_CASE("without intersections the order of the faces does not matter")
{
    forEachSeed(200, [](u32 seed) {
        const auto scene = makeLayeredScene(seed, {.polygons = layerCount, .rows = RowChoice::plainAndGlass});
        TestFrame frame(scene->width(), scene->height());
        drawInto(frame, *scene);

        TestFrame shuffled(scene->width(), scene->height());
        RandomNumbers random(seed);
        for (Object& object : scene->objects) {
            for (i32 i = object.faceCount - 1; i > 0; --i)
                std::swap(object.faces[i], object.faces[random.integer(0, i)]);
        }
        drawInto(shuffled, *scene);
        CHECK(shuffled.hash() == frame.hash());
    });
}

TEST_CASE("a fan of triangles around a point covers the picture without a hole, cut by any planes")
{
    // The rim runs around the picture far outside of it, so that only the fan's own inner sides could leave a hole. The
    // plane is tilted, so that a part of the rim lies behind the eye, but never so far that the picture shows beyond
    // it: 0.3 x 4/3 + 0.35 is well below 1.
    i32 trianglesDrawn = 0;
    forEachSeed(300, [&](u32 seed) {
        RandomNumbers random(seed);
        Scene scene({.right = 160, .bottom = 120, .nearZ = 10, .farZ = 4000, .zoom = 1});
        Material& material = scene.addMaterial({});
        Object& object = scene.addObject();
        const f64 slopeX = random.real(-0.3, 0.3), slopeY = random.real(-0.35, 0.35);
        const auto vertexAt = [&](f64 x, f64 y) { return scene.addVertex({x, y, 100 + slopeX * x + slopeY * y}); };
        const f64 innerX = random.real(-60, 60);
        const f64 innerY = random.real(-40, 40);
        const i32 inner = vertexAt(innerX, innerY);

        std::vector<i32> rim;
        constexpr f64 rimAt = 1000;
        const i32 perSide = random.integer(1, 5);
        constexpr f64 cornersX[5] = {-rimAt, -rimAt, rimAt, rimAt, -rimAt},
                      cornersY[5] = {rimAt, -rimAt, -rimAt, rimAt, rimAt};
        for (i32 side = 0; side < 4; ++side) {
            for (i32 i = 0; i < perSide; ++i) {
                const f64 along = (i + random.real(0.1, 0.9) * (i > 0)) / perSide;
                const f64 x = cornersX[side] + along * (cornersX[side + 1] - cornersX[side]);
                const f64 y = cornersY[side] + along * (cornersY[side + 1] - cornersY[side]);
                rim.push_back(vertexAt(x, y));
            }
        }
        for (size_t i = 0; i < rim.size(); ++i)
            scene.addFace(object, material, {{inner}, {rim[i]}, {rim[(i + 1) % rim.size()]}});

        TestFrame frame(scene.width(), scene.height());
        drawInto(frame, scene);
        CHECK(backgroundSpans().empty());
        Coverage coverage = emptyCoverage(scene);
        for (const auto& spans : spansOf(resolvedPolygons)) coverage.add(spans);
        CHECK(coverage.isExactly(1, 0, 0));
        trianglesDrawn += resolvedPolygons.count;
    });
    checkOverAllSeeds(trianglesDrawn > 0);
}

TEST_CASE("the same scene drawn twice gives the same frame")
{
    forEachSeed(100, [](u32 seed) {
        const i32 bitsPerPixel = seed % 2 ? 15 : 16;
        const auto scene = makeTangledScene(seed, {.bitsPerPixel = bitsPerPixel});
        const auto other = makeTangledScene(seed + 1000, {.bitsPerPixel = bitsPerPixel});
        TestFrame first(scene->width(), scene->height()), second(scene->width(), scene->height());
        drawInto(first, *scene);
        TestFrame between(other->width(), other->height());
        drawInto(between, *other);
        drawInto(second, *scene);
        CHECK(first.hash() == second.hash());
    });
}

TEST_CASE("an edge pass with restarts gives the same image as one whose pool fits")
{
    const auto scene = makeTangledScene(7, {.polygons = 6000, .rows = RowChoice::plain});
    TestFrame withRestarts(scene->width(), scene->height()), fitting(scene->width(), scene->height());
    releasePools();
    drawInto(withRestarts, *scene);
    const i32 capacity = EdgePool.capacity;
    CHECK(EdgePool.count > 2 * edgePoolGrowth); // three growth steps or more, each of which began the pass again
    CHECK(capacity - EdgePool.count < edgePoolGrowth);

    drawInto(fitting, *scene);
    CHECK(EdgePool.capacity == capacity);
    CHECK(fitting.hash() == withRestarts.hash());
}
