// Hashes of frames, and the files that keep the golden ones: a line for each scene and pixel format, the same for every
// build. KARDENO_UPDATE_GOLDEN=1 in the environment asks the tests to write their files anew.
#pragma once

#include "kardeno_soft/types.h"

#include <initializer_list>
#include <map>
#include <string>

namespace kardeno::tests {

// FNV-1a over pixels, low byte first: begin with the basis and take in one pixel after the other.
inline constexpr u32 hashBasis = 2166136261u;

constexpr u32 hashWithPixel(u32 hash, u32 pixel)
{
    for (const u32 byte : {pixel & 0xff, pixel >> 8 & 0xff}) hash = (hash ^ byte) * 16777619u;
    return hash;
}

// Eight digits, as the files have them.
std::string hexadecimal(u32 hash);

// From "scene bitsPerPixel" to the hash. The lines of a file are: scene, bits per pixel, hash.
using GoldenHashes = std::map<std::string, std::string>;
GoldenHashes readGoldenHashes(const std::string& file);
void writeGoldenHashes(const std::string& file, const GoldenHashes& hashes);

bool updatesGoldenHashes();

} // namespace kardeno::tests
