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
    return readSceneText(scene.name, scene.text(),
                         {[&](const std::string& name) { return modelNamed(files, name); },
                          [&](const std::string& name) { return imageNamed(files, name); }});
}

} // namespace page
