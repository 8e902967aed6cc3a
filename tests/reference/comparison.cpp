#include "tests/reference/comparison.h"

#include "raster/run_fills.h"
#include "tests/reference/reference_spans.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace kardeno::tests {

namespace {

constexpr i32 framesOfScene = 2;
constexpr i32 picksOfFrame = 6;
constexpr i32 fence = 6; // pixels around the frame that are compared as well

// Everything outside the frame buffer that a frame or a pick may change, and the calls that it made.
struct Records {
    std::vector<CameraVertex> cameraVertices;
    std::vector<ScreenVertex> screenVertices;
    std::vector<VertexShade> shades;
    std::vector<u32> outcodes;
    std::vector<u32> stamps;
    u32 projectionStamp;
    std::vector<i32> visible;
    std::vector<std::string> log;
};

Records recordsOf(RandomScene& scene)
{
    Records records = {scene.host.cameraVertices,
                       scene.host.screenVertices,
                       scene.host.shades,
                       scene.host.outcodes,
                       scene.host.stamps,
                       scene.host.context().projectionStamp,
                       {},
                       scene.scene.log};
    for (const TestObject* object : scene.objects) records.visible.push_back(object->visible);
    return records;
}

// The arrays keep their places: the context points at them.
void restore(RandomScene& scene, const Records& records)
{
    std::copy(records.cameraVertices.begin(), records.cameraVertices.end(), scene.host.cameraVertices.begin());
    std::copy(records.screenVertices.begin(), records.screenVertices.end(), scene.host.screenVertices.begin());
    std::copy(records.shades.begin(), records.shades.end(), scene.host.shades.begin());
    std::copy(records.outcodes.begin(), records.outcodes.end(), scene.host.outcodes.begin());
    std::copy(records.stamps.begin(), records.stamps.end(), scene.host.stamps.begin());
    scene.host.context().projectionStamp = records.projectionStamp;
    for (size_t i = 0; i < scene.objects.size(); ++i) scene.objects[i]->visible = records.visible[i];
    scene.scene.log = records.log;
}

template <class Item>
bool sameBytes(const std::vector<Item>& a, const std::vector<Item>& b)
{
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(Item)) == 0);
}

std::string differenceOf(const Records& library, const Records& model)
{
    for (size_t i = 0; i < library.log.size() || i < model.log.size(); ++i) {
        const std::string ours = i < library.log.size() ? library.log[i] : "nothing";
        const std::string expected = i < model.log.size() ? model.log[i] : "nothing";
        if (ours != expected) return "call " + std::to_string(i) + " is " + ours + ", expected " + expected;
    }
    if (library.projectionStamp != model.projectionStamp) return "projectionStamp differs";
    if (library.visible != model.visible) return "`visible` of an object differs";
    if (library.stamps != model.stamps) return "vertexStamps differ";
    if (!sameBytes(library.screenVertices, model.screenVertices)) return "screenVertices differ";
    return "";
}

void fillWithNoise(TestFrame& frame, RandomNumbers& random)
{
    for (i32 y = 0; y < frame.height; ++y) {
        for (i32 x = 0; x < frame.width; ++x) frame.at(x, y) = static_cast<u16>(random.next());
    }
}

// Which polygons have a span over the pixel, for a reader who looks for the cause.
std::string polygonsAt(reference::Renderer& model, i32 x, i32 y)
{
    std::string result;
    for (const reference::List list :
         {reference::List::resolved, reference::List::sorted, reference::List::lateSorted}) {
        const std::vector<reference::Polygon>& polygons = model.lists[list];
        for (size_t i = 0; i < polygons.size(); ++i) {
            const char* const row = reference::nameOf(model.materials.of(polygons[i].material).row);
            bool covers = list == reference::List::lateSorted;
            for (const reference::Span& span : polygons[i].spans)
                covers = covers || (span.y == y && x >= span.x && x < span.x + span.length);
            if (covers) result += std::string(result.empty() ? "" : ", ") + row + " " + std::to_string(i);
        }
    }
    return result.empty() ? "no polygon" : result;
}

std::string differenceOf(const TestFrame& library, const TestFrame& model, RandomScene& scene)
{
    i32 differing = 0;
    std::string first;
    for (i32 y = -fence; y < library.height + fence; ++y) {
        for (i32 x = -fence; x < library.width + fence; ++x) {
            if (library.at(x, y) == model.at(x, y)) continue;
            if (differing++ > 0) continue;
            char text[120];
            std::snprintf(text, sizeof text, "pixel (%d, %d) is %04x, expected %04x; there: ", x, y,
                          static_cast<unsigned>(library.at(x, y)), static_cast<unsigned>(model.at(x, y)));
            first = text + polygonsAt(scene.model, x, y);
        }
    }
    return differing == 0 ? "" : first + "; " + std::to_string(differing) + " pixels differ";
}

// Anywhere, on whole pixels, or exactly on a corner.
Corner randomPoint(RandomScene& scene)
{
    f32 x = static_cast<f32>(scene.random.real(0, scene.frameWidth));
    f32 y = static_cast<f32>(scene.random.real(0, scene.frameHeight));
    if (scene.random.chance(30)) x = static_cast<f32>(static_cast<i32>(x));
    if (scene.random.chance(30)) y = static_cast<f32>(static_cast<i32>(y));
    if (!scene.random.chance(20)) return {x, y};
    const std::vector<ScreenVertex>& vertices = scene.host.screenVertices;
    const ScreenVertex& vertex = vertices[scene.random.next() % vertices.size()];
    return {vertex.x, vertex.y};
}

} // namespace

reference::Renderer& referenceRenderer()
{
    static reference::Renderer renderer;
    return renderer;
}

std::string compareFrames(RandomScene& scene)
{
    TestFrame library(scene.frameWidth, scene.frameHeight);
    fillWithNoise(library, scene.random);
    TestFrame model = library;
    const u8 flags = scene.random.byte();
    scene.scene.log.clear();
    const Records before = recordsOf(scene);
    scene.scene.draw(library, flags);
    const Records libraryRecords = recordsOf(scene);
    restore(scene, before);
    scene.model.render(&scene.scene.view.record, model.pixels(), flags);

    std::string difference = differenceOf(libraryRecords, recordsOf(scene));
    return difference.empty() ? differenceOf(library, model, scene) : difference;
}

std::string comparePicks(RandomScene& scene, f32 x, f32 y)
{
    RenderView* const view = &scene.scene.view.record;
    scene.scene.log.clear();
    const Records before = recordsOf(scene);
    i32 libraryFace = -1, modelFace = -1;
    f32 libraryDepth = -1, modelDepth = -1;
    const SceneObject* const libraryObject = Kardeno_Pick_Dll(view, x, y, &libraryFace, &libraryDepth);
    const Records libraryRecords = recordsOf(scene);
    restore(scene, before);
    const SceneObject* const modelObject = scene.model.pick(view, x, y, &modelFace, &modelDepth);

    const std::string difference = differenceOf(libraryRecords, recordsOf(scene));
    if (!difference.empty()) return "pick: " + difference;
    char text[160];
    std::snprintf(text, sizeof text, "pick at (%.9g, %.9g) gives face %d, depth %.9g, expected face %d, depth %.9g",
                  static_cast<f64>(x), static_cast<f64>(y), libraryFace, static_cast<f64>(libraryDepth), modelFace,
                  static_cast<f64>(modelDepth));
    scene.lastPickHit = modelObject != nullptr;
    if (libraryObject != modelObject) return std::string(text) + ", and another object";
    return libraryFace == modelFace && std::memcmp(&libraryDepth, &modelDepth, sizeof(f32)) == 0 ? "" : text;
}

Compared compareScenes(u32 firstSeed, u32 count, const SceneChoice& choice, Fillers fillers)
{
    Compared compared;
    forEachSeed(firstSeed, count, [&](u32 seed) {
        RandomScene scene(seed, choice, referenceRenderer()); // which initialises the library anew
        if (fillers == Fillers::plain) std::fill_n(RunFillers, renderModeRowCount, RunFiller{nullptr});
        ++compared.scenes;
        for (i32 frame = 0; frame < framesOfScene; ++frame) {
            CAPTURE(frame);
            if (frame > 0) scene.nextFrame();
            std::string difference = compareFrames(scene);
            ++compared.frames;
            for (const reference::List list : {reference::List::resolved, reference::List::sorted}) {
                for (const reference::Polygon& polygon : scene.model.lists[list]) {
                    compared.polygonsSeen += !polygon.spans.empty();
                    compared.spans += static_cast<i32>(polygon.spans.size());
                }
            }
            compared.latePolygons += static_cast<i32>(scene.model.lists.lateSorted.size());
            for (i32 pick = 0; pick < picksOfFrame && difference.empty(); ++pick) {
                const Corner point = randomPoint(scene);
                difference = comparePicks(scene, point.x, point.y);
                ++compared.picks;
                compared.hits += scene.lastPickHit;
            }
            compared.mostGrowths = std::max(compared.mostGrowths, static_cast<i32>(scene.host.reallocs().size()));
            REQUIRE(difference == "");
        }
    });
    return compared;
}

} // namespace kardeno::tests
