// Materials that are made in the library and in the reference renderer alike, and the textures that they use.
#pragma once

#include "scenes/random_numbers.h"
#include "tests/reference/reference_renderer.h"
#include "tests/support/test_scene.h"

namespace kardeno::tests {

using scenes::RandomNumbers;

// What a host says to have a material drawn by a row. `texelBits` 0: no texture.
struct MaterialRecipe {
    i32 state, texelBits, shadingMode, transparency;
};

MaterialRecipe recipeFor(reference::Row row, RandomNumbers& random);

// A random texture of 8 or 16 bits per texel: one of a few that live for ever.
TestTexture& someTexture(i32 texelBits, RandomNumbers& random);

// A material with random colours that the row draws.
TestMaterial& addMaterial(TestScene& scene, reference::Renderer& model, reference::Row row, RandomNumbers& random);

// New colours that nobody is told of; and new colours that both renderers are told of.
void changeColours(TestMaterial& material, RandomNumbers& random);
void repaint(TestMaterial& material, reference::Renderer& model, RandomNumbers& random);

// Told to both renderers.
void setRenderState(TestMaterial& material, reference::Renderer& model, i32 state);

// The shade ramp that the library made; null without one.
const u32* libraryRamp(const SceneMaterial& material);

// The number of the row that the library's material points at.
i32 libraryRow(const SceneMaterial& material, const SceneMaterial& ofFallbackFlat);

} // namespace kardeno::tests
