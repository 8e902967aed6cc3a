#include "sample_host/scenes/own_shapes.h"

#include <algorithm>

namespace sample_host {

namespace {

bool contains(const CellRange& cells, int column, int row)
{
    return column >= cells.firstColumn && column < cells.columnEnd && row >= cells.firstRow && row < cells.rowEnd;
}

// A circle of a column, for its lids.
std::vector<Mesh::Corner> addCircle(Mesh& mesh, const Vector& middle, double radius, int sides, const Vector& normal)
{
    std::vector<Mesh::Corner> corners;
    for (int side = 0; side < sides; ++side) {
        const double turn = double(side) / sides;
        const Vector outward{sineOfTurn(turn), 0, cosineOfTurn(turn)};
        const int vertex = mesh.addVertex(middle + outward * radius, normal);
        corners.push_back({vertex, 0.5 + 0.5 * outward.x, 0.5 + 0.5 * outward.z});
    }
    return corners;
}

} // namespace

void addBoard(Mesh& mesh, int material, const Board& board)
{
    addChequers(mesh, material, material, board);
}

void addChequers(Mesh& mesh, int material, int otherMaterial, const Board& board)
{
    const Vector normal = unit(cross(board.toRight, board.toUp));
    const int first = int(mesh.positions.size()), stride = board.columns + 1;
    for (int row = 0; row <= board.rows; ++row) {
        for (int column = 0; column <= board.columns; ++column) {
            mesh.addVertex(board.corner + board.toRight * (double(column) / board.columns)
                               + board.toUp * (double(row) / board.rows),
                           normal);
        }
    }
    const auto corner = [&](int column, int row) {
        return Mesh::Corner{first + row * stride + column, board.repeatRight * column / board.columns,
                            board.repeatUp * (board.rows - row) / board.rows};
    };
    for (int row = 0; row < board.rows; ++row) {
        for (int column = 0; column < board.columns; ++column) {
            if (contains(board.hole, column, row)) continue;
            mesh.addPolygon((column + row) % 2 == 0 ? material : otherMaterial,
                            std::array{corner(column, row), corner(column + 1, row), corner(column + 1, row + 1),
                                       corner(column, row + 1)});
        }
    }
}

void addSprite(Mesh& mesh, int material, double size)
{
    const double half = size / 2;
    const auto corner = [&](double x, double y, double u, double v) {
        return Mesh::Corner{mesh.addVertex({x, y, 0}, {0, 0, 1}), u, v};
    };
    mesh.addPolygon(material, std::array{corner(-half, half, 0, 0), corner(-half, -half, 0, 1),
                                         corner(half, -half, 1, 1), corner(half, half, 1, 0)});
}

void addBox(Mesh& mesh, int material, const Vector& middle, const Vector& halfSize)
{
    const Vector x{2 * halfSize.x, 0, 0}, y{0, 2 * halfSize.y, 0}, z{0, 0, 2 * halfSize.z};
    const Vector low = middle - halfSize, high = middle + halfSize;
    addBoard(mesh, material, {low + z, x, y});          // front
    addBoard(mesh, material, {low + x, x * -1, y});     // back
    addBoard(mesh, material, {low, z, y});              // left
    addBoard(mesh, material, {low + x + z, z * -1, y}); // right
    addBoard(mesh, material, {low, x, z});              // below
    addBoard(mesh, material, {high - x, x, z * -1});    // above
}

void addColumn(Mesh& mesh, int material, const Column& column)
{
    const int first = int(mesh.positions.size());
    const Vector up{0, column.height, 0};
    for (int side = 0; side <= column.sides; ++side) {
        const double turn = double(side) / column.sides;
        const Vector outward{sineOfTurn(turn), 0, cosineOfTurn(turn)};
        mesh.addVertex(column.foot + outward * column.radius, outward);
        mesh.addVertex(column.foot + outward * column.topRadius + up, outward);
    }
    for (int side = 0; side < column.sides; ++side) {
        const int foot = first + 2 * side;
        const double left = double(side) / column.sides, right = double(side + 1) / column.sides;
        mesh.addPolygon(material, std::array{Mesh::Corner{foot, left, column.repeatUp},
                                             Mesh::Corner{foot + 2, right, column.repeatUp},
                                             Mesh::Corner{foot + 3, right, 0}, Mesh::Corner{foot + 1, left, 0}});
    }
    if (column.open) return;
    mesh.addPolygon(material, addCircle(mesh, column.foot + up, column.topRadius, column.sides, {0, 1, 0}));
    std::vector<Mesh::Corner> below = addCircle(mesh, column.foot, column.radius, column.sides, {0, -1, 0});
    std::reverse(below.begin(), below.end());
    mesh.addPolygon(material, below);
}

void addRing(Mesh& mesh, int material, const Ring& ring)
{
    const int first = int(mesh.positions.size());
    for (int side = 0; side <= ring.sides; ++side) {
        const double turn = double(side % ring.sides) / ring.sides;
        const Vector outward{sineOfTurn(turn), 0, cosineOfTurn(turn)};
        const Vector foot = outward * ring.radius + Vector{0, ring.foot, 0};
        mesh.addVertex(foot, outward * -1);
        mesh.addVertex(foot + Vector{0, ring.height, 0}, outward * -1);
    }
    // The lowest row of texels is left out: a coordinate of all of 1 would show the first row again.
    constexpr double lowest = 0.98;
    for (int side = 0; side < ring.sides; ++side) {
        const int foot = first + 2 * side;
        const double left = double(side) * ring.repeatAround / ring.sides;
        const double right = double(side + 1) * ring.repeatAround / ring.sides;
        mesh.addPolygon(material, std::array{Mesh::Corner{foot, left, lowest}, Mesh::Corner{foot + 1, left, 0},
                                             Mesh::Corner{foot + 3, right, 0}, Mesh::Corner{foot + 2, right, lowest}});
    }
}

void addBall(Mesh& mesh, int material, const Vector& middle, double radius, int slices, int repeatAround)
{
    const int rings = slices / 2, stride = slices + 1, first = int(mesh.positions.size());
    for (int ring = 0; ring <= rings; ++ring) {
        const double height = cosineOfTurn(0.5 * ring / rings), width = sineOfTurn(0.5 * ring / rings);
        for (int slice = 0; slice <= slices; ++slice) {
            const double turn = double(slice) / slices;
            const Vector outward{width * sineOfTurn(turn), height, width * cosineOfTurn(turn)};
            mesh.addVertex(middle + outward * radius, outward);
        }
    }
    const auto corner = [&](int slice, int ring) {
        return Mesh::Corner{first + ring * stride + slice, double(slice) * repeatAround / slices, double(ring) / rings};
    };
    for (int ring = 0; ring < rings; ++ring) {
        for (int slice = 0; slice < slices; ++slice) {
            const Mesh::Corner lowerLeft = corner(slice, ring + 1), lowerRight = corner(slice + 1, ring + 1);
            const Mesh::Corner upperRight = corner(slice + 1, ring), upperLeft = corner(slice, ring);
            if (ring == 0)
                mesh.addPolygon(material, std::array{lowerLeft, lowerRight, upperLeft});
            else if (ring == rings - 1)
                mesh.addPolygon(material, std::array{lowerLeft, upperRight, upperLeft});
            else
                mesh.addPolygon(material, std::array{lowerLeft, lowerRight, upperRight, upperLeft});
        }
    }
}

} // namespace sample_host
