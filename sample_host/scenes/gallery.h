// The gallery: a small picture of each way of drawing, all in one contact sheet.
#pragma once

#include "sample_host/host/scene.h"
#include "sample_host/scenes/gallery_rows.h"

namespace sample_host {

// Where things are in the sheet, in pixels.
struct SheetLayout {
    static constexpr int columns = 5, pictureWidth = 176, pictureHeight = 132;
    static constexpr int labelHeight = 26, gap = 6, titleHeight = 20;
    static constexpr int cellWidth = pictureWidth + gap, cellHeight = pictureHeight + labelHeight;

    static constexpr int rowsFor(int pictures) { return (pictures + columns - 1) / columns; }
    static constexpr int width() { return columns * cellWidth + gap; }
    static constexpr int height(int pictures) { return titleHeight + rowsFor(pictures) * cellHeight + gap; }
    // The left upper corner of a picture. Its label stands below it, as wide as the picture.
    static constexpr int left(int picture) { return gap + picture % columns * cellWidth; }
    static constexpr int top(int picture) { return titleHeight + picture / columns * cellHeight; }
};

// The stage that all rows are shown on: chequers behind, and in front a ball and a box, or billboards, of the row's
// material; a plain block stands before them.
std::unique_ptr<Scene> buildGalleryScene(Engine& engine, const GalleryRow& row);

// Draws all rows in the engine's pixel format.
Image gallerySheet(Engine& engine);

} // namespace sample_host
