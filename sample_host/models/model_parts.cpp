#include "sample_host/models/model_parts.h"

#include <algorithm>

namespace sample_host {

std::shared_ptr<const Image> chequerboard()
{
    auto image = std::make_shared<Image>(64, 64);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            const u8 grey = ((x ^ y) & 8) ? 200 : 120;
            image->set(x, y, {grey, grey, grey});
        }
    }
    return image;
}

bool fitIntoSphere(std::span<Vector> places)
{
    const auto first = std::find_if(places.begin(), places.end(), isFinite);
    if (first == places.end()) return false;
    Vector low = *first, high = *first;
    for (const Vector& p : places) {
        if (!isFinite(p)) continue;
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
    const Vector centre = (low + high) * 0.5;
    double radius = 0;
    for (const Vector& p : places)
        if (isFinite(p)) radius = std::max(radius, length(p - centre));
    if (radius == 0) return false;
    for (Vector& p : places) p = (p - centre) * (1 / radius);
    return true;
}

void useVertexColours(Model& model)
{
    for (MaterialRecipe& recipe : model.materials) {
        recipe.vertexColours = recipe.transparency == 0 && recipe.shadingMode == 0;
        if (!recipe.vertexColours)
            model.remarks.push_back("the colours of the vertices are not drawn in the material '" + recipe.name
                                    + "', because it is not opaque");
    }
}

} // namespace sample_host
