// What a material must have before its mode may point at a row.
#pragma once

#include "interface/render_modes.h"

namespace kardeno::tests {

enum class RowNeeds { nothing, ramp, texels16, texels8 };

inline RowNeeds needsOf(u32 row)
{
    switch (row) {
    case ModeRow::FallbackFlat:
    case ModeRow::FallbackBlend:
    case ModeRow::UnlitPlain:
    case ModeRow::UnlitTranslucent:
    case ModeRow::SpareA: return RowNeeds::nothing;
    case ModeRow::LitPlain:
    case ModeRow::LitTranslucent: return RowNeeds::ramp;
    case ModeRow::UnlitTextured:
    case ModeRow::UnlitTexturedShade1:
    case ModeRow::UnlitTexturedTranslucent:
    case ModeRow::UnlitTexturedShade2:
    case ModeRow::UnlitTexturedShade10:
    case ModeRow::UnlitTexturedShade11:
    case ModeRow::SpareB: return RowNeeds::texels16;
    default: return RowNeeds::texels8; // and the ramp of a palettised map
    }
}

} // namespace kardeno::tests
