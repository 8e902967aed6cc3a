// Shapes made by code.
#pragma once

#include "sample_host/host/mesh.h"

#include <array>

namespace sample_host {

// Cells of a board, counted from its lower left corner; the ends are not among them.
struct CellRange {
    int firstColumn = 0, firstRow = 0, columnEnd = 0, rowEnd = 0;
};

// A parallelogram in cells, seen from the side to which cross(toRight, toUp) points. The image is repeated over it.
struct Board {
    Vector corner;  // the lower left one
    Vector toRight; // its sides
    Vector toUp;
    int columns = 1, rows = 1;
    double repeatRight = 1, repeatUp = 1;
    CellRange hole{}; // cells that are left out
};
void addBoard(Mesh& mesh, int material, const Board& board);
// A board whose cells have two materials in turn, the first one in the lower left corner.
void addChequers(Mesh& mesh, int material, int otherMaterial, const Board& board);

// A box around the origin of its own space, each side with the whole image.
void addBox(Mesh& mesh, int material, const Vector& middle, const Vector& halfSize);

// A quadrilateral of that size around the origin, facing Z, for objects that turn to the eye. The renderer puts its
// corners, in their order, to the upper left, lower left, lower right and upper right of a square on the screen.
void addSprite(Mesh& mesh, int material, double size);

// An upright prism with 3 to 10 sides, round to the light, with two lids unless it is open.
struct Column {
    Vector foot;
    double radius = 1, height = 1;
    int sides = 8;
    double repeatUp = 1;
    double topRadius = radius;
    bool open = false;
};
void addColumn(Mesh& mesh, int material, const Column& column);

// A wall of boards around the origin, seen from inside, with the image repeated all the way round.
struct Ring {
    double radius = 10, foot = 0, height = 5;
    int sides = 12, repeatAround = 4;
};
void addRing(Mesh& mesh, int material, const Ring& ring);

// A ball in strips of quadrilaterals, triangles at the poles.
void addBall(Mesh& mesh, int material, const Vector& middle, double radius, int slices, int repeatAround = 1);

} // namespace sample_host
