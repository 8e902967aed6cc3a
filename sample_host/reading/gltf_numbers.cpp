#include "sample_host/reading/gltf_numbers.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace sample_host {

namespace {

template <class Number>
double read(const unsigned char* bytes, bool isFraction)
{
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    if (!isFraction) return double(number);
    return std::max(double(number) / double(std::numeric_limits<Number>::max()), -1.0);
}

double numberAt(const unsigned char* bytes, int type, bool isFraction)
{
    switch (type) {
    case TINYGLTF_COMPONENT_TYPE_BYTE: return read<std::int8_t>(bytes, isFraction);
    case TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE: return read<std::uint8_t>(bytes, isFraction);
    case TINYGLTF_COMPONENT_TYPE_SHORT: return read<std::int16_t>(bytes, isFraction);
    case TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT: return read<std::uint16_t>(bytes, isFraction);
    case TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT: return read<std::uint32_t>(bytes, isFraction);
    default: return read<float>(bytes, false);
    }
}

// 0 for a kind that there is not.
std::size_t sizeOfNumber(int type)
{
    const int size = tinygltf::GetComponentSizeInBytes(std::uint32_t(type));
    return size > 0 && size <= 4 ? std::size_t(size) : 0;
}

// Elements in a part of a buffer.
struct Run {
    std::size_t offset, count, element, stride;

    // No sum or product wraps round here.
    bool liesIn(std::span<const unsigned char> bytes) const
    {
        if (element == 0 || stride == 0 || offset > bytes.size()) return false;
        const std::size_t room = bytes.size() - offset;
        return count == 0 || (room >= element && count - 1 <= (room - element) / stride);
    }
    const unsigned char* at(std::span<const unsigned char> bytes, std::size_t i) const
    {
        return bytes.data() + offset + i * stride;
    }
};

// Of an accessor without elements of its own, whose count no buffer limits.
constexpr std::size_t mostZeros = 1u << 22;

} // namespace

std::span<const unsigned char> bytesOf(const tinygltf::Model& file, int view)
{
    if (view < 0 || std::size_t(view) >= file.bufferViews.size()) return {};
    const tinygltf::BufferView& part = file.bufferViews[std::size_t(view)];
    if (part.buffer < 0 || std::size_t(part.buffer) >= file.buffers.size()) return {};
    const std::vector<unsigned char>& bytes = file.buffers[std::size_t(part.buffer)].data;
    if (part.byteOffset > bytes.size() || part.byteLength > bytes.size() - part.byteOffset) return {};
    return std::span(bytes).subspan(part.byteOffset, part.byteLength);
}

GltfNumbers numbersOf(const tinygltf::Model& file, int number, std::span<const std::size_t> widths,
                      const std::string& who)
{
    GltfNumbers result;
    const auto refused = [&](const std::string& why) {
        result.problem = why;
        return std::move(result);
    };
    if (number < 0 || std::size_t(number) >= file.accessors.size())
        return refused(who + " names the accessor " + std::to_string(number) + ", of which there are "
                       + std::to_string(file.accessors.size()));
    const tinygltf::Accessor& accessor = file.accessors[std::size_t(number)];
    const std::string name = who + ", accessor " + std::to_string(number);

    result.width = std::size_t(std::max(tinygltf::GetNumComponentsInType(std::uint32_t(accessor.type)), 0));
    if (std::find(widths.begin(), widths.end(), result.width) == widths.end())
        return refused(name + ": its elements have " + std::to_string(result.width) + " numbers; expected are "
                       + std::to_string(widths.front())
                       + (widths.size() > 1 ? " or " + std::to_string(widths.back()) : std::string()));

    const std::size_t size = sizeOfNumber(accessor.componentType), element = size * result.width;
    const auto take = [&](const unsigned char* from, double* to) {
        for (std::size_t j = 0; j < result.width; ++j)
            to[j] = numberAt(from + j * size, accessor.componentType, accessor.normalized);
    };
    if (accessor.sparse.isSparse && accessor.bufferView < 0) {
        if (accessor.count > mostZeros)
            return refused(name + ": it has " + std::to_string(accessor.count) + " elements and no buffer; expected are"
                           + " at most " + std::to_string(mostZeros));
        result.numbers.assign(accessor.count * result.width, 0.0);
    } else {
        const std::span<const unsigned char> bytes = bytesOf(file, accessor.bufferView);
        const int stride = bytes.empty() ? 0 : accessor.ByteStride(file.bufferViews[std::size_t(accessor.bufferView)]);
        const Run run{accessor.byteOffset, accessor.count, element, std::size_t(std::max(stride, 0))};
        if (!run.liesIn(bytes)) return refused(name + ": its elements do not lie inside of a buffer");
        result.numbers.resize(accessor.count * result.width);
        for (std::size_t i = 0; i < accessor.count; ++i) take(run.at(bytes, i), &result.numbers[i * result.width]);
    }
    if (!accessor.sparse.isSparse) return result;

    const auto& sparse = accessor.sparse;
    if (sparse.count < 1 || std::size_t(sparse.count) > accessor.count || element == 0)
        return refused(name + ": " + std::to_string(sparse.count) + " of its elements are replaced; expected are 1 to "
                       + std::to_string(accessor.count));
    const std::size_t count = std::size_t(sparse.count), indexSize = sizeOfNumber(sparse.indices.componentType);
    const std::span<const unsigned char> indices = bytesOf(file, sparse.indices.bufferView);
    const std::span<const unsigned char> values = bytesOf(file, sparse.values.bufferView);
    const Run indexRun{std::size_t(sparse.indices.byteOffset), count, indexSize, indexSize};
    const Run valueRun{std::size_t(sparse.values.byteOffset), count, element, element};
    if (sparse.indices.byteOffset < 0 || sparse.values.byteOffset < 0 || !indexRun.liesIn(indices)
        || !valueRun.liesIn(values))
        return refused(name + ": what replaces its elements does not lie inside of a buffer");
    double last = -1;
    for (std::size_t i = 0; i < count; ++i) {
        const double index = numberAt(indexRun.at(indices, i), sparse.indices.componentType, false);
        if (!(index > last && index < double(accessor.count)))
            return refused(name + ": the numbers of the elements that are replaced do not ascend to less than "
                           + std::to_string(accessor.count));
        take(valueRun.at(values, i), &result.numbers[std::size_t(index) * result.width]);
        last = index;
    }
    return result;
}

} // namespace sample_host
