// Draws and picks the same scene with the library and with the reference renderer, and tells what differs.
#pragma once

#include "tests/reference/random_scene.h"

#include <string>

namespace kardeno::tests {

// The renderer that all tests compare with. Like the library's table, the states of its rows last from scene to scene.
reference::Renderer& referenceRenderer();

// One frame over pixels of noise. Empty when both renderers leave the same pixels, fences, records and calls behind.
std::string compareFrames(RandomScene& scene);

// One pick; the same for its outputs.
std::string comparePicks(RandomScene& scene, f32 x, f32 y);

// What was compared, for the program's output.
struct Compared {
    i32 scenes = 0, frames = 0, picks = 0, hits = 0;
    i32 polygonsSeen = 0, spans = 0;
    i32 latePolygons = 0; // drawn as whole outlines: they have no spans
    i32 mostGrowths = 0;  // of lists and pools in one scene
};

// Which fillers draw the library's frames: those that a frame takes, or only the plain ones.
enum class Fillers { usual, plain };

// Builds the scenes of `count` seeds and compares frames and picks of each; the first difference ends the test case.
Compared compareScenes(u32 firstSeed, u32 count, const SceneChoice& choice, Fillers fillers = Fillers::usual);

} // namespace kardeno::tests
