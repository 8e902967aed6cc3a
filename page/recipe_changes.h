// What the page changes in the recipes of a scene's materials, and the names under which the materials go.
#pragma once

#include "sample_host/host/material.h"

namespace page {

struct Choices;

void chooseChanges(const Choices& choices);

// Changes a recipe as was chosen. What the renderer has no row for is left as the scene has it.
void changeRecipe(sample_host::MaterialRecipe& recipe);

// The renderer is told of a material right after its recipe was changed: this gives it that recipe's name.
void noteMaterial(const sample_host::SceneMaterial* material);
const std::string& nameOfMaterial(const sample_host::SceneMaterial* material);

} // namespace page
