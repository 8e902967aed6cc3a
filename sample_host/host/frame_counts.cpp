#include "sample_host/host/frame_counts.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace sample_host {

namespace {

constexpr std::size_t rowCount = renderModeRowCount;

// What the counting routines know. The renderer hands them nothing that would lead to an object, so it is static; there
// is one renderer and it draws one frame at a time.
struct Counting {
    FrameCounts counts;
    std::array<RenderMode*, rowCount> renderersRows{}; // null: not in use
    std::array<RenderMode, rowCount> ownRows{};
    int width = 0, rows = 0;
    std::size_t pitch = 0;
    // Pictures of one value, black and white. What a filler changes in either it draws; then they are made good again.
    std::array<std::vector<u16>, 2> plain;
    std::vector<bool> covered;
};
constexpr u16 plainValues[]{0x0000, 0xffff};
Counting* counting = nullptr;

// Counts what the filler changed in the plain pictures.
void countPixels()
{
    Counting& c = *counting;
    bool seen = false;
    for (int y = 0; y < c.rows; ++y) {
        const std::size_t first = std::size_t(y) * c.pitch;
        bool changed = false;
        for (std::size_t i = 0; i < 2; ++i) {
            // A row of one value is equal to itself moved by a pixel.
            const u16* row = &c.plain[i][first];
            changed |=
                row[0] != plainValues[i] || std::memcmp(row, row + 1, (std::size_t(c.width) - 1) * sizeof(u16)) != 0;
        }
        if (!changed) continue;
        bool before = false;
        for (int x = 0; x < c.width; ++x) {
            const std::size_t place = first + std::size_t(x);
            const bool drawn = c.plain[0][place] != plainValues[0] || c.plain[1][place] != plainValues[1];
            if (drawn) {
                ++c.counts.pixelsDrawn;
                if (!before) ++c.counts.spans;
                c.covered[place] = seen = true;
                c.plain[0][place] = plainValues[0];
                c.plain[1][place] = plainValues[1];
            }
            before = drawn;
        }
    }
    if (seen) ++c.counts.polygonsVisible;
}

// The routines of the host's copy of a row.
template <std::size_t row>
struct Counted {
    static const RenderMode& renderers() { return *counting->renderersRows[row]; }

    static void emit(const RenderView* view, const SceneFace* face)
    {
        ++counting->counts.facesEmitted;
        renderers().emit(view, face);
    }

    template <std::size_t plane, ClipRoutine ClipperFamily::*routine>
    static void clip(const RenderView* view, ScreenPolygon* polygon)
    {
        ++counting->counts.clipped[plane];
        (renderers().clip.*routine)(view, polygon);
    }

    static void fill(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch)
    {
        ++counting->counts.polygonsInView;
        renderers().fill(polygon, frameBuffer, argument, pitch);
        for (std::vector<u16>& picture : counting->plain) renderers().fill(polygon, picture.data(), argument, pitch);
        countPixels();
    }

    static RenderMode copy(i32 state)
    {
        return {state,
                emit,
                {clip<0, &ClipperFamily::nearPlane>, clip<1, &ClipperFamily::farPlane>,
                 clip<2, &ClipperFamily::rightPlane>, clip<3, &ClipperFamily::leftPlane>,
                 clip<4, &ClipperFamily::bottomPlane>, clip<5, &ClipperFamily::topPlane>},
                fill};
    }
};

template <std::size_t... rows>
constexpr auto copiesOf(std::index_sequence<rows...>)
{
    return std::array{Counted<rows>::copy...};
}
constexpr auto copyOfRow = copiesOf(std::make_index_sequence<rowCount>());

// The host's copy of a row, which is made when it is first asked for.
RenderMode* countedRow(RenderMode* renderersRow)
{
    auto& rows = counting->renderersRows;
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const RenderMode* row) { return !row || row == renderersRow; });
    const std::size_t place = std::size_t(found - rows.begin());
    if (!*found) counting->ownRows[place] = copyOfRow[place](renderersRow->state);
    *found = renderersRow;
    return &counting->ownRows[place];
}

} // namespace

FrameCounts countFrame(Scene& scene, FrameBuffer& frame, double phase)
{
    Counting here;
    here.width = frame.width;
    here.rows = frame.height;
    here.pitch = std::size_t(frame.pitch);
    here.covered.assign(frame.pixels.size(), false);
    for (std::size_t i = 0; i < 2; ++i) here.plain[i].assign(frame.pixels.size(), plainValues[i]);
    counting = &here;

    std::vector<std::pair<Material*, RenderMode*>> moved;
    for (Material& material : scene.materials()) {
        moved.emplace_back(&material, material.renderPrivate->mode);
        material.renderPrivate->mode = countedRow(material.renderPrivate->mode);
    }
    scene.countCalls(&here.counts);
    scene.draw(frame, phase);
    scene.countCalls(nullptr);
    for (const auto& [material, mode] : moved) material->renderPrivate->mode = mode;
    counting = nullptr;

    here.counts.pixelsCovered = int(std::count(here.covered.begin(), here.covered.end(), true));
    here.counts.pixelsOfPicture = frame.width * frame.height;
    return here.counts;
}

} // namespace sample_host
