// The reference renderer's materials: flag words, rows of the render-mode table, shade ramps, colour tables. All of it
// lies beside the host's records: what the host's materials point at belongs to the library under test.
#pragma once

#include "kardeno_soft/host_records.h"

#include <array>
#include <map>
#include <vector>

namespace kardeno::reference {

// In the order of the table.
enum class Row {
    fallbackFlat,
    fallbackBlend,
    unlitPlain,
    unlitTextured,
    unlitTexturedShade1,
    unlitTranslucent,
    unlitTexturedTranslucent,
    unlitTexturedShade2,
    unlitTexturedShade10,
    unlitTexturedShade11,
    unlitPalettised,
    litPlain,
    litTextured,
    litTexturedShade1,
    litTranslucent,
    litTexturedTranslucent,
    litTexturedShade1Translucent,
    litTexturedShade2,
    spareA,
    spareB
};
constexpr i32 rowCount = 20;

const char* nameOf(Row row);

struct Material {
    u32 flags = 0;
    bool hasRow = false;
    Row row = Row::fallbackFlat;
    std::vector<u32> ramp; // 64 or 16384 entries; empty until it is needed
};

class Materials {
public:
    // The format decides how ramps are packed and what the colour tables hold. The states of the rows stay.
    void initialise(i32 bitsPerPixel);

    void add(const SceneMaterial* material);
    void release(const SceneMaterial* material);
    void update(const SceneMaterial* material);
    void setFlags(const SceneMaterial* material);
    void setRenderState(const SceneMaterial* material, i32 state);
    i32 renderState(const SceneMaterial* material) const;

    // A row that no render state selects.
    void pointAt(const SceneMaterial* material, Row row);

    const Material& of(const SceneMaterial* material) const { return known.at(material); }
    i32 stateOf(Row row) const { return rowStates[static_cast<size_t>(row)]; }

    // Entry: intensity x 256 + a byte of the pixel.
    std::vector<u32> redScale, greenScale, blueScale;

private:
    std::map<const SceneMaterial*, Material> known;
    std::array<i32, rowCount> rowStates = {};
    i32 format = 0;

    void fillRamp(const SceneMaterial& material, Material& own) const;
    u32 rampEntry(i32 red, i32 green, i32 blue) const;
};

} // namespace kardeno::reference
