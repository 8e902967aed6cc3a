// Transform, clipping, culling and projection for renderers that only fill polygons on the screen.
#pragma once

#include "benches/frames/scene_file.h"

#include <array>
#include <cmath>
#include <span>
#include <utility>

namespace benches {

struct ScreenCorner {
    float x, y, depth; // pixels; the depth is that of the eye space, above 0
    float u, v, light;
};

struct ScreenFace {
    int corners;
    std::size_t triangle;
    float depth; // mean of its corners
    ScreenCorner corner[8];
};

class ScreenPolygons {
public:
    ScreenPolygons(const SceneFile& scene, int width, int height)
        : scene_(scene), centreX_(float(width) / 2), centreY_(float(height) / 2),
          focus_(float(height / 2.0 / std::tan(scene.fieldOfView * 3.14159265358979 / 360.0))),
          sideX_(centreX_ / focus_), sideY_(centreY_ / focus_), vertices_(scene.vertices.size())
    {
    }

    // Calls draw(face) for every triangle of a frame that may have pixels.
    template <class Draw>
    void forEachFace(std::size_t frame, Draw draw)
    {
        prepareVertices(scene_.frames[frame]);
        ScreenFace face;
        for (face.triangle = 0; face.triangle < scene_.triangles.size(); ++face.triangle) {
            const std::uint32_t* const corners = scene_.triangles[face.triangle].corners;
            const Vertex &a = vertices_[corners[0]], &b = vertices_[corners[1]], &c = vertices_[corners[2]];
            if (a.outside & b.outside & c.outside) continue;
            const unsigned outside = a.outside | b.outside | c.outside;
            const bool survives = outside == 0 ? takeWhole(corners, face) : takeClipped(corners, outside, face);
            if (survives) draw(face);
        }
    }

private:
    enum Side : unsigned { nearest = 1, left = 2, right = 4, below = 8, above = 16 };

    // A vertex in eye space, whose z points away from the eye, and on the screen where it lies behind the near plane.
    struct Vertex {
        float x, y, z, screenX, screenY;
        unsigned outside; // of which sides
    };
    struct Clipped {
        float x, y, z, u, v, light;
    };
    // What lies inside has a x + b y + c z + d >= 0.
    struct Plane {
        Side side;
        float a, b, c, d;
        float distance(const Clipped& p) const { return a * p.x + b * p.y + c * p.z + d; }
    };
    // A triangle that is cut by five planes has up to eight corners.
    struct Outline {
        std::array<Clipped, 9> corner;
        std::size_t count;
    };

    void prepareVertices(const FileMatrix& m)
    {
        for (std::size_t i = 0; i < vertices_.size(); ++i) {
            const FileVertex& from = scene_.vertices[i];
            Vertex& to = vertices_[i];
            to.x = m[0] * from.x + m[4] * from.y + m[8] * from.z + m[12];
            to.y = m[1] * from.x + m[5] * from.y + m[9] * from.z + m[13];
            to.z = -(m[2] * from.x + m[6] * from.y + m[10] * from.z + m[14]);
            const float halfX = sideX_ * to.z, halfY = sideY_ * to.z;
            to.outside = (to.z < scene_.nearest ? nearest : 0u) | (to.x < -halfX ? left : 0u)
                         | (to.x > halfX ? right : 0u) | (to.y < -halfY ? below : 0u) | (to.y > halfY ? above : 0u);
            if (to.z < scene_.nearest) continue;
            const float scale = focus_ / to.z;
            to.screenX = centreX_ + to.x * scale;
            to.screenY = centreY_ - to.y * scale;
        }
    }

    static float turn(float ax, float ay, float bx, float by) { return ax * by - ay * bx; }

    bool takeWhole(const std::uint32_t* corners, ScreenFace& face) const
    {
        const Vertex &a = vertices_[corners[0]], &b = vertices_[corners[1]], &c = vertices_[corners[2]];
        const float area =
            turn(b.screenX - a.screenX, b.screenY - a.screenY, c.screenX - a.screenX, c.screenY - a.screenY);
        if (scene_.frontFacesOnly && area >= 0) return false;
        face.corners = 3;
        for (std::size_t k = 0; k < 3; ++k) {
            const FileVertex& from = scene_.vertices[corners[k]];
            const Vertex& at = vertices_[corners[k]];
            face.corner[k] = {at.screenX, at.screenY, at.z, from.u, from.v, from.light};
        }
        setDepth(face);
        return true;
    }

    bool takeClipped(const std::uint32_t* corners, unsigned outside, ScreenFace& face) const
    {
        Outline outline{{}, 3}, cut{};
        for (std::size_t k = 0; k < 3; ++k) {
            const FileVertex& from = scene_.vertices[corners[k]];
            const Vertex& at = vertices_[corners[k]];
            outline.corner[k] = {at.x, at.y, at.z, from.u, from.v, from.light};
        }
        const Plane planes[] = {{nearest, 0, 0, 1, -scene_.nearest},
                                {left, 1, 0, sideX_, 0},
                                {right, -1, 0, sideX_, 0},
                                {below, 0, 1, sideY_, 0},
                                {above, 0, -1, sideY_, 0}};
        for (const Plane& plane : planes) {
            if (!(outside & plane.side)) continue;
            clip(outline, plane, cut);
            std::swap(outline, cut);
        }
        if (outline.count < 3) return false;

        face.corners = int(outline.count);
        for (std::size_t k = 0; k < outline.count; ++k) {
            const Clipped& at = outline.corner[k];
            const float scale = focus_ / at.z;
            face.corner[k] = {centreX_ + at.x * scale, centreY_ - at.y * scale, at.z, at.u, at.v, at.light};
        }
        float area = 0;
        for (std::size_t k = 0; k < outline.count; ++k) {
            const ScreenCorner &p = face.corner[k], &q = face.corner[(k + 1) % outline.count];
            area += turn(p.x, p.y, q.x, q.y);
        }
        if (scene_.frontFacesOnly && area >= 0) return false;
        setDepth(face);
        return true;
    }

    static void clip(const Outline& from, const Plane& plane, Outline& to)
    {
        to.count = 0;
        for (std::size_t k = 0; k < from.count; ++k) {
            const Clipped &p = from.corner[k], &q = from.corner[k + 1 == from.count ? 0 : k + 1];
            const float dp = plane.distance(p), dq = plane.distance(q);
            if (dp >= 0) to.corner[to.count++] = p;
            if ((dp >= 0) == (dq >= 0)) continue;
            const float part = dp / (dp - dq);
            const auto between = [&](float a, float b) { return a + (b - a) * part; };
            to.corner[to.count++] = {between(p.x, q.x), between(p.y, q.y), between(p.z, q.z),
                                     between(p.u, q.u), between(p.v, q.v), between(p.light, q.light)};
        }
    }

    static void setDepth(ScreenFace& face)
    {
        face.depth = 0;
        for (int k = 0; k < face.corners; ++k) face.depth += face.corner[k].depth;
        face.depth /= float(face.corners);
    }

    const SceneFile& scene_;
    float centreX_, centreY_, focus_, sideX_, sideY_;
    std::vector<Vertex> vertices_;
};

} // namespace benches
