// The numbers of a glTF file: what its accessors say about bytes in its buffers.
#pragma once

#define TINYGLTF_NO_STB_IMAGE
#define TINYGLTF_NO_STB_IMAGE_WRITE
#define TINYGLTF_NO_EXTERNAL_IMAGE
#include <tiny_gltf.h>

#include <span>
#include <string>
#include <vector>

namespace sample_host {

// All numbers of an accessor, element by element, `width` for each; numbers that stand for fractions are made
// fractions. Throws with a sentence that begins with `who` when the accessor has another width than one of `widths`, or
// lies outside its buffer.
struct GltfNumbers {
    std::size_t width = 0;
    std::vector<double> numbers;

    std::size_t count() const { return width ? numbers.size() / width : 0; }
    const double* of(std::size_t element) const { return &numbers[element * width]; }
};
GltfNumbers numbersOf(const tinygltf::Model& file, int accessor, std::span<const std::size_t> widths,
                      const std::string& who);

// The bytes of a part of a buffer; empty when it lies outside.
std::span<const unsigned char> bytesOf(const tinygltf::Model& file, int view);

} // namespace sample_host
