#include "tests/robustness/grid_scene.h"

#include <algorithm>

namespace kardeno::tests {

namespace {

std::vector<ScreenCorner> cornersOf(const GridFace& face)
{
    const i32 step = face.ragged ? 1 : face.rows;
    std::vector<ScreenCorner> corners;
    const auto add = [&](i32 x, i32 y) {
        corners.push_back({static_cast<f32>(x), static_cast<f32>(y), static_cast<f32>(face.depth)});
    };
    for (i32 y = face.y; y <= face.y + face.rows; y += step) add(face.x, y);
    for (i32 y = face.y + face.rows; y >= face.y; y -= step) add(face.x + face.width, y);
    return corners;
}

} // namespace

GridScene::GridScene(TestHost& host, i32 frameWidth, i32 frameHeight, std::vector<GridFace> gridFaces)
    : faces(std::move(gridFaces)),
      scene(host, {.right = static_cast<f32>(frameWidth), .bottom = static_cast<f32>(frameHeight)}),
      frame(frameWidth, frameHeight, emptyColour), nearTexture(16, 1, 1), farTexture(16, 1, 1), lateTexture(16, 1, 1)
{
    nearTexture.setTexel(0, 0, nearColour);
    farTexture.setTexel(0, 0, farColour);
    lateTexture.setTexel(0, 0, lateColour);
    TestMaterial& plain = scene.addMaterial(0);
    plain.diffuseColour.packed = resolvedColour;
    TestMaterial& near = scene.addMaterial(0, &nearTexture, 1);
    TestMaterial& far = scene.addMaterial(0, &farTexture, 1);
    TestMaterial& late = scene.addMaterial(0, &lateTexture, 10);

    object = &scene.addRoot();
    for (const GridFace& face : faces) {
        TestMaterial& seeThrough = face.depth == 2 ? near : far;
        TestMaterial& material = face.list == GridList::resolved ? plain
                                 : face.list == GridList::late   ? late
                                                                 : seeThrough;
        TestFace& added = scene.addFace(*object, material, cornersOf(face));
        // The first three corners of a ragged face lie on a line.
        added.normalX = 0;
        added.normalY = 0;
        added.normalZ = 1;
    }
}

void GridScene::draw(i32 count)
{
    frame.clear(emptyColour);
    object->faceCount = count;
    scene.draw(frame, 1);
}

std::vector<GridRun> visibleRuns(const std::vector<GridFace>& faces, const std::vector<i32>& taken, i32 width,
                                 i32 height)
{
    std::vector<std::vector<i32>> rows(static_cast<size_t>(height));
    for (const i32 index : taken) {
        const GridFace& face = faces[static_cast<size_t>(index)];
        if (face.list == GridList::late) continue; // never resolved
        for (i32 y = face.y; y < face.y + face.rows; ++y) rows[static_cast<size_t>(y)].push_back(index);
    }

    std::vector<GridRun> runs;
    for (i32 y = 0; y < height; ++y) {
        std::vector<i32>& row = rows[static_cast<size_t>(y)];
        const auto left = [&](i32 index) { return faces[static_cast<size_t>(index)].x; };
        std::sort(row.begin(), row.end(), [&](i32 a, i32 b) { return left(a) < left(b); });

        std::vector<GridRun> ofRow;
        i32 background = 0; // where its run began: only resolved faces end it
        for (const i32 index : row) {
            const GridFace& face = faces[static_cast<size_t>(index)];
            ofRow.push_back({index, face.x, face.x + face.width, y});
            if (face.list == GridList::sorted) continue;
            if (background < face.x) ofRow.push_back({-1, background, face.x, y});
            background = face.x + face.width;
        }
        ofRow.push_back({-1, background, width, y});
        std::sort(ofRow.begin(), ofRow.end(), [](const GridRun& a, const GridRun& b) { return a.xEnd < b.xEnd; });
        runs.insert(runs.end(), ofRow.begin(), ofRow.end());
    }
    return runs;
}

std::vector<GridFace> facesOfAllLists(i32 columns, i32 resolved, i32 sortedPairs, i32 late, bool lateFirst)
{
    std::vector<GridFace> faces;
    i32 cell = 0;
    const auto nextCell = [&](GridFace face) {
        face.x = cell % columns * GridScene::cellWidth;
        face.y = cell / columns;
        face.rows = 1;
        return face;
    };
    const auto addLate = [&] { faces.push_back(nextCell({.list = GridList::late, .width = 1, .depth = 2})); };
    const i32 most = std::max({resolved, sortedPairs, late});
    for (i32 i = 0; i < most; ++i) {
        if (lateFirst && i < late) {
            addLate();
            ++cell;
        }
        if (i < resolved) {
            faces.push_back(nextCell({.list = GridList::resolved, .width = 1, .depth = 2}));
            ++cell;
        }
        if (i < sortedPairs) {
            faces.push_back(nextCell({.list = GridList::sorted, .width = 1, .depth = 4}));
            faces.push_back(nextCell({.list = GridList::sorted, .width = 2, .depth = 2}));
            ++cell;
        }
        if (!lateFirst && i < late) {
            addLate();
            ++cell;
        }
    }
    return faces;
}

std::vector<GridFace> raggedFaces(i32 columns, i32 count, i32 rows)
{
    std::vector<GridFace> faces;
    for (i32 i = 0; i < count; ++i) {
        faces.push_back({.list = GridList::resolved,
                         .x = i % columns * GridScene::cellWidth + 1,
                         .y = i / columns * rows,
                         .width = 1,
                         .rows = rows,
                         .depth = 2,
                         .ragged = true});
    }
    return faces;
}

} // namespace kardeno::tests
