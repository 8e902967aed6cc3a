#include "sample_host/subject.h"

#include "sample_host/models/model_file.h"
#include "sample_host/models/scene_from_file.h"
#include "sample_host/scenes/model_scene.h"
#include "sample_host/scenes/scenes.h"

#include <filesystem>
#include <ostream>

namespace sample_host {

namespace {

constexpr const char* fetchedModel = "cache/models/OBJ/spider.obj";

Subject chosenSubject(const Options& options, std::ostream& out, const Progress& progress)
{
    if (options.command == Command::gallery) return {};
    if (!options.sceneName.empty()) return {.sceneName = options.sceneName};
    if (!options.sceneFile.empty()) return {.sceneFile = readSceneFile(options.sceneFile, progress)};
    if (!options.modelFile.empty()) return {.model = readModel(options.modelFile, progress)};
    if (std::filesystem::exists(fetchedModel)) return {.model = readModel(fetchedModel, progress)};
    out << "no model is named and none was fetched: drawing the room instead\n";
    return {};
}

} // namespace

Subject readSubject(const Options& options, std::ostream& out, const Progress& progress)
{
    Subject subject = chosenSubject(options, out, progress);
    const auto say = [&](const std::vector<std::string>& remarks) {
        for (const std::string& remark : remarks) out << remark << "\n";
    };
    report(progress, "", 1);
    if (subject.model) say(subject.model->remarks);
    if (subject.sceneFile) say(subject.sceneFile->remarks);
    return subject;
}

std::unique_ptr<Scene> buildSubject(Engine& engine, const Subject& subject, const MaterialMode& mode,
                                    const Progress& progress)
{
    if (subject.model) return buildModelScene(engine, *subject.model, mode, progress);
    if (subject.sceneFile) return buildSceneFile(engine, *subject.sceneFile, mode, progress);
    return sceneNamed(subject.sceneName)->build(engine, mode);
}

} // namespace sample_host
