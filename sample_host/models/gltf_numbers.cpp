#include "sample_host/models/gltf_numbers.h"

#include "sample_host/host/failure.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

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
    if (number < 0 || std::size_t(number) >= file.accessors.size())
        fail(who + " names the accessor " + std::to_string(number) + ", of which there are "
             + std::to_string(file.accessors.size()));
    const tinygltf::Accessor& accessor = file.accessors[std::size_t(number)];
    const std::string name = who + ", accessor " + std::to_string(number);
    if (accessor.sparse.isSparse) fail(name + ": it is sparse; expected is one that is not");

    GltfNumbers result;
    result.width = std::size_t(std::max(tinygltf::GetNumComponentsInType(std::uint32_t(accessor.type)), 0));
    if (std::find(widths.begin(), widths.end(), result.width) == widths.end())
        fail(name + ": its elements have " + std::to_string(result.width) + " numbers; expected are "
             + std::to_string(widths.front())
             + (widths.size() > 1 ? " or " + std::to_string(widths.back()) : std::string()));

    const std::span<const unsigned char> bytes = bytesOf(file, accessor.bufferView);
    const std::size_t size =
        std::size_t(std::max(tinygltf::GetComponentSizeInBytes(std::uint32_t(accessor.componentType)), 0));
    const int stride = bytes.empty() ? -1 : accessor.ByteStride(file.bufferViews[std::size_t(accessor.bufferView)]);
    const std::size_t element = size * result.width;
    const bool lies =
        size > 0 && size <= 4 && stride > 0 && accessor.byteOffset <= bytes.size()
        && (accessor.count == 0
            || (bytes.size() - accessor.byteOffset >= element
                && accessor.count - 1 <= (bytes.size() - accessor.byteOffset - element) / std::size_t(stride)));
    if (!lies) fail(name + ": its elements do not lie inside of a buffer");

    result.numbers.reserve(accessor.count * result.width);
    for (std::size_t i = 0; i < accessor.count; ++i) {
        const unsigned char* at = bytes.data() + accessor.byteOffset + i * std::size_t(stride);
        for (std::size_t j = 0; j < result.width; ++j)
            result.numbers.push_back(numberAt(at + j * size, accessor.componentType, accessor.normalized));
    }
    return result;
}

} // namespace sample_host
