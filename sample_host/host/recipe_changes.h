// What a user changes in all materials of a scene, whatever the scene says about them.
#pragma once

namespace sample_host {

struct MaterialRecipe;

struct RecipeChanges {
    static constexpr int asTheSceneHasIt = -1;

    int shadingMode = asTheSceneHasIt;  // 0, 1 or 2
    int transparency = asTheSceneHasIt; // 0 or 50
    int largestTexture = 0;             // sides of textures are halved down to this; 0: as they are

    bool operator==(const RecipeChanges&) const = default;
};

// Changes a recipe for a picture in that render state. What the renderer has no row for is left as the scene has it.
void changeRecipe(MaterialRecipe& recipe, const RecipeChanges& changes, int renderState);

} // namespace sample_host
