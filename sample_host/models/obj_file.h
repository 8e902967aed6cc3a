// An OBJ file as it is written: its lists, and its faces with as many corners as the file gives them.
#pragma once

#include "sample_host/host/progress.h"

#include <tiny_obj_loader.h>

#include <span>
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
        int group = none; // its place in `groups`
    };
    struct Material {
        tinyobj::material_t record;
        std::string file; // the MTL file that it is from
    };

    // What is not there, although a line asks for it.
    struct Missing {
        std::string name;
        int line = 0;
    };

    std::vector<float> positions, normals; // three numbers each
    std::vector<float> colours;            // three numbers for each position; or none, where no vertex has a colour
    std::vector<float> textures;           // two numbers each, the second one counted from the lower edge of the image
    std::vector<Face> faces;
    std::vector<Material> materials;
    std::vector<std::string> groups;
    std::vector<Missing> missingFiles;     // MTL files
    std::vector<Missing> missingMaterials; // that faces ask for and no MTL file has
};

// Reads the file and the MTL files beside it. Throws with a sentence that names the file when it is not there; what is
// in it is not looked at any closer. A corner that names what does not exist has a number that is out of range, and a
// number that is none, or beyond all bounds, is not finite.
ObjFile readObjFile(const std::string& file, const Progress& progress = {});

// The line of a face, counted from 1.
int lineOfFace(const std::string& file, std::size_t face);

// The line of an MTL file, counted from 1, in which a material is given one of these values, as "map_Kd" is the image;
// 0 if that cannot be found.
int lineOfValue(const std::string& materialFile, const std::string& material, std::span<const std::string> values);

} // namespace sample_host
