// What the commands do with a scene: the picture files that the host writes, and what it says on the standard output.
#pragma once

#include "sample_host/host/progress.h"
#include "sample_host/host/scene.h"
#include "sample_host/options.h"

namespace sample_host {

// The name of a picture's file, without ".png": what it shows and, where it was not drawn in the usual way, how.
std::string pictureName(const std::string& sceneName, const Options& options);

// The scene once as a still, or in several frames as a turntable.
void writeScene(Scene& scene, const Options& options, const Progress& progress = {});

// What lies under a pixel of the still, in words, and the still with the pixel and the face's outline marked.
void writePick(Scene& scene, const Options& options);

// The contact sheet of the render modes in the engine's pixel format.
void writeGallerySheet(Engine& engine, const Options& options);

} // namespace sample_host
