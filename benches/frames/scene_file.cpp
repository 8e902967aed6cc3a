#include "benches/frames/scene_file.h"

#include <cstdio>
#include <cstring>

namespace benches {

namespace {

struct Head {
    char magic[4];
    std::uint32_t width, height, vertices, triangles, frames, flags, opaqueTriangles;
    float fieldOfView, nearest, farthest;
};
static_assert(sizeof(Head) == 44);

template <class Element>
bool readAll(std::FILE* file, std::vector<Element>& elements, std::uint32_t count)
{
    elements.resize(count);
    return std::fread(elements.data(), sizeof(Element), count, file) == count;
}

bool readFrom(std::FILE* file, SceneFile& scene)
{
    Head head;
    if (std::fread(&head, sizeof head, 1, file) != 1 || std::memcmp(head.magic, "KSCN", 4) != 0) return false;
    scene.frontFacesOnly = (head.flags & 1) != 0;
    scene.opaqueTriangles = head.opaqueTriangles;
    scene.fieldOfView = head.fieldOfView;
    scene.nearest = head.nearest;
    scene.farthest = head.farthest;
    return std::fread(scene.palette, sizeof scene.palette, 1, file) == 1
           && std::fread(scene.texels, sizeof scene.texels, 1, file) == 1
           && readAll(file, scene.vertices, head.vertices) && readAll(file, scene.triangles, head.triangles)
           && readAll(file, scene.frames, head.frames);
}

} // namespace

bool readSceneFile(const std::string& name, SceneFile& scene, std::string& sentence)
{
    std::FILE* file = std::fopen(name.c_str(), "rb");
    if (!file) {
        sentence = "the scene '" + name + "' cannot be opened";
        return false;
    }
    const bool whole = readFrom(file, scene);
    std::fclose(file);
    if (!whole) sentence = "the file '" + name + "' is no scene, or is cut short";
    return whole;
}

} // namespace benches
