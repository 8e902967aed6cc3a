#include "sample_host/pictures/image_files.h"

#include <stb/stb_image.h>
#include <stb/stb_image_resize.h>
#include <stb/stb_image_write.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <limits>
#include <memory>
#include <stdexcept>

namespace sample_host {

namespace {

constexpr int longestSideRead = 8192;
constexpr int smallestTexture = 8;
constexpr int largestTexture = 256;

int nearestPowerOfTwo(int side)
{
    int power = smallestTexture;
    while (power < largestTexture && power + power / 2 <= side) power *= 2;
    return power;
}

[[noreturn]] void refuse(const std::string& what)
{
    throw std::runtime_error(
        what + "; expected is a whole PNG, JPEG, BMP, GIF, TGA, PSD, HDR, PIC or PNM picture of at most "
        + std::to_string(longestSideRead) + " pixels a side");
}

} // namespace

Image readImage(const std::string& file)
{
    std::FILE* stream = std::fopen(file.c_str(), "rb");
    if (!stream) refuse(std::string("cannot be opened (") + std::strerror(errno) + ")");
    std::fclose(stream);
    std::ifstream content(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(content), {}};
    return readImage({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

Image readImage(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() > std::size_t(std::numeric_limits<int>::max())) refuse("is too long");
    int width = 0, height = 0, channels = 0;
    // The size is looked at first: a broken header may claim more pixels than there is memory.
    if (stbi_info_from_memory(bytes.data(), int(bytes.size()), &width, &height, &channels)
        && std::max(width, height) > longestSideRead)
        refuse("has " + std::to_string(width) + " x " + std::to_string(height) + " pixels");
    const std::unique_ptr<stbi_uc, void (*)(void*)> loaded(
        stbi_load_from_memory(bytes.data(), int(bytes.size()), &width, &height, &channels, 4), stbi_image_free);
    if (!loaded) refuse(std::string("cannot be read (") + stbi_failure_reason() + ")");
    Image image(width, height);
    std::copy_n(loaded.get(), image.pixels.size(), image.pixels.begin());
    return image;
}

Image resizedToPowersOfTwo(Image image)
{
    const int width = nearestPowerOfTwo(image.width), height = nearestPowerOfTwo(image.height);
    if (width == image.width && height == image.height) return image;
    Image resized(width, height);
    if (!stbir_resize_uint8(image.pixels.data(), image.width, image.height, 0, resized.pixels.data(), width, height, 0,
                            4))
        throw std::bad_alloc();
    return resized;
}

void writePng(const std::string& file, const Image& image)
{
    std::vector<std::uint8_t> rows;
    rows.reserve(image.pixelCount() * 3);
    for (std::size_t pixel = 0; pixel < image.pixelCount(); ++pixel) {
        const Colour colour = image.colour(pixel);
        rows.insert(rows.end(), {colour.red, colour.green, colour.blue});
    }
    stbi_write_force_png_filter = 0; // unfiltered: smaller for pictures whose texels repeat
    if (!stbi_write_png(file.c_str(), image.width, image.height, 3, rows.data(), image.width * 3))
        throw std::runtime_error("the picture '" + file + "' cannot be written");
}

} // namespace sample_host
