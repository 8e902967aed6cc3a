// An OBJ file as it is written: its lists, and its faces with as many corners as the file gives them.
#pragma once

#include <tiny_obj_loader.h>

#include <string>
#include <vector>

namespace sample_host {

struct ObjFile {
    static constexpr int none = -1;

    struct Corner {
        int vertex = none, texture = none, normal = none; // counted from 0
    };
    struct Face {
        std::vector<Corner> corners;
        int material = none;
    };
    struct Material {
        tinyobj::material_t record;
        std::string file; // the MTL file that it is from
    };

    std::vector<float> positions, normals; // three numbers each
    std::vector<float> textures;           // two numbers each, the second one counted from the lower edge of the image
    std::vector<Face> faces;
    std::vector<Material> materials;
};

// Reads the file and the MTL files beside it. Throws with a sentence that names the file when it is not there; what is
// in it is not looked at any closer. A corner that names what does not exist has a number that is out of range.
ObjFile readObjFile(const std::string& file);

// The line of a face, counted from 1.
int lineOfFace(const std::string& file, std::size_t face);

// Where the image of a material is asked for: a line of its MTL file, counted from 1; 0 if that cannot be found.
int lineOfImage(const std::string& materialFile, const std::string& material);

} // namespace sample_host
