// The renderer's twenty ways of drawing, and a material for each that shows what is special about it.
#pragma once

#include "sample_host/host/material.h"

namespace sample_host {

enum class GalleryShape {
    solids,  // a ball and a box
    sprites, // billboards
};

struct GalleryRow {
    const char* name;
    const char* what; // in a few words
    MaterialRecipe recipe;
    MaterialMode mode;
    GalleryShape shape = GalleryShape::solids;
};

// In the order in which the rows lie in the renderer's table.
std::vector<GalleryRow> galleryRows();

} // namespace sample_host
