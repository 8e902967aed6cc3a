// Reads a model from given files. Nothing here throws or ends the module: what is wrong with a file comes back as a
// sentence.
#pragma once

#include "page/given_files.h"
#include "sample_host/reading/named_files.h"

namespace page {

using namespace sample_host;

// Reads the one model among the files: OBJ with its materials and images, or glTF 2.0 as text or in one file. The model
// has remarks on what was left out.
ModelReading readModel(const GivenFiles& files);

// Reads this model of them.
ModelReading readModelFile(const GivenFiles& files, const GivenFile& file);
ModelReading readObj(const GivenFiles& files, const GivenFile& file);
ModelReading readGltf(const GivenFiles& files, const GivenFile& file);

inline ModelReading problem(const GivenFile& file, const std::string& what)
{
    return {std::nullopt, "'" + file.name + "'" + what};
}

// The triangles of a model, as files have them: each corner names its values by number, -1 for none.
struct Triangles {
    struct Corner {
        int position, normal = -1, texture = -1;
    };
    struct Triangle {
        Corner corners[3];
        int material;
    };
    struct TexturePlace {
        double u, v; // from the left upper corner of the image
    };
    std::vector<Vector> positions, normals;
    std::vector<TexturePlace> textures;
    std::vector<Triangle> triangles;
};

// More than this would take longer than anybody waits.
inline constexpr std::size_t mostTriangles = 200000;

// Puts the triangles into the sphere of radius 1 and gives them the materials. Those without an area are left out, and
// so are those with a number that is not finite; remarks tell how many. Corners without a normal take that of the
// triangles around them.
ModelReading finished(const GivenFile& file, const Triangles& triangles, std::vector<MaterialRecipe> materials,
                      std::vector<std::string> remarks);

// An image as the renderer takes it, its sides resized to powers of two. The problem is what goes on after the image's
// name.
ImageReading readImage(const std::uint8_t* bytes, std::size_t count, bool keepsHoles);

} // namespace page
