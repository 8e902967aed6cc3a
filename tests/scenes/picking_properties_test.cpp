// Picking and drawing agree about which face lies at a pixel.
#include "geometry/polygon_lists.h"
#include "scenes/random_scene.h"
#include "tests/scenes/frame_spans.h"
#include "tests/support/seeds.h"
#include "tests/support/test_frame.h"

using namespace kardeno;
using namespace kardeno::scenes;
using kardeno::tests::checkOverAllSeeds;
using kardeno::tests::forEachSeed;
using kardeno::tests::TestFrame;

namespace {

// Square of the distance of a point from the side from a to b.
f64 squareDistance(f64 x, f64 y, f64 ax, f64 ay, f64 bx, f64 by)
{
    const f64 sideX = bx - ax, sideY = by - ay;
    const f64 square = sideX * sideX + sideY * sideY;
    f64 along = square > 0 ? ((x - ax) * sideX + (y - ay) * sideY) / square : 0;
    along = along < 0 ? 0 : along > 1 ? 1 : along;
    const f64 dx = ax + along * sideX - x, dy = ay + along * sideY - y;
    return dx * dx + dy * dy;
}

// Whether no side of any polygon on the screen passes within two and a half pixels of the point. A polygon owns the
// columns from the floor of its left side's x to that of its right side's, and its sides begin on the row into which
// their upper vertex falls: what is drawn lies up to a column and a row beside the outline. The outline is known by its
// truncated rows, which lie up to one more row beside it.
bool isClearOfAllSides(f64 x, f64 y)
{
    for (const ScreenPolygon& polygon : outlinesOf(resolvedPolygons)) {
        for (i32 a = 0; a < polygon.vertexCount; ++a) {
            const i32 b = (a + 1) % polygon.vertexCount;
            if (squareDistance(x, y, polygon.screenX[a], polygon.scanY[a], polygon.screenX[b], polygon.scanY[b])
                < 3.5 * 3.5)
                return false;
        }
    }
    return true;
}

} // namespace

TEST_CASE("the face picked at the centre of a pixel is the one whose colour is there")
{
    i32 faces = 0, background = 0;
    forEachSeed(150, [&](u32 seed) {
        const i32 polygons = 3 + static_cast<i32>(seed % layerCount);
        const auto scene = makeLayeredScene(seed, {.polygons = polygons, .rows = RowChoice::plain});
        TestFrame frame(scene->width(), scene->height());
        scene->draw(frame.pixels(), frame.pitch());

        RandomNumbers random(seed);
        for (i32 i = 0; i < 200; ++i) {
            const i32 column = random.integer(0, frame.width - 1), row = random.integer(0, frame.height - 1);
            const f32 x = static_cast<f32>(column) + 0.5f, y = static_cast<f32>(row) + 0.5f;
            if (!isClearOfAllSides(x, y)) continue;

            i32 index;
            f32 depth;
            SceneObject* const object = scene->pick(x, y, &index, &depth);
            CAPTURE(column);
            CAPTURE(row);
            CHECK(frame.at(column, row) == (object ? object->faces[index]->material->diffuseColour.packed : 0));
            CHECK(depth <= scene->view.farZ);
            ++(object ? faces : background);
        }
    });
    checkOverAllSeeds(faces > 0);
    checkOverAllSeeds(background > 0);
}
