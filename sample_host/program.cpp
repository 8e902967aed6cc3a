#include "sample_host/program.h"

#include "kardeno_soft/version.h"
#include "sample_host/host/host_memory.h"
#include "sample_host/host/renderer_file.h"
#include "sample_host/models/model_file.h"
#include "sample_host/models/scene_file.h"
#include "sample_host/picture_commands.h"
#include "sample_host/progress_bar.h"
#include "sample_host/scenes/model_scene.h"
#include "sample_host/scenes/scenes.h"

#include <filesystem>
#include <optional>
#include <ostream>

namespace sample_host {

namespace {

constexpr const char* fetchedModel = "cache/models/OBJ/spider.obj";

// What is to be drawn, read before the renderer is loaded: a model, the scene of a file, or neither when it is a scene
// of our own.
struct Subject {
    std::optional<Model> model;
    std::optional<SceneFile> sceneFile;
};

Subject chosenSubject(const Options& options, std::ostream& out, const Progress& progress)
{
    if (options.command == Command::gallery || !options.sceneName.empty()) return {};
    if (!options.sceneFile.empty()) return {.sceneFile = readSceneFile(options.sceneFile, progress)};
    if (!options.modelFile.empty()) return {.model = readModel(options.modelFile, progress)};
    if (std::filesystem::exists(fetchedModel)) return {.model = readModel(fetchedModel, progress)};
    out << "no model is named and none was fetched: drawing the room instead\n";
    return {};
}

void say(const std::vector<std::string>& remarks, std::ostream& out)
{
    for (const std::string& remark : remarks) out << remark << "\n";
}

// One engine at a time: there is one renderer, and it serves the context that it was given last.
void drawGallery(const RendererTable& renderer, const Options& options)
{
    for (const PixelFormat format : {PixelFormat::rgb565, PixelFormat::rgb555}) {
        Engine engine(renderer, format);
        writeGallerySheet(engine, options);
    }
    for (const SceneEntry& entry : ownScenes) {
        Engine engine(renderer, options.format);
        writeScene(*entry.build(engine, options.mode), options);
    }
}

std::unique_ptr<Scene> chosenScene(Engine& engine, const Subject& subject, const Options& options,
                                   const Progress& progress)
{
    if (subject.model) return buildModelScene(engine, *subject.model, options.mode, progress);
    if (subject.sceneFile) return buildSceneFile(engine, *subject.sceneFile, options.mode, progress);
    const SceneEntry* entry = sceneNamed(options.sceneName.empty() ? "room" : options.sceneName);
    return entry->build(engine, options.mode);
}

void run(const Options& options, const std::string& library, std::ostream& out, std::ostream& errors)
{
    if (options.command == Command::help) {
        out << usage;
        return;
    }
    if (options.command == Command::version) {
        out << "sample_host " KARDENO_VERSION "\n";
        return;
    }
    ProgressBar bar(errors, errorsGoToTerminal(), secondsNow);
    const Progress progress = [&](const char* task, double part) { bar.show(task, part); };
    // What a program is to read stands alone.
    std::ostream& remarks = options.asJson ? errors : out;
    const Subject subject = chosenSubject(options, remarks, progress);
    bar.show("", 1);
    if (subject.model) say(subject.model->remarks, remarks);
    if (subject.sceneFile) say(subject.sceneFile->remarks, remarks);
    out.flush(); // before what the commands say

    const HostMemory memory; // outlives the renderer
    const RendererFile renderer(options.libraryFile.empty() ? library
                                                            : std::filesystem::absolute(options.libraryFile).string());
    if (options.command == Command::gallery) return drawGallery(renderer.table(), options);

    Engine engine(renderer.table(), options.format);
    const std::unique_ptr<Scene> scene = chosenScene(engine, subject, options, progress);
    if (options.command == Command::pick)
        writePick(*scene, options);
    else if (options.command == Command::stats)
        sayCounts(*scene, options);
    else
        writeScene(*scene, options, progress);
}

} // namespace

int runProgram(std::span<const char* const> arguments, const std::string& library, std::ostream& out,
               std::ostream& errors)
{
    try {
        run(readOptions(arguments), library, out, errors);
        return 0;
    } catch (const std::bad_alloc&) {
        errors << "sample_host: there is not enough memory\n";
    } catch (const std::exception& error) {
        errors << "sample_host: " << error.what() << "\n";
    }
    return 1;
}

} // namespace sample_host
