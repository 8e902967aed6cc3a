#include "sample_host/reading/gltf_numbers.h"

#include <doctest/doctest.h>

#include <array>
#include <cstring>
#include <initializer_list>

using namespace sample_host;

namespace {

constexpr std::array<std::size_t, 1> one{1}, two{2};

// A file of one buffer, with a view for each run of numbers that is added to it.
struct File {
    tinygltf::Model model;

    File() { model.buffers.resize(1); }

    template <class Number>
    int view(std::initializer_list<Number> numbers)
    {
        std::vector<unsigned char>& bytes = model.buffers[0].data;
        tinygltf::BufferView view;
        view.buffer = 0;
        view.byteOffset = bytes.size();
        view.byteLength = numbers.size() * sizeof(Number);
        bytes.resize(bytes.size() + view.byteLength);
        std::memcpy(bytes.data() + view.byteOffset, std::data(numbers), view.byteLength);
        model.bufferViews.push_back(view);
        return int(model.bufferViews.size()) - 1;
    }

    // Five pairs of floating-point numbers; elements 1 and 3 are replaced by those of the last view.
    tinygltf::Accessor& sparse(int base)
    {
        tinygltf::Accessor& accessor = model.accessors.emplace_back();
        accessor.bufferView = base;
        accessor.componentType = TINYGLTF_COMPONENT_TYPE_FLOAT;
        accessor.type = TINYGLTF_TYPE_VEC2;
        accessor.count = 5;
        accessor.sparse = {};
        accessor.sparse.isSparse = true;
        accessor.sparse.count = 2;
        accessor.sparse.indices.bufferView = view<std::uint8_t>({9, 1, 3});
        accessor.sparse.indices.byteOffset = 1;
        accessor.sparse.indices.componentType = TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE;
        accessor.sparse.values.bufferView = view<float>({77, 10.5f, 11, 30, -31});
        accessor.sparse.values.byteOffset = 4;
        return accessor;
    }

    GltfNumbers numbers(std::span<const std::size_t> widths = two) const { return numbersOf(model, 0, widths, "it"); }
};

} // namespace

TEST_CASE("some elements of a sparse accessor are replaced, and the others are those of its buffer")
{
    File file;
    file.sparse(file.view<float>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    const GltfNumbers read = file.numbers();
    CHECK(read.problem.empty());
    CHECK(read.count() == 5);
    CHECK(read.numbers == std::vector<double>{0, 1, 10.5, 11, 4, 5, 30, -31, 8, 9});
}

TEST_CASE("a sparse accessor without a buffer of its own has zeros where nothing is replaced")
{
    File file;
    file.sparse(-1);
    CHECK(file.numbers().numbers == std::vector<double>{0, 0, 10.5, 11, 0, 0, 30, -31, 0, 0});
}

TEST_CASE("numbers that replace others are fractions where the accessor's are, and indices may have any width")
{
    File file;
    tinygltf::Accessor& accessor = file.model.accessors.emplace_back();
    accessor.bufferView = file.view<std::uint8_t>({0, 51, 255});
    accessor.componentType = TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE;
    accessor.normalized = true;
    accessor.type = TINYGLTF_TYPE_SCALAR;
    accessor.count = 3;
    accessor.sparse = {};
    accessor.sparse.isSparse = true;
    accessor.sparse.count = 1;
    accessor.sparse.indices.bufferView = file.view<std::uint32_t>({2});
    accessor.sparse.indices.componentType = TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT;
    accessor.sparse.values.bufferView = file.view<std::uint8_t>({102});
    CHECK(file.numbers(one).numbers == std::vector<double>{0, 0.2, 0.4}); // 51 and 102 of 255
}

TEST_CASE("a sparse accessor that cannot be read is refused with its number and what is wrong")
{
    const auto problem = [](void (*spoil)(tinygltf::Accessor&)) {
        File file;
        const int base = file.view<float>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
        spoil(file.sparse(base));
        const GltfNumbers read = file.numbers();
        CHECK(read.problem.starts_with("it, accessor 0: "));
        return read.problem.substr(16);
    };
    using Accessor = tinygltf::Accessor;
    const std::string outside = "what replaces its elements does not lie inside of a buffer";
    CHECK(problem([](Accessor& a) { a.sparse.indices.byteOffset = 2; }) == outside);
    CHECK(problem([](Accessor& a) { a.sparse.indices.byteOffset = -1; }) == outside);
    CHECK(problem([](Accessor& a) { a.sparse.indices.bufferView = 9; }) == outside);
    CHECK(problem([](Accessor& a) { a.sparse.values.byteOffset = 8; }) == outside);
    CHECK(problem([](Accessor& a) { a.sparse.indices.componentType = 1; }) == outside);
    const std::string order = "the numbers of the elements that are replaced do not ascend to less than 5";
    CHECK(problem([](Accessor& a) { a.sparse.indices.byteOffset = 0; }) == order); // 9 and 1
    CHECK(problem([](Accessor& a) { a.sparse.count = 0; }) == "0 of its elements are replaced; expected are 1 to 5");
    CHECK(problem([](Accessor& a) { a.sparse.count = 6; }) == "6 of its elements are replaced; expected are 1 to 5");
    CHECK(problem([](Accessor& a) { a.count = 6; }) == "its elements do not lie inside of a buffer");
    CHECK(problem([](Accessor& a) {
              a.bufferView = -1;
              a.count = 1u << 30;
          }).starts_with("it has 1073741824 elements and no buffer"));
}
