// A neutral scene as its file holds it (scripts/scene_builder.py writes the files and tells their form): triangles, a
// texture and a camera path, in nobody's records.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace benches {

struct FileVertex {
    float x, y, z, u, v, light; // u and v of 1 are one repeat of the texture; light is 0 to 1
};
static_assert(sizeof(FileVertex) == 24);

struct FileTriangle {
    std::uint32_t corners[3]; // counter-clockwise when seen from the front
    std::uint8_t red, green, blue, unused;
};
static_assert(sizeof(FileTriangle) == 16);

// A model-view matrix, column by column; the axes point right, up and toward the viewer.
using FileMatrix = std::array<float, 16>;

struct SceneFile {
    bool frontFacesOnly;
    std::uint32_t opaqueTriangles; // those behind them are see-through and lie in back-to-front order
    float fieldOfView;             // from top to bottom, in degrees
    float nearest, farthest;
    std::uint8_t palette[256][3];
    std::uint8_t texels[256 * 256];
    std::vector<FileVertex> vertices;
    std::vector<FileTriangle> triangles;
    std::vector<FileMatrix> frames;
};

// Reads the scene, or leaves a sentence and gives false.
bool readSceneFile(const std::string& name, SceneFile& scene, std::string& sentence);

} // namespace benches
