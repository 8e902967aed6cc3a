#include "sample_host/pictures/animated_png.h"

#include <cstdlib>
#include <memory>
#include <stdexcept>

// In the body of stb_image_write, though not declared by its header.
extern "C" unsigned char* stbi_zlib_compress(unsigned char* data, int length, int* compressedLength, int quality);

namespace sample_host {

namespace {

using Bytes = std::vector<std::uint8_t>;

void append32(Bytes& bytes, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(std::uint8_t(value >> shift));
}

void append16(Bytes& bytes, std::uint32_t value)
{
    bytes.insert(bytes.end(), {std::uint8_t(value >> 8), std::uint8_t(value)});
}

std::uint32_t checksum(const Bytes& bytes)
{
    std::uint32_t sum = 0xffffffff;
    for (const std::uint8_t byte : bytes) {
        sum ^= byte;
        for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) ? 0xedb88320 : 0);
    }
    return ~sum;
}

// Rows of red, green, blue, compressed. They are not filtered (0): the texels of these pictures repeat as they are, and
// differences between neighbours would take half as much again.
Bytes compressedRows(const Image& image)
{
    Bytes rows;
    for (std::size_t pixel = 0; pixel < image.pixelCount(); ++pixel) {
        if (pixel % std::size_t(image.width) == 0) rows.push_back(0);
        const Colour colour = image.colour(pixel);
        rows.insert(rows.end(), {colour.red, colour.green, colour.blue});
    }
    int size = 0;
    const std::unique_ptr<unsigned char, void (*)(void*)> packed(
        stbi_zlib_compress(rows.data(), int(rows.size()), &size, 8), std::free);
    if (!packed) throw std::bad_alloc();
    return Bytes(packed.get(), packed.get() + size);
}

} // namespace

AnimatedPng::AnimatedPng(const std::string& file, int width, int height, int frames, int framesPerSecond)
    : file_(file), stream_(file, std::ios::binary), width_(width), height_(height), framesPerSecond_(framesPerSecond)
{
    if (!stream_) throw std::runtime_error("the picture '" + file + "' cannot be written");
    stream_.write("\x89PNG\r\n\x1a\n", 8);

    Bytes header;
    append32(header, std::uint32_t(width));
    append32(header, std::uint32_t(height));
    header.insert(header.end(), {8, 2, 0, 0, 0}); // 8 bits per channel, red-green-blue
    writeChunk("IHDR", header);

    Bytes animation;
    append32(animation, std::uint32_t(frames));
    append32(animation, 0); // for ever
    writeChunk("acTL", animation);
}

void AnimatedPng::addFrame(const Image& image)
{
    Bytes control;
    append32(control, sequence_++);
    append32(control, std::uint32_t(width_));
    append32(control, std::uint32_t(height_));
    append32(control, 0); // left
    append32(control, 0); // top
    append16(control, 1); // shown for 1 / framesPerSecond
    append16(control, std::uint32_t(framesPerSecond_));
    append16(control, 0); // keeps the frame, replaces all of the one before
    writeChunk("fcTL", control);

    // The first frame is the picture that programs without animation show.
    Bytes rows;
    if (frame_ > 0) append32(rows, sequence_++);
    const Bytes packed = compressedRows(image);
    rows.insert(rows.end(), packed.begin(), packed.end());
    writeChunk(frame_ > 0 ? "fdAT" : "IDAT", rows);
    ++frame_;
}

void AnimatedPng::finish()
{
    writeChunk("IEND", {});
    stream_.close();
    if (!stream_) throw std::runtime_error("the picture '" + file_ + "' could not be written to its end");
}

void AnimatedPng::writeChunk(const char* type, const Bytes& content)
{
    Bytes summed(type, type + 4);
    summed.insert(summed.end(), content.begin(), content.end());
    Bytes chunk;
    append32(chunk, std::uint32_t(content.size()));
    chunk.insert(chunk.end(), summed.begin(), summed.end());
    append32(chunk, checksum(summed));
    stream_.write(reinterpret_cast<const char*>(chunk.data()), std::streamsize(chunk.size()));
}

} // namespace sample_host
