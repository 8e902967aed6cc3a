#include "page/recipe_changes.h"

#include "page/stage.h"

#include <map>

namespace page {

namespace {

Choices chosen;
std::string lastName;
std::map<const SceneMaterial*, std::string> names;
std::map<const Image*, std::shared_ptr<const Image>> smaller; // for the size that is chosen

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

std::shared_ptr<const Image> sizedDown(const std::shared_ptr<const Image>& image, int largest)
{
    if (image->width <= largest && image->height <= largest) return image;
    std::shared_ptr<const Image>& result = smaller[image.get()];
    if (result) return result;
    result = image;
    while (result->width > largest || result->height > largest) result = halved(*result);
    return result;
}

bool isBillboard(const MaterialRecipe& recipe)
{
    return recipe.shadingMode == 10 || recipe.shadingMode == 11;
}

} // namespace

void chooseChanges(const Choices& choices)
{
    chosen = choices;
    names.clear();
    smaller.clear();
}

void changeRecipe(MaterialRecipe& recipe)
{
    lastName = recipe.name;
    if (recipe.image && chosen.largestTexture > 0) recipe.image = sizedDown(recipe.image, chosen.largestTexture);
    if (recipe.vertexColours || isBillboard(recipe)) return;

    const bool changed = chosen.shadingMode >= 0 || chosen.transparency >= 0;
    if (!changed) return;
    if (chosen.shadingMode >= 0) recipe.shadingMode = recipe.image ? chosen.shadingMode : 0;
    if (chosen.transparency >= 0) recipe.transparency = chosen.transparency;
    // There is no row for what is added and half transparent, and only a lit one for what is keyed and half
    // transparent.
    const bool lit = !recipe.glows && (chosen.renderState == 1 || chosen.renderState == 2);
    if (recipe.shadingMode == 2 || (recipe.shadingMode == 1 && !lit)) recipe.transparency = 0;
}

void noteMaterial(const SceneMaterial* material)
{
    names[material] = lastName;
}

const std::string& nameOfMaterial(const SceneMaterial* material)
{
    return names[material];
}

} // namespace page
