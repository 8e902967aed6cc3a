// The sample host: loads the renderer, builds a scene, draws it and writes the pictures.
#include "sample_host/animated_png.h"
#include "sample_host/host_memory.h"
#include "sample_host/options.h"
#include "sample_host/scenes.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace sample_host {

namespace {

constexpr const char* fetchedModel = "cache/models/OBJ/spider.obj";
constexpr int framesPerSecond = 20;

std::string libraryBeside(const char* program)
{
    return (std::filesystem::absolute(program).parent_path() / KARDENO_LIBRARY_NAME).string();
}

const SceneEntry& chosenScene(const Options& options, SceneRequest& request)
{
    request.modelFile = options.modelFile;
    if (options.room) return roomScene;
    if (!request.modelFile.empty()) return modelScene;
    if (std::filesystem::exists(fetchedModel)) {
        request.modelFile = fetchedModel;
        return modelScene;
    }
    std::cout << "no model is named and none was fetched: drawing the room instead\n";
    return roomScene;
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// The file of a picture, without its end: what it shows and how it was drawn.
std::string pictureName(const Scene& scene, const Options& options)
{
    return (std::filesystem::path(options.outFolder) / scene.name).generic_string()
           + (options.format == PixelFormat::rgb565 ? "-565" : "-555")
           + (options.mode.textures == TextureKind::palettised ? "-palette" : "-true")
           + (options.mode.renderState == 0 ? "" : "-lit");
}

// Draws the scene once as a still, or in several frames as a turntable. Says what it did.
void drawPictures(Scene& scene, const Options& options)
{
    std::error_code error;
    std::filesystem::create_directories(options.outFolder, error);
    if (error) throw std::runtime_error("the folder '" + options.outFolder + "' cannot be made: " + error.message());
    const bool turning = options.frames > 1;
    const std::string file = pictureName(scene, options) + (turning ? "-turn.png" : ".png");
    std::unique_ptr<AnimatedPng> animation;
    if (turning)
        animation = std::make_unique<AnimatedPng>(file, options.width, options.height, options.frames, framesPerSecond);

    FrameBuffer frame(options.format, options.width, options.height);
    std::vector<double> milliseconds;
    for (int i = 0; i < options.frames; ++i) {
        milliseconds.push_back(scene.draw(frame, double(i) / options.frames));
        if (turning)
            animation->addFrame(frame.image());
        else
            writePng(file, frame.image());
    }
    if (turning) animation->finish();

    std::printf("%s: %s, %s, %dx%d in %s, %s textures, %s, %d frame%s, %.2f ms per frame (median)\n", file.c_str(),
                scene.name.c_str(), scene.contents.c_str(), options.width, options.height,
                options.format == PixelFormat::rgb565 ? "5-6-5" : "5-5-5",
                options.mode.textures == TextureKind::palettised ? "256-colour" : "16-bit",
                options.mode.renderState == 0 ? "unlit" : "lit", options.frames, turning ? "s" : "",
                median(milliseconds));
}

void run(std::span<const char* const> arguments)
{
    const Options options = readOptions(arguments.subspan(1));
    if (options.help) {
        std::cout << usage;
        return;
    }
    const HostMemory memory; // outlives the library
    const RendererLibrary library(options.libraryFile.empty()
                                      ? libraryBeside(arguments[0])
                                      : std::filesystem::absolute(options.libraryFile).string());
    Engine engine(library, options.format);
    SceneRequest request{.mode = options.mode};
    const SceneEntry& entry = chosenScene(options, request);
    const std::unique_ptr<Scene> scene = entry.build(engine, request);
    drawPictures(*scene, options);
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
