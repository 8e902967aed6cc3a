// The materials of OBJ models, by the parser's records.
#pragma once

#include "sample_host/host/material.h"
#include "sample_host/reading/colour_channels.h"

#include <tiny_obj_loader.h>

#include <algorithm>

namespace sample_host {

// The material of a record, without its image. The renderer knows opaque and half transparent; other opacities become
// the one that is nearer.
inline MaterialRecipe recipeOf(const tinyobj::material_t& record)
{
    MaterialRecipe result;
    result.name = record.name;
    result.ambient = colourOf(record.ambient);
    result.diffuse = colourOf(record.diffuse);
    result.specular = colourOf(record.specular);
    result.specularLevel = 100;
    result.shininess = i32(std::clamp(record.shininess, 0.0f, 100.0f));
    result.transparency = record.dissolve < 0.75f ? 50 : 0;
    return result;
}

} // namespace sample_host
