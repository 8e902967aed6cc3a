// Geometry before it becomes the renderer's: vertices, and convex polygons over them.
#pragma once

#include "sample_host/host/vector_maths.h"
#include "sample_host/pictures/image.h"

#include <span>
#include <string>
#include <vector>

namespace sample_host {

// Right-handed: Y up, Z towards the viewer of the default view.
struct Mesh {
    struct Corner {
        int vertex = 0;
        double u = 0, v = 0; // 0 to 1 spans the image, from its left upper corner
    };
    struct Polygon {
        std::size_t firstCorner = 0;
        int cornerCount = 0; // 3 to 10, flat and convex, counter-clockwise as seen from in front
        int material = 0;
        int group = -1; // its place in `groups`, or none
    };

    std::vector<Vector> positions;
    std::vector<Vector> normals; // of length 1, one for each position
    std::vector<Colour> colours; // one for each position, for materials with vertex colours; or none, which is white
    std::vector<Corner> corners; // those of the first polygon, then those of the next, ...
    std::vector<Polygon> polygons;
    std::vector<std::string> groups; // names, for people

    int addVertex(const Vector& position, const Vector& normal);
    void addPolygon(int material, std::span<const Corner> polygonCorners);
};

inline int Mesh::addVertex(const Vector& position, const Vector& normal)
{
    positions.push_back(position);
    normals.push_back(normal);
    return int(positions.size()) - 1;
}

inline void Mesh::addPolygon(int material, std::span<const Corner> polygonCorners)
{
    polygons.push_back({corners.size(), int(polygonCorners.size()), material, -1});
    corners.insert(corners.end(), polygonCorners.begin(), polygonCorners.end());
}

} // namespace sample_host
