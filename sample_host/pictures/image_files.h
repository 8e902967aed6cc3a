// Images from and to files.
#pragma once

#include "sample_host/pictures/image.h"

#include <span>
#include <string>

namespace sample_host {

// Reads a picture of any usual kind. Throws with the second half of a sentence: what is wrong with the file, and what
// is expected of it. The caller puts before it which file this is and who asks for it.
Image readImage(const std::string& file);

// The same for the bytes of such a file.
Image readImage(std::span<const std::uint8_t> bytes);

// The same picture with both sides the nearest powers of two from 8 to 256, which is what a texture must have.
Image resizedToPowersOfTwo(Image image);

// Writes a PNG file, without the opacity. Throws with a sentence that names the file.
void writePng(const std::string& file, const Image& image);

} // namespace sample_host
