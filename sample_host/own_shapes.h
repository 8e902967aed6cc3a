// Shapes made by code.
#pragma once

#include "sample_host/mesh.h"

#include <array>

namespace sample_host {

// A parallelogram in cells, seen from the side to which cross(toRight, toUp) points. The image is repeated over it.
struct Board {
    Vector corner;  // the lower left one
    Vector toRight; // its sides
    Vector toUp;
    int columns = 1, rows = 1;
    double repeatRight = 1, repeatUp = 1;
};
void addBoard(Mesh& mesh, int material, const Board& board);

// A box around the origin of its own space, each side with the whole image.
void addBox(Mesh& mesh, int material, const Vector& middle, const Vector& halfSize);

// An upright prism with that many sides, round to the light, with a lid.
struct Column {
    Vector foot;
    double radius = 1, height = 1;
    int sides = 8;
    double repeatUp = 1;
};
void addColumn(Mesh& mesh, int material, const Column& column);

// A ball in strips of quadrilaterals, triangles at the poles.
void addBall(Mesh& mesh, int material, const Vector& middle, double radius, int slices);

} // namespace sample_host
