#include "scenes/composed_scene.h"
#include "scenes/shapes_scene.h"

namespace kardeno::scenes {

namespace {

Surface litSurface(i32 shadingMode, i32 transparency, Texture* texture)
{
    Surface surface;
    surface.state = 1;
    surface.shadingMode = shadingMode;
    surface.transparency = transparency;
    surface.texture = texture;
    return surface;
}

Surface shiny(Colour diffuse, i32 shininess, i32 specularLevel, i32 transparency = 0)
{
    Surface surface = litSurface(0, transparency, nullptr);
    surface.diffuse = diffuse;
    surface.specular = {255, 255, 255};
    surface.shininess = shininess;
    surface.specularLevel = specularLevel;
    return surface;
}

void addLitFloor(Workbench& bench)
{
    Scene& scene = bench.scene;
    bench.material = &scene.addMaterial(litSurface(0, 0, &scene.addTexture(8, 256, 256, planks)));
    bench.panel({{1, 0, 0}, {0, 0, 1}, {0, -1, 0}, {0, -2, 6}}, 8, 8, 4, 4);
}

} // namespace

// Gratings let the wall behind show through their holes. The key of the unlit ones is a colour, that of the lit ones a
// palette index.
void buildColourKeyed(Scene& scene)
{
    Workbench bench(scene);
    bench.minIntensity = 70;
    bench.material = &scene.addMaterial({.texture = &scene.addTexture(16, 64, 64, bricks)});
    bench.panel(turned(12, 0, 1, 0, {0, 0, 10}), 9, 6, 5, 3);

    bench.material = &scene.addMaterial({.shadingMode = 1, .texture = &scene.addTexture(16, 64, 64, grating)});
    bench.panel(turned(8, 0, 3, 0, {-2.4, 1, 6}), 1.6, 1.2);
    bench.material = &scene.addMaterial({.shadingMode = 1, .texture = &scene.addTexture(16, 256, 256, grating)});
    bench.panel(turned(8, 2, 0, 1, {-1.4, -1.2, 5}), 1.2, 0.9);

    bench.material = &scene.addMaterial(litSurface(1, 0, &scene.addTexture(8, 64, 64, grating)));
    bench.box(turned(8, 1, 3, 0, {1.6, 1, 6}), 1, 1, 1);
    bench.material = &scene.addMaterial(litSurface(1, 0, &scene.addTexture(8, 256, 256, grating)));
    bench.ball(turned(8, 1, 2, 1, {1.6, -1.2, 5}), 1);
}

// Balls from dull to shiny and a box stand behind a translucent ball.
void buildLitPlain(Scene& scene)
{
    Workbench bench(scene);
    bench.material = &scene.addMaterial(shiny({120, 130, 110}, 0, 0));
    bench.panel({{1, 0, 0}, {0, 0, 1}, {0, -1, 0}, {0, -2, 8}}, 9, 9);
    bench.material = &scene.addMaterial(shiny({230, 70, 60}, 0, 0));
    bench.ball(turned(8, 1, 1, 1, {-2.6, 1, 7}), 1.3);
    bench.material = &scene.addMaterial(shiny({70, 200, 80}, 50, 60));
    bench.ball(turned(8, 1, 1, 1, {0.4, 1.2, 8}), 1.3);
    bench.material = &scene.addMaterial(shiny({70, 110, 240}, 100, 100));
    bench.ball(turned(8, 1, 1, 1, {3, 0.6, 7}), 1.3);
    bench.material = &scene.addMaterial(shiny({220, 190, 80}, 20, 30));
    bench.box(turned(8, 1, 3, 1, {-0.8, -1, 6}), 0.8, 0.8, 0.8);
    bench.material = &scene.addMaterial(shiny({250, 250, 250}, 80, 80, 50));
    bench.ball(turned(8, 2, 1, 0, {0.7, -0.4, 4}), 0.9);
}

// Palettised maps are lit by a lamp, with both ways of addressing, with a highlight and with a tint.
void buildLitTextured(Scene& scene)
{
    Workbench bench(scene);
    addLitFloor(bench);
    bench.material = &scene.addMaterial(litSurface(0, 0, &scene.addTexture(8, 64, 32, bricks)));
    bench.box(turned(8, 0, 2, 0, {-2.6, 0.2, 8}), 1.3, 2, 1.3);
    bench.material = &scene.addMaterial(litSurface(0, 0, &scene.addTexture(8, 256, 256, tiles)));
    bench.box(turned(8, 1, -3, 1, {0.4, -0.6, 6}), 0.9, 0.9, 0.9);
    Surface glossy = litSurface(0, 0, &scene.addTexture(8, 128, 128, tiles));
    glossy.specular = {255, 255, 255};
    glossy.shininess = 60;
    glossy.specularLevel = 70;
    bench.material = &scene.addMaterial(glossy);
    bench.ball(turned(8, 1, 2, 0, {2.6, 1, 7}), 1.4);
    Surface tinted = litSurface(0, 0, &scene.addTexture(8, 256, 256, tiles));
    tinted.state = 2;
    tinted.tint = {128, 200, 255};
    bench.material = &scene.addMaterial(tinted);
    bench.ball(turned(9, -1, 3, 1, {-0.4, 1.8, 7}), 1);
}

// Half blends, with and without holes, and additive glows lie over a lit wall and a lit floor.
void buildLitBlends(Scene& scene)
{
    Workbench bench(scene);
    bench.minIntensity = 140;
    addLitFloor(bench);
    bench.material = &scene.addMaterial(litSurface(0, 0, &scene.addTexture(8, 64, 64, bricks)));
    bench.panel(turned(12, 0, 1, 0, {0, 1, 10}), 9, 6, 5, 3);

    bench.material = &scene.addMaterial(litSurface(0, 50, &scene.addTexture(8, 64, 64, tiles)));
    bench.panel(turned(8, 0, 2, 0, {-2.6, 1.2, 6}), 1, 1);
    bench.material = &scene.addMaterial(litSurface(0, 50, &scene.addTexture(8, 256, 256, tiles)));
    bench.panel(turned(8, 0, -2, 0, {-1.6, -0.6, 5}), 0.9, 0.9);
    bench.material = &scene.addMaterial(litSurface(1, 50, &scene.addTexture(8, 64, 64, zeroGrating)));
    bench.panel(turned(8, 0, 1, 0, {0, 1.2, 6}), 1, 1);
    bench.material = &scene.addMaterial(litSurface(1, 50, &scene.addTexture(8, 256, 256, zeroGrating)));
    bench.panel(turned(8, 1, -1, 0, {0.4, -0.6, 5}), 0.9, 0.9);
    bench.material = &scene.addMaterial(litSurface(2, 0, &scene.addTexture(8, 64, 64, glow)));
    bench.panel(turned(8, 0, -2, 0, {2.7, 1.2, 6}), 1.2, 1.2);
    bench.material = &scene.addMaterial(litSurface(2, 0, &scene.addTexture(8, 256, 256, glow)));
    bench.panel(turned(8, 1, 1, 0, {2.3, -0.6, 5}), 1.1, 1.1);
}

// The two rows that no render state selects interpolate colours from corner to corner, one by itself and the other to
// scale a texture.
void buildSpareRows(Scene& scene)
{
    Workbench bench(scene);
    bench.material = &scene.addMaterial({.spareRow = Surface::gouraud});
    bench.ball(turned(8, 1, 1, 1, {-2, 1.1, 6}), 1.3);
    bench.box(turned(8, 1, 3, 1, {-2, -1.5, 6}), 0.8, 0.8, 0.8);
    const i32 a = scene.addVertex({-0.6, 0.9, 5}, {255, 0, 0, 0});
    const i32 b = scene.addVertex({-0.9, -1.2, 5}, {0, 255, 0, 0});
    const i32 c = scene.addVertex({0.7, -1, 4}, {0, 0, 255, 0});
    const i32 d = scene.addVertex({0.7, 1, 4}, {255, 255, 255, 0});
    bench.face({{a}, {b}, {c}, {d}});

    bench.material =
        &scene.addMaterial({.texture = &scene.addTexture(16, 64, 64, tiles), .spareRow = Surface::scaledTexture});
    bench.ball(turned(8, 1, 1, 1, {2.4, 1.1, 6}), 1.3);
    bench.material =
        &scene.addMaterial({.texture = &scene.addTexture(16, 256, 256, bricks), .spareRow = Surface::scaledTexture});
    bench.box(turned(8, 1, -3, 1, {2.4, -1.5, 6}), 0.8, 0.8, 0.8);
}

void buildEverything(Scene& scene)
{
    Texture& trueColour = scene.addTexture(16, 64, 64, tiles);
    Texture& largeTrueColour = scene.addTexture(16, 256, 256, grating);
    Texture& glowing = scene.addTexture(16, 64, 64, glow);
    Texture& palettised = scene.addTexture(8, 64, 64, bricks);
    Texture& largePalettised = scene.addTexture(8, 256, 256, tiles);
    Texture& holes = scene.addTexture(8, 64, 64, zeroGrating);
    Texture& litGlow = scene.addTexture(8, 256, 256, glow);

    const Surface surfaces[20] = {
        {.state = 9},
        {.state = 9, .transparency = 50},
        {.diffuse = {200, 120, 60}},
        {.texture = &trueColour},
        {.shadingMode = 1, .texture = &largeTrueColour},
        {.transparency = 50, .diffuse = {80, 160, 255}},
        {.transparency = 50, .texture = &trueColour},
        {.shadingMode = 2, .texture = &glowing},
        {.shadingMode = 10, .texture = &glowing},
        {.shadingMode = 11, .texture = &glowing},
        {.texture = &palettised},
        shiny({200, 80, 120}, 60, 60),
        litSurface(0, 0, &largePalettised),
        litSurface(1, 0, &holes),
        shiny({120, 220, 120}, 60, 60, 50),
        litSurface(0, 50, &palettised),
        litSurface(1, 50, &holes),
        litSurface(2, 0, &litGlow),
        {.spareRow = Surface::gouraud},
        {.texture = &trueColour, .spareRow = Surface::scaledTexture},
    };

    // The floor reaches from behind the eye to beyond the far plane. Twenty boxes, one for each row of the render-mode
    // table, leave the picture on all sides.
    Workbench bench(scene);
    bench.material = &scene.addMaterial({.texture = &scene.addTexture(16, 256, 256, planks)});
    bench.panel({{1, 0, 0}, {0, 0, 1}, {0, -1, 0}, {0, -2.2, 15}}, 30, 16, 12, 8);
    bench.faceColour = 0x0b47;
    bench.colourStep = 0x1353;
    for (i32 i = 0; i < 20; ++i) {
        const f64 column = i % 5 - 2, row = i / 5;
        bench.material = &scene.addMaterial(surfaces[i]);
        const Vector place = {column * (1.9 + 0.4 * row) + 0.3, 2.7 - 1.7 * row, 9 - 1.4 * row};
        bench.box(turned(8, i % 4 - 1, i % 5 - 2, i % 3 - 1, place), 0.8, 0.7, 0.8);
    }
    // One box crosses the far plane and one the near plane.
    bench.material = &scene.addMaterial(surfaces[12]);
    bench.box(turned(8, 1, 2, 0, {0, 3, 24}), 8, 3, 3);
    bench.material = &scene.addMaterial(surfaces[11]);
    bench.box(turned(8, 1, 1, 3, {0.3, -0.5, 1.1}), 0.2, 0.15, 0.4);
}

} // namespace kardeno::scenes
