#include "benches/frames/variant.h"

namespace benches {

bool readVariant(std::string name, Variant& variant)
{
    const std::string ending = "_add";
    variant.addsSeeThrough = name.ends_with(ending);
    if (variant.addsSeeThrough) name.resize(name.size() - ending.size());
    const struct {
        const char* name;
        Surfaces surfaces;
    } known[] = {{"tex", Surfaces::texture},
                 {"tex_lit", Surfaces::litTexture},
                 {"gouraud", Surfaces::gouraud},
                 {"flat", Surfaces::flat}};
    for (const auto& entry : known) {
        if (name != entry.name) continue;
        variant.surfaces = entry.surfaces;
        return true;
    }
    return false;
}

} // namespace benches
