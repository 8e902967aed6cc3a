// The variants in which a neutral scene is drawn, by us and by other renderers.
#pragma once

#include <cstdint>
#include <string>

namespace benches {

enum class Surfaces {
    texture,    // in its own colours
    litTexture, // under the light of the vertices
    gouraud,    // one colour under the light of the vertices
    flat,       // one colour for each triangle
};

struct Variant {
    Surfaces surfaces = Surfaces::texture;
    bool addsSeeThrough = false; // see-through faces are added to what is behind them, and not blended half and half

    bool isTextured() const { return surfaces == Surfaces::texture || surfaces == Surfaces::litTexture; }
    bool isLit() const { return surfaces == Surfaces::litTexture || surfaces == Surfaces::gouraud; }
};

// The colour of all surfaces of the variant gouraud.
inline constexpr std::uint8_t gouraudColour[3] = {230, 200, 150};

// Takes tex, tex_lit, gouraud and flat, with _add behind it or not. Gives false for other names.
bool readVariant(std::string name, Variant& variant);

} // namespace benches
