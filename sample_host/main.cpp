// The sample host: loads the renderer, builds a scene, draws it and writes the pictures.
#include "sample_host/host_memory.h"
#include "sample_host/pictures.h"
#include "sample_host/scenes.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace sample_host {

namespace {

constexpr const char* fetchedModel = "cache/models/OBJ/spider.obj";

std::string libraryBeside(const char* program)
{
    return (std::filesystem::absolute(program).parent_path() / KARDENO_LIBRARY_NAME).string();
}

const SceneEntry& chosenScene(const Options& options, SceneRequest& request)
{
    request.modelFile = options.modelFile;
    if (!options.sceneName.empty()) {
        const auto hasName = [&](const SceneEntry& entry) { return entry.name == options.sceneName; };
        const auto entry = std::ranges::find_if(ownScenes, hasName);
        if (entry == std::end(ownScenes))
            throw std::runtime_error("there is no scene '" + options.sceneName + "' (--help lists them)");
        return *entry;
    }
    if (!request.modelFile.empty()) return modelScene;
    if (std::filesystem::exists(fetchedModel)) {
        request.modelFile = fetchedModel;
        return modelScene;
    }
    std::cout << "no model is named and none was fetched: drawing the room instead\n";
    return roomScene;
}

// One engine at a time: there is one renderer, and it serves the context that it was given last.
void drawGallery(const RendererLibrary& library, const Options& options)
{
    for (const PixelFormat format : {PixelFormat::rgb565, PixelFormat::rgb555}) {
        Engine engine(library, format);
        writeGallerySheet(engine, options);
    }
    for (const SceneEntry& entry : ownScenes) {
        Engine engine(library, options.format);
        writeScene(*entry.build(engine, {.mode = options.mode}), options);
    }
}

void run(std::span<const char* const> arguments)
{
    const Options options = readOptions(arguments.subspan(1));
    if (options.command == Command::help) {
        std::cout << usage;
        return;
    }
    const HostMemory memory; // outlives the library
    const RendererLibrary library(options.libraryFile.empty()
                                      ? libraryBeside(arguments[0])
                                      : std::filesystem::absolute(options.libraryFile).string());
    if (options.command == Command::gallery) return drawGallery(library, options);

    Engine engine(library, options.format);
    SceneRequest request{.mode = options.mode};
    const std::unique_ptr<Scene> scene = chosenScene(options, request).build(engine, request);
    if (options.command == Command::pick)
        writePick(*scene, options);
    else
        writeScene(*scene, options);
}

} // namespace

} // namespace sample_host

int main(int argumentCount, char** arguments)
{
    try {
        sample_host::run({arguments, std::size_t(argumentCount)});
        return 0;
    } catch (const std::bad_alloc&) {
        std::cerr << "sample_host: there is not enough memory\n";
    } catch (const std::exception& error) {
        std::cerr << "sample_host: " << error.what() << "\n";
    }
    return 1;
}
