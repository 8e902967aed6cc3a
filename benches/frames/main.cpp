// frames_bench draws a scene through a renderer and prints one line of JSON: the milliseconds of every timed frame, and
// a number that stands for the pixels. ./bench calls it, many times; see `usage` for its arguments.

#include "benches/frames/frame_times.h"
#include "benches/frames/neutral_scene.h"
#include "benches/frames/sample_scene.h"
#include "sample_host/host/failure.h"
#include "sample_host/host/host_memory.h"

#if defined(__wasm__)
#include "sample_host/host/renderer_linked.h"
#else
#include "sample_host/host/renderer_file.h"
#endif

#include <cstdio>
#include <cstring>
#include <optional>

namespace benches {

namespace {

const char* const usage =
    R"(usage: frames_bench SCENE [option]...

  SCENE               a file that ends in .bin: a neutral scene
                      else a scene of the sample host, or a model's file
  --library FILE      the renderer (a program that has it linked in ignores this)
  --variant NAME      of a neutral scene: tex, tex_lit, gouraud or flat; _add behind
                      it adds see-through faces instead of blending them (tex)
  --map 16|8          bits of a texel of the variant tex (16)
  --format 565|555    of a neutral scene's frame buffer (565)
  --size WxH          (640x480)
  --frames N          of the path (36)
  --passes N          over these frames (2)
)";

struct Options {
    std::string scene, library;
    Drawing drawing;
    Run run;
};

Options readOptions(int count, char** arguments)
{
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string option = arguments[i];
        if (!option.starts_with("--")) {
            options.scene = option;
            continue;
        }
        if (++i == count) sample_host::fail(option + " needs a value");
        const char* const value = arguments[i];
        if (option == "--library")
            options.library = value;
        else if (option == "--variant") {
            if (!readVariant(value, options.drawing.variant))
                sample_host::fail("there is no variant '" + std::string(value) + "'");
        } else if (option == "--map")
            options.drawing.palettised = std::strcmp(value, "8") == 0;
        else if (option == "--format")
            options.drawing.bitsPerPixel = std::strcmp(value, "555") == 0 ? 15 : 16;
        else if (option == "--frames")
            options.run.frames = std::atoi(value);
        else if (option == "--passes")
            options.run.passes = std::atoi(value);
        else if (option == "--size") {
            if (std::sscanf(value, "%dx%d", &options.drawing.width, &options.drawing.height) != 2)
                sample_host::fail("--size is a width, an x and a height");
        } else
            sample_host::fail("there is no option " + option);
    }
    if (options.scene.empty() || options.run.frames < 1 || options.run.passes < 1) sample_host::fail(usage);
    return options;
}

void timeScene(const sample_host::RendererTable& renderer, const Options& options)
{
    if (!options.scene.ends_with(".bin")) {
        SampleScene scene(renderer, options.scene, options.drawing.width, options.drawing.height);
        print(timeFrames(scene, options.run));
        return;
    }
    const auto file = std::make_unique<SceneFile>();
    std::string sentence;
    if (!readSceneFile(options.scene, *file, sentence)) sample_host::fail(sentence);
    NeutralScene scene(renderer, *file, options.drawing);
    print(timeFrames(scene, options.run));
}

void run(int count, char** arguments)
{
    const Options options = readOptions(count, arguments);
    const sample_host::HostMemory memory; // outlives the renderer
#if defined(__wasm__)
    timeScene(sample_host::linkedRenderer(), options);
#else
    const sample_host::RendererFile renderer(options.library);
    timeScene(renderer.table(), options);
#endif
}

} // namespace

} // namespace benches

int main(int count, char** arguments)
{
#if defined(__cpp_exceptions)
    try {
        benches::run(count, arguments);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "frames_bench: %s\n", error.what());
        return 1;
    }
#else
    benches::run(count, arguments);
#endif
}
