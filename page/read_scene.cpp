#include "page/read_scene.h"

#include "page/read_model.h"

namespace page {

namespace {

bool isScene(const GivenFile& file)
{
    return endsIn(file.name, ".json");
}

ModelReading modelNamed(const GivenFiles& files, const std::string& name)
{
    const GivenFile* file = find(files, name);
    if (!file) return {std::nullopt, "the model '" + name + "' is not among the files"};
    return readModelFile(files, *file);
}

ImageReading imageNamed(const GivenFiles& files, const std::string& name)
{
    const GivenFile* file = find(files, name);
    ImageReading reading{nullptr, "is not among the files"};
    if (file) reading = readImage(file->bytes.data(), file->bytes.size(), true);
    if (!reading.image) reading.problem = "the image '" + name + "' " + reading.problem;
    return reading;
}

// Of a thing and all that is in it.
std::size_t polygonsOf(const SceneFile& scene, const SceneFile::Thing& thing)
{
    std::size_t count = scene.meshes[thing.mesh].polygons.size();
    for (const SceneFile::Thing& child : thing.children) count += polygonsOf(scene, child);
    return count;
}

std::size_t polygonsOf(const SceneFile& scene)
{
    std::size_t count = 0;
    for (const std::vector<SceneFile::Thing>* things : {&scene.objects, &scene.levels})
        for (const SceneFile::Thing& thing : *things) count += polygonsOf(scene, thing);
    return count;
}

} // namespace

const GivenFile* sceneFileAmong(const GivenFiles& files)
{
    for (const GivenFile& file : files)
        if (isScene(file)) return &file;
    return nullptr;
}

SceneReading readScene(const GivenFiles& files)
{
    const GivenFile& scene = *sceneFileAmong(files);
    for (const GivenFile& file : files)
        if (isScene(file) && &file != &scene)
            return {std::nullopt, "'" + scene.name + "' and '" + file.name
                                      + "' are two scenes; expected is one, with its models and images"};
    SceneReading reading = readSceneText(scene.name, scene.text(),
                                         {[&](const std::string& name) { return modelNamed(files, name); },
                                          [&](const std::string& name) { return imageNamed(files, name); }});
    if (const std::size_t count = reading.scene ? polygonsOf(*reading.scene) : 0; count > mostTriangles)
        return {std::nullopt, "'" + scene.name + "' has " + std::to_string(count) + " polygons; the page takes up to "
                                  + std::to_string(mostTriangles)};
    return reading;
}

} // namespace page
