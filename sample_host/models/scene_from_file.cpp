#include "sample_host/models/scene_from_file.h"

#include "sample_host/host/failure.h"
#include "sample_host/models/model_file.h"
#include "sample_host/pictures/image_files.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace sample_host {

namespace {

ModelReading modelBeside(const std::filesystem::path& folder, const std::string& name, const Progress& progress)
{
    try {
        return {readModel((folder / name).generic_string(), progress), ""};
    } catch (const std::runtime_error& error) {
        return {std::nullopt, error.what()};
    }
}

ImageReading imageBeside(const std::filesystem::path& folder, const std::string& name)
{
    const std::string file = (folder / name).generic_string();
    try {
        return {std::make_shared<const Image>(resizedToPowersOfTwo(readImage(file))), ""};
    } catch (const std::runtime_error& reason) {
        return {nullptr, "the image '" + file + "' " + reason.what()};
    }
}

} // namespace

SceneFile readSceneFile(const std::string& file, const Progress& progress)
{
    std::ifstream stream;
    std::error_code ignored;
    if (std::filesystem::is_regular_file(file, ignored)) stream.open(file, std::ios::binary);
    if (!stream.is_open()) fail("the scene '" + file + "' cannot be read: it is not there or not a file");
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    SceneReading reading = readSceneText(file, text,
                                         {[&](const std::string& name) { return modelBeside(folder, name, progress); },
                                          [&](const std::string& name) { return imageBeside(folder, name); }});
    if (!reading.scene) fail(reading.problem);
    return std::move(*reading.scene);
}

} // namespace sample_host
