#include "sample_host/host/recipe_changes.h"

#include "sample_host/host/material.h"

namespace sample_host {

namespace {

// Each pixel is the mean of four; it is hidden when most of them are.
std::shared_ptr<const Image> halved(const Image& image)
{
    const int stepX = image.width > 1 ? 2 : 1, stepY = image.height > 1 ? 2 : 1;
    auto half = std::make_shared<Image>(image.width / stepX, image.height / stepY);
    for (int y = 0; y < half->height; ++y) {
        for (int x = 0; x < half->width; ++x) {
            int sums[4] = {};
            for (int part = 0; part < 4; ++part) {
                const int fromX = x * stepX + part % stepX, fromY = y * stepY + part / 2 % stepY;
                const u8* pixel = &image.pixels[4 * std::size_t(fromY * image.width + fromX)];
                for (int channel = 0; channel < 4; ++channel) sums[channel] += pixel[channel];
            }
            u8* pixel = &half->pixels[4 * std::size_t(y * half->width + x)];
            for (int channel = 0; channel < 4; ++channel) pixel[channel] = u8(sums[channel] / 4);
        }
    }
    return half;
}

bool isLarger(const Image& image, int side)
{
    return image.width > side || image.height > side;
}

bool isBillboard(const MaterialRecipe& recipe)
{
    return recipe.shadingMode == 10 || recipe.shadingMode == 11;
}

} // namespace

void changeRecipe(MaterialRecipe& recipe, const RecipeChanges& changes, int renderState)
{
    if (recipe.image && changes.largestTexture > 0)
        while (isLarger(*recipe.image, changes.largestTexture)) recipe.image = halved(*recipe.image);
    if (recipe.vertexColours || isBillboard(recipe)) return;

    const bool isChanged = changes.shadingMode >= 0 || changes.transparency >= 0;
    if (!isChanged) return;
    if (changes.shadingMode >= 0) recipe.shadingMode = recipe.image ? changes.shadingMode : 0;
    if (changes.transparency >= 0) recipe.transparency = changes.transparency;
    // There is no row for what is added and half transparent, and only a lit one for what is keyed and half
    // transparent.
    const bool lit = !recipe.glows && (renderState == 1 || renderState == 2);
    if (recipe.shadingMode == 2 || (recipe.shadingMode == 1 && !lit)) recipe.transparency = 0;
}

} // namespace sample_host
