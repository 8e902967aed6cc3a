// What a material must have before its mode may point at a row.
#pragma once

#include "host/render_modes.h"

namespace kardeno::tests {

enum class RowNeeds { nothing, ramp, texels16, texels8 };

inline RowNeeds needsOf(u32 row)
{
    switch (row) {
    case rowFallbackFlat:
    case rowFallbackBlend:
    case rowUnlitPlain:
    case rowUnlitTranslucent:
    case rowSpareA: return RowNeeds::nothing;
    case rowLitPlain:
    case rowLitTranslucent: return RowNeeds::ramp;
    case rowUnlitTextured:
    case rowUnlitTexturedShade1:
    case rowUnlitTexturedTranslucent:
    case rowUnlitTexturedShade2:
    case rowUnlitTexturedShade10:
    case rowUnlitTexturedShade11:
    case rowSpareB: return RowNeeds::texels16;
    default: return RowNeeds::texels8; // and the ramp of a palettised map
    }
}

} // namespace kardeno::tests
