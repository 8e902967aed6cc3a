// A host in plain bytes: it writes its records through their published offsets, without the renderer's own headers, and
// its services are those of the C library.
#pragma once

#include "kardeno_soft/types.h"

#include <cstring>
#include <deque>
#include <string>
#include <vector>

namespace kardeno::tests {

// A place or a size in bytes: where pointers have 32 bits, and where they have 64.
constexpr u32 at(u32 in32, u32 in64)
{
    return sizeof(void*) == 4 ? in32 : in64;
}

// A zero-filled record of the host.
class RawRecord {
public:
    explicit RawRecord(size_t bytes) : words((bytes + 7) / 8, 0) {}

    template <class Value>
    RawRecord& set(u32 offset, Value value)
    {
        std::memcpy(address() + offset, &value, sizeof value);
        return *this;
    }
    template <class Value>
    Value get(u32 offset) const
    {
        Value value;
        std::memcpy(&value, reinterpret_cast<const u8*>(words.data()) + offset, sizeof value);
        return value;
    }
    u8* address() { return reinterpret_cast<u8*>(words.data()); }

private:
    std::vector<uint64_t> words; // aligned as the widest field is
};

// What stands in a scene: three small faces, or one that is cut at every side of the frame (those with a texture at the
// near and the far plane too) and covers it with one colour.
//
//   walls     columns   0 1 | 2 ... 5 | 6 ... 9 | 10 ... 15      a wall of a plain colour, a lit wall, and a pane of
//             rows 1-2      |  wall   |   lit   |                glass before both
//             row 2             4 .. glass .. 8
enum class Content { walls, unlitTexture, litTexture, litGlass };

// A frame of 16 x 4 pixels, 5-6-5.
class RawScene {
public:
    static constexpr i32 width = 16;
    static constexpr i32 height = 4;
    static constexpr u16 untouched = 0x5aa5;

    explicit RawScene(Content content = Content::walls);
    ~RawScene(); // after the library was unloaded: gives all memory back
    RawScene(const RawScene&) = delete;
    RawScene& operator=(const RawScene&) = delete;

    RawRecord context{at(16836, 16880) + 64};
    RawRecord view{at(68, 80)};
    std::deque<RawRecord> materials;
    std::vector<i32> states; // what each material is to be set to
    RawRecord object{at(232, 272)};
    std::deque<RawRecord> faces;
    std::vector<u16> pixels = std::vector<u16>(width * height, untouched);

    void* frameBuffer() { return pixels.data(); }
    std::vector<u16> row(i32 y) const { return {pixels.begin() + y * width, pixels.begin() + (y + 1) * width}; }

    // Calls of the host's functions, by their first letters: camera, update, transform, select, bounds, light, prepare,
    // face test; and of its services: alloc, realloc, free.
    static inline std::string log;
    static inline std::vector<u32> reallocBytes;
    static inline u32 firstReallocs; // how many reallocs were given a null block

private:
    RawRecord projection{40};
    RawRecord camera{at(96, 104)};
    RawRecord cameraFunctions{at(4, 8)};
    RawRecord objectClass{at(112, 120)};
    RawRecord functions{at(40, 72)};
    RawRecord groupFlag{4};
    RawRecord faceTest{at(4, 8)};
    std::deque<RawRecord> flagBlocks;
    std::deque<RawRecord> nodes;
    std::vector<std::vector<i32>> indices;
    std::vector<void*> facePointers;
    RawRecord map{at(64, 72)};
    RawRecord image{32 + 32};
    RawRecord palette{1024};
    std::vector<f32> texCoords;
    std::vector<f32> cameraVertices, screenVertices, shades;
    std::vector<u32> outcodes, stamps;

    struct Corner {
        f32 x, y, z; // screen column and row, camera depth
        u32 outcode;
    };

    void setServices();
    void setView();
    void setFunctions();
    void setTexture(u32 bitsPerTexel);
    RawRecord& addMaterial(i32 state, i32 transparency);
    void addFace(size_t material, const std::vector<Corner>& corners);
    void addRectangle(size_t material, f32 x, f32 y, f32 xEnd, f32 yEnd, f32 z);
    void addWalls();
    void linkObject();
};

} // namespace kardeno::tests
