// The numbers of a glTF file: what its accessors say about bytes in its buffers.
#pragma once

#include "sample_host/reading/gltf_parser.h"

#include <span>
#include <string>
#include <vector>

namespace sample_host {

// All numbers of an accessor, element by element, `width` for each; numbers that stand for fractions are made
// fractions. Or a sentence on why there are none.
struct GltfNumbers {
    std::size_t width = 0;
    std::vector<double> numbers;
    std::string problem;

    std::size_t count() const { return width ? numbers.size() / width : 0; }
    const double* of(std::size_t element) const { return &numbers[element * width]; }
};

// The accessor may be a sparse one: its elements, or zeros where it has none, with some of them replaced. The sentence
// begins with `who` and tells that the accessor has another width than one of `widths`, or what lies outside of its
// buffer.
GltfNumbers numbersOf(const tinygltf::Model& file, int accessor, std::span<const std::size_t> widths,
                      const std::string& who);

// The bytes of a part of a buffer; empty when it lies outside.
std::span<const unsigned char> bytesOf(const tinygltf::Model& file, int view);

} // namespace sample_host
