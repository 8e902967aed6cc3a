#include "sample_host/scenes/gallery.h"

#include "sample_host/pictures/label.h"
#include "sample_host/scenes/own_shapes.h"

namespace sample_host {

namespace {

constexpr Colour paper{250, 250, 248}, ink{20, 24, 32}, paleInk{96, 100, 108};

// The numbers of the stage's materials in its palette; the row's own comes first.
enum StageMaterial { shown, lightFloor, darkFloor, lightWall, darkWall, blockFront, blockSide, blockTop };

std::vector<Material*> stageMaterials(Scene& scene, const GalleryRow& row)
{
    std::vector<Material*> palette{scene.addMaterial(row.recipe)};
    // All in UnlitPlain, whatever the picture's own mode is.
    for (const Colour colour : {Colour{132, 132, 126}, Colour{62, 66, 72}, Colour{96, 110, 136}, Colour{44, 56, 86},
                                Colour{214, 190, 84}, Colour{150, 126, 44}, Colour{240, 222, 140}})
        palette.push_back(scene.addMaterial({.diffuse = colour, .glows = true}));
    return palette;
}

Mesh stage()
{
    Mesh mesh;
    addChequers(mesh, lightFloor, darkFloor, {{-4, 0, 3}, {8, 0, 0}, {0, 0, -5}, 16, 10});
    addChequers(mesh, lightWall, darkWall, {{-4, 0, -2}, {8, 0, 0}, {0, 4, 0}, 16, 8});
    return mesh;
}

Mesh block()
{
    constexpr double hair = 0.01;
    const Vector low{-0.3, hair, 1}, x{0.34, 0, 0}, y{0, 0.62, 0}, z{0, 0, 0.34};
    Mesh mesh;
    addBoard(mesh, blockFront, {low + z, x, y});
    addBoard(mesh, blockSide, {low, z, y});
    addBoard(mesh, blockSide, {low + x + z, z * -1, y});
    addBoard(mesh, blockTop, {low + y + z, x, z * -1});
    return mesh;
}

void addSolids(Scene& scene, std::span<Material* const> palette)
{
    Mesh ball, box;
    addBall(ball, shown, {}, 0.8, 20, 2);
    addBox(box, shown, {}, {0.52, 0.52, 0.52});
    scene.addObject(ball, palette, standing(movedTo({-0.95, 0.9, -0.2}) * turned({0, 1, 0}, -0.05))).name = "ball";
    scene.addObject(box, palette, standing(movedTo({0.95, 0.6, 0.1}) * turned({0, 1, 0}, 0.09))).name = "box";
}

void addSprites(Scene& scene, std::span<Material* const> palette)
{
    for (int i = 0; i < 5; ++i) {
        const Vector place{-1.5 + 0.75 * i, 0.75 + 0.55 * sineOfTurn(0.1 + 0.24 * i), -0.3 + 0.15 * i};
        Mesh mesh;
        addSprite(mesh, shown, 1.15);
        Object& sprite = scene.addObject(mesh, palette, standing(movedTo(place)));
        sprite.name = "billboard";
        sprite.becomeSprite();
    }
}

void copyInto(Image& sheet, int left, int top, const Image& picture)
{
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            sheet.set(left + x, top + y, picture.colour(std::size_t(y) * std::size_t(picture.width) + std::size_t(x)));
}

} // namespace

std::unique_ptr<Scene> buildGalleryScene(Engine& engine, const GalleryRow& row)
{
    auto scene = std::make_unique<Scene>(engine, row.mode);
    scene->name = row.name;
    const std::vector<Material*> palette = stageMaterials(*scene, row);
    scene->addObject(stage(), palette).name = "stage";
    scene->addObject(block(), palette).name = "block";
    if (row.shape == GalleryShape::solids)
        addSolids(*scene, palette);
    else
        addSprites(*scene, palette);

    scene->camera.target = {0, 0.8, 0};
    scene->camera.distance = 5;
    scene->camera.height = 1.1;
    scene->camera.zoom = 2.9;
    scene->camera.farZ = 20;
    // Only the rows of colours see that the lamps are red, green and blue.
    scene->light() = {.ambient = 0.2,
                      .lamps = {{.place = {-3.5, 3, 3}, .reach = 8, .strength = {1.6, 0.25, 0.2}},
                                {.place = {0.2, 5, 2}, .reach = 8, .strength = {0.2, 1.5, 0.2}},
                                {.place = {4, 1.5, 4}, .reach = 8, .strength = {0.2, 0.25, 1.6}}}};
    return scene;
}

Image gallerySheet(Engine& engine)
{
    const std::vector<GalleryRow> rows = galleryRows();
    Image sheet(SheetLayout::width(), SheetLayout::height(int(rows.size())));
    for (int y = 0; y < sheet.height; ++y)
        for (int x = 0; x < sheet.width; ++x) sheet.set(x, y, paper);
    drawText(sheet, SheetLayout::gap, 7,
             engine.format == PixelFormat::rgb565 ? "The render modes, into pixels of 5-6-5 bits"
                                                  : "The render modes, into pixels of 5-5-5 bits",
             ink);

    FrameBuffer frame(engine.format, SheetLayout::pictureWidth, SheetLayout::pictureHeight);
    for (int i = 0; i < int(rows.size()); ++i) {
        const GalleryRow& row = rows[std::size_t(i)];
        buildGalleryScene(engine, row)->draw(frame, 0);
        const int left = SheetLayout::left(i), top = SheetLayout::top(i);
        copyInto(sheet, left, top, frame.image());
        drawText(sheet, left, top + SheetLayout::pictureHeight + 3, row.name, ink);
        drawText(sheet, left, top + SheetLayout::pictureHeight + 13, row.what, paleInk);
    }
    return sheet;
}

} // namespace sample_host
