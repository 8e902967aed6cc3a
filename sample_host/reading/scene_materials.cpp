#include "sample_host/reading/scene_materials.h"

#include "sample_host/scenes/own_textures.h"

namespace sample_host {

namespace {

struct OwnTexture {
    const char* name;
    SharedImage (*make)();
};
constexpr OwnTexture ownTextures[]{
    {"floor tiles", floorTiles},   {"bricks", bricks}, {"plaster", plaster}, {"marble", marble}, {"crate", crate},
    {"stripes", stripes},          {"metal", metal},   {"lattice", lattice}, {"rings", rings},   {"dusk sky", duskSky},
    {"leaded glass", leadedGlass},
};

SharedImage readTexture(const JsonEntry& entry, const NamedFiles& files)
{
    ImageReading reading = files.image(entry.text());
    if (!reading.image) entry.failHere(reading.problem);
    return reading.image;
}

SharedImage ownTexture(const JsonEntry& entry)
{
    std::vector<std::string> names;
    for (const OwnTexture& texture : ownTextures) names.push_back(texture.name);
    return ownTextures[entry.oneOf(names, "texture")].make();
}

SharedImage textureIn(const JsonEntry& entry, const NamedFiles& files)
{
    entry.mustBeObjectOf({"file", "own", "glow", "beam", "dimmed"});
    SharedImage image;
    int kinds = 0;
    for (const char* kind : {"file", "own", "glow", "beam"}) kinds += entry.has(kind);
    if (kinds != 1) entry.refuse("an object with one of the keys file, own, glow or beam");
    if (entry.has("file")) image = readTexture(entry.at("file"), files);
    if (entry.has("own")) image = ownTexture(entry.at("own"));
    if (entry.has("glow")) image = glow(entry.at("glow").colour());
    if (entry.has("beam")) image = beam(entry.at("beam").colour());
    return image && entry.has("dimmed") ? dimmed(image, entry.at("dimmed").whole(0, 100)) : image;
}

} // namespace

MaterialRecipe materialIn(const JsonEntry& entry, const std::string& name, const NamedFiles& files)
{
    entry.mustBeObjectOf({"ambient", "diffuse", "specular", "tint", "shininess", "specular level", "half transparent",
                          "shading", "texture", "glows"});
    MaterialRecipe recipe;
    recipe.name = name;
    recipe.ambient = entry.colourOr("ambient", recipe.ambient);
    recipe.diffuse = entry.colourOr("diffuse", recipe.diffuse);
    recipe.specular = entry.colourOr("specular", recipe.specular);
    recipe.tint = entry.colourOr("tint", recipe.tint);
    recipe.shininess = entry.wholeOr("shininess", 0, 100, 0);
    recipe.specularLevel = entry.wholeOr("specular level", 0, 100, 0);
    if (entry.flagOr("half transparent", false)) recipe.transparency = 50;
    if (entry.has("shading")) {
        // By the renderer's numbers for them.
        constexpr i32 modes[]{0, 1, 2, 10, 11};
        recipe.shadingMode = modes[entry.at("shading").oneOf({"plain", "keyed", "added", "sprite over all", "sprite"},
                                                             "way of shading")];
    }
    if (entry.has("texture")) recipe.image = textureIn(entry.at("texture"), files);
    if (recipe.shadingMode != 0 && !recipe.image)
        entry.failHere("a material with a way of shading needs a texture; expected is the key 'texture'");
    if (recipe.shadingMode > 1 && recipe.transparency != 0)
        entry.failHere("what is added to what lies behind cannot be half transparent; expected is one of the two");
    recipe.glows = entry.flagOr("glows", false);
    return recipe;
}

} // namespace sample_host
