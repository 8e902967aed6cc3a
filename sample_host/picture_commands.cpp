#include "sample_host/picture_commands.h"

#include "sample_host/host/projected_outline.h"
#include "sample_host/pick_in_words.h"
#include "sample_host/pictures/animated_png.h"
#include "sample_host/pictures/image_files.h"
#include "sample_host/pictures/marks.h"
#include "sample_host/scenes/gallery.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace sample_host {

namespace {

constexpr int framesPerSecond = 20;

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// The file of that name in the folder for pictures, which is made if it is not there.
std::string fileInFolder(const Options& options, const std::string& name)
{
    std::error_code error;
    std::filesystem::create_directories(options.outFolder, error);
    if (error) throw std::runtime_error("the folder '" + options.outFolder + "' cannot be made: " + error.message());
    return (std::filesystem::path(options.outFolder) / name).generic_string();
}

const char* wordFor(PixelFormat format)
{
    return format == PixelFormat::rgb565 ? "5-6-5" : "5-5-5";
}

// Lit materials have 256-colour maps whatever was asked for.
std::string wordsFor(const MaterialMode& mode)
{
    if (mode.renderState != 0) return "lit 256-colour maps";
    return mode.textures == TextureKind::palettised ? "unlit 256-colour maps" : "unlit 16-bit maps";
}

} // namespace

std::string pictureName(const std::string& sceneName, const Options& options)
{
    const bool unlit = options.mode.renderState == 0;
    return sceneName + (options.format == PixelFormat::rgb565 ? "" : "-555") + (unlit ? "-unlit" : "")
           + (unlit && options.mode.textures == TextureKind::palettised ? "-palette" : "");
}

void writeScene(Scene& scene, const Options& options, const Progress& progress)
{
    const bool turning = options.frames > 1;
    const std::string file = fileInFolder(options, pictureName(scene.name, options) + (turning ? "-turn.png" : ".png"));
    std::unique_ptr<AnimatedPng> animation;
    if (turning)
        animation = std::make_unique<AnimatedPng>(file, options.width, options.height, options.frames, framesPerSecond);

    FrameBuffer frame(options.format, options.width, options.height);
    std::vector<double> milliseconds;
    for (int i = 0; i < options.frames; ++i) {
        report(progress, "drawing", double(i) / options.frames);
        milliseconds.push_back(scene.draw(frame, double(i) / options.frames));
        if (turning)
            animation->addFrame(frame.image());
        else
            writePng(file, frame.image());
    }
    if (turning) animation->finish();
    report(progress, "drawing", 1);

    std::printf("%s: %s, %s, %dx%d in %s, %s, %d frame%s, %.2f ms per frame (median)\n", file.c_str(),
                scene.name.c_str(), scene.contents.c_str(), options.width, options.height, wordFor(options.format),
                wordsFor(options.mode).c_str(), options.frames, turning ? "s" : "", median(milliseconds));
}

void writePick(Scene& scene, const Options& options)
{
    FrameBuffer frame(options.format, options.width, options.height);
    scene.draw(frame, 0);
    Image image = frame.image();
    const Pixel pixel{options.pickX, options.pickY};
    const Pick pick = scene.pick(frame, 0, pixel.x, pixel.y);
    if (pick.object) {
        const View view(scene.camera, frame.width, frame.height, frame.pitch);
        drawOutline(image, projectedOutline(pick.object->outline(pick.face), view));
    }
    drawCross(image, pixel);
    const std::string file = fileInFolder(options, pictureName(scene.name, options) + "-pick.png");
    writePng(file, image);

    std::printf("%s: under pixel (%d, %d) ", file.c_str(), pixel.x, pixel.y);
    std::printf("lies %s\n", pickInWords(pick).c_str());
}

void writeGallerySheet(Engine& engine, const Options& options)
{
    const char* name = engine.format == PixelFormat::rgb565 ? "gallery-565.png" : "gallery-555.png";
    const std::string file = fileInFolder(options, name);
    writePng(file, gallerySheet(engine));
    std::printf("%s: the render modes, in %s\n", file.c_str(), wordFor(engine.format));
}

} // namespace sample_host
