#include "sample_host/spare_rows.h"

#include <cstring>

namespace sample_host {

// What a host must know for this, beyond the public header: the first word of a material's private record is the
// address of its row; the rows lie one behind the other, 36 bytes each; and a row's first word is the render state, by
// which the renderer tells whether an object's vertices are to be lit.
//
// So the address of one row leads to all others. A material of this kind was given UnlitPlain or UnlitTextured, the
// rows 2 and 3; SpareA and SpareB are the rows 18 and 19. Nothing else has to change: where the unlit row reads texture
// coordinates the spare one does too, and neither of them needs a shade ramp.
void pointAtSpareRow(SceneMaterial& material)
{
    constexpr std::size_t rowBytes = 36, rowsBetween = 18 - 2;
    constexpr i32 lit = 1;

    char* row = nullptr;
    std::memcpy(&row, material.renderPrivate, sizeof row);
    row += rowsBetween * rowBytes;
    std::memcpy(material.renderPrivate, &row, sizeof row);
    std::memcpy(row, &lit, sizeof lit);
}

} // namespace sample_host
