#include "scenes/composed_scene.h"
#include "scenes/shapes_scene.h"

namespace kardeno::scenes {

namespace {

// A room is seen from inside. Its floor and ceiling reach behind the eye, and its maps repeat.
void addRoom(Workbench& bench, SceneMaterial& floor, SceneMaterial& walls, SceneMaterial& ceiling)
{
    bench.material = &floor;
    bench.panel({{1, 0, 0}, {0, 0, 1}, {0, -1, 0}, {0, -2, 6}}, 5, 8, 4, 6);
    bench.material = &ceiling;
    bench.panel({{1, 0, 0}, {0, 0, -1}, {0, 1, 0}, {0, 3, 6}}, 5, 8, 4, 6);
    bench.material = &walls;
    bench.panel({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0.5, 14}}, 5, 2.5, 4, 2);
    bench.panel({{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}, {-5, 0.5, 6}}, 8, 2.5, 6, 2);
    bench.panel({{0, 0, -1}, {0, 1, 0}, {1, 0, 0}, {5, 0.5, 6}}, 8, 2.5, 6, 2);
}

// A room with two boxes in it. Both ways of addressing are seen to wrap: the floor has a map of 256 x 256 texels, and
// the walls and the ceiling have smaller ones.
void buildRoom(Scene& scene, i32 bitsPerTexel)
{
    Material& floor = scene.addMaterial({.texture = &scene.addTexture(bitsPerTexel, 256, 256, planks)});
    Material& walls = scene.addMaterial({.texture = &scene.addTexture(bitsPerTexel, 64, 32, bricks)});
    Material& ceiling = scene.addMaterial({.texture = &scene.addTexture(bitsPerTexel, 32, 64, tiles)});
    Workbench bench(scene);
    addRoom(bench, floor, walls, ceiling);
    bench.material = &scene.addMaterial({.texture = &scene.addTexture(bitsPerTexel, 128, 128, tiles)});
    bench.box(turned(8, 0, 3, 0, {-1.6, -1, 6}), 1, 1, 1);
    bench.material = &scene.addMaterial({.texture = &scene.addTexture(bitsPerTexel, 256, 256, tiles)});
    bench.box(turned(7, 2, -3, 1, {1.7, 0, 5}), 0.9, 0.9, 0.9);
}

} // namespace

// Boxes and a pyramid are told apart by their face colours alone. The panes before them blend their own face colours.
void buildFlatFallbacks(Scene& scene)
{
    Workbench bench(scene);
    bench.material = &scene.addMaterial({.state = 7});
    bench.colourStep = 0x25;
    bench.faceColour = 0x1034;
    bench.box(turned(8, 1, 3, 0, {-1.4, 0.3, 7}), 1.2, 1.2, 1.2);
    bench.box(turned(7, -2, -3, 1, {1.5, -0.4, 8}), 1.4, 1, 1.2);
    bench.pyramid(turned(9, 1, 2, 0, {0, -2, 5}), 0.8, 2.4);

    // True-colour maps cannot be lit, so this panel gets a flat fallback too.
    bench.material = &scene.addMaterial({.state = 1, .texture = &scene.addTexture(16, 16, 16, tiles)});
    bench.panel(turned(9, 0, -2, 0, {2.6, 1.6, 6}), 0.8, 0.6);

    bench.material = &scene.addMaterial({.state = 3, .transparency = 50});
    bench.faceColour = static_cast<u16>(scene.settings.bitsPerPixel == 15 ? 0x7c00 : 0xf800);
    bench.colourStep = 0;
    bench.panel(turned(9, 0, 2, 0, {-0.8, 0.6, 4}), 0.9, 0.7);
    bench.faceColour = static_cast<u16>(scene.settings.bitsPerPixel == 15 ? 0x03e0 : 0x07e0);
    bench.panel(turned(9, 1, -1, 0, {0.6, -0.3, 3.2}), 0.8, 0.6);
}

// Pyramids stand on a floor that reaches behind the eye. Boards cross or share a place, and panes of glass stand at
// three depths.
void buildPlainAndTranslucent(Scene& scene)
{
    Workbench bench(scene);
    const auto colour = [&](Colour diffuse, i32 transparency = 0) {
        bench.material = &scene.addMaterial({.transparency = transparency, .diffuse = diffuse});
    };
    colour({90, 110, 80});
    bench.panel({{1, 0, 0}, {0, 0, 1}, {0, -1, 0}, {0, -2, 8}}, 12, 12);
    const Colour sides[3] = {{220, 60, 50}, {60, 110, 220}, {230, 200, 70}};
    for (i32 i = 0; i < 3; ++i) {
        colour(sides[i]);
        bench.pyramid(turned(6, 0, i, 0, {-2.4 + 2.2 * i, -2, 7.5 - i}), 1.1, 2.8 + 0.3 * i);
    }
    // Two boards cross. Depth is compared only where a row enters a board, so the crossing is drawn row by row and not
    // along its true line.
    colour({235, 235, 235});
    bench.panel(turned(8, 0, 3, 0, {0.2, 1.2, 9}), 2.8, 0.5);
    colour({250, 140, 40});
    bench.panel(turned(8, 0, -3, 0, {0.2, 1.4, 9}), 2.8, 0.5);

    // Two boards lie in one place. Of two that are equally deep the one that was made first is seen.
    for (const Colour& board : {Colour{60, 210, 210}, Colour{220, 60, 200}}) {
        colour(board);
        bench.panel({.origin = {-4, 2.6, 9}}, 1, 0.7);
    }

    colour({255, 0, 0}, 50);
    bench.panel(turned(10, 0, 1, 0, {-1.2, 0.2, 6}), 0.9, 1.4);
    colour({0, 255, 0}, 50);
    bench.panel(turned(10, 0, -1, 0, {-0.5, -0.2, 4}), 0.7, 0.8);
    colour({0, 0, 255}, 50);
    bench.panel(turned(10, 1, 0, 1, {0, -0.5, 2.5}), 0.5, 0.4);
}

void buildTrueColourRoom(Scene& scene)
{
    buildRoom(scene, 16);
}

void buildPalettisedRoom(Scene& scene)
{
    buildRoom(scene, 8);
}

// Half blends and additive glows lie over a wall of bricks and a floor of planks.
void buildUnlitBlends(Scene& scene)
{
    Workbench bench(scene);
    bench.material = &scene.addMaterial({.texture = &scene.addTexture(16, 64, 64, bricks)});
    bench.panel(turned(12, 0, 1, 0, {0, 1, 10}), 9, 6, 5, 3);
    bench.material = &scene.addMaterial({.texture = &scene.addTexture(16, 256, 256, planks)});
    bench.panel({{1, 0, 0}, {0, 0, 1}, {0, -1, 0}, {0, -2, 6}}, 8, 8, 4, 4);

    bench.material = &scene.addMaterial({.transparency = 50, .texture = &scene.addTexture(16, 64, 64, tiles)});
    bench.panel(turned(8, 0, 2, 0, {-2, 0.6, 6}), 1.2, 1.2);
    bench.material = &scene.addMaterial({.transparency = 50, .texture = &scene.addTexture(16, 256, 256, tiles)});
    bench.panel(turned(8, 1, -2, 0, {-0.6, -0.5, 4}), 0.7, 0.7);

    bench.material = &scene.addMaterial({.shadingMode = 2, .texture = &scene.addTexture(16, 64, 64, glow)});
    bench.panel(turned(8, 0, -1, 0, {2, 0.8, 6}), 1.5, 1.5);
    bench.panel(turned(8, 0, 1, 0, {2.6, 0.4, 5}), 1.2, 1.2);
    bench.material = &scene.addMaterial({.shadingMode = 2, .texture = &scene.addTexture(16, 256, 256, glow)});
    bench.panel(turned(8, 2, 0, 1, {1, -0.8, 4}), 0.9, 0.9);
}

// Billboards of both kinds glow behind and before two pillars. The sorted ones are hidden by a pillar, the late sorted
// ones shine through it. Some are cut by the sides of the picture.
void buildBillboards(Scene& scene)
{
    Workbench bench(scene);
    bench.material = &scene.addMaterial({.texture = &scene.addTexture(16, 64, 64, bricks)});
    bench.box(turned(8, 0, 3, 0, {-1.5, 0, 7}), 0.7, 3, 0.7, 2);
    bench.box(turned(8, 0, -3, 0, {1.7, 0, 7}), 0.7, 3, 0.7, 2);

    bench.material = &scene.addMaterial({.shadingMode = 11, .texture = &scene.addTexture(16, 64, 64, glow)});
    bench.billboard({-2.2, 0.9, 9}, 1.6);
    bench.billboard({-1.4, -1.2, 5}, 0.8);
    bench.billboard({-5.6, 4, 7}, 1.3);

    Material& late = scene.addMaterial({.shadingMode = 10, .texture = &scene.addTexture(16, 256, 256, glow)});
    bench.material = &late;
    bench.billboard({2.4, 0.9, 9}, 1.6);
    bench.billboard({1.6, -1.2, 5}, 0.8);
    bench.billboard({5.6, -4, 7}, 1.3);
    bench.material = &scene.addMaterial({.shadingMode = 10, .texture = &scene.addTexture(16, 64, 64, tiles)});
    bench.billboard({0, 0, 5}, 1);
}

} // namespace kardeno::scenes
