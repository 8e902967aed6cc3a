#include "tests/robustness/hostile_frames.h"

#include "tests/robustness/clean_scene.h"
#include "tests/robustness/hostile_scene.h"

#include <algorithm>
#include <bit>

namespace kardeno::tests {

namespace {

bool frameStaysInside(HostileScene& hostile, ByteSource& source)
{
    RenderView& view = hostile.scene.view.record;
    ExactFrame frame(view);
    Kardeno_Render_Dll(&view, frame.pixels(), source.byte(), source.byte());
    return frame.onlyRectangleWritten();
}

// Without a hit the index is 0 and the depth is the far plane's; a hit lies before it.
bool pickMakesSense(HostileScene& hostile)
{
    RenderView& view = hostile.scene.view.record;
    i32 faceIndex = -1;
    f32 depth = -1;
    const f32 x = hostile.pointX();
    const f32 y = hostile.pointY();
    if (Kardeno_Pick_Dll(&view, x, y, &faceIndex, &depth)) return faceIndex >= 0 && depth < view.farZ;
    return faceIndex == 0 && std::bit_cast<u32>(depth) == std::bit_cast<u32>(view.farZ);
}

} // namespace

std::string complaintAbout(ByteSource& source)
{
    static constexpr i32 formats[] = {16, 15, 16, 15, 24, -1};
    const i32 bitsPerPixel = formats[source.below(6)];
    const CleanScene::Result undisturbed = undisturbedResult(bitsPerPixel);

    TestHost host(bitsPerPixel);
    host.moveBlocks(!source.onceIn(4));
    CleanScene clean(host);
    HostileScene hostile(host, source);
    host.calls.clear();
    if (source.onceIn(8)) {
        const i32 n = source.between(1, 12);
        if (source.onceIn(2))
            host.refuseFrom(n);
        else
            host.refuse(n);
    }

    for (i32 i = 0; i < 2; ++i) {
        if (!frameStaysInside(hostile, source)) return "a pixel outside the drawn rectangle was written";
        if (!pickMakesSense(hostile)) return "a pick's answers do not fit together";
    }

    // After a refusal the lists may lack faces for ever.
    host.refuseNothing();
    const bool refused = std::any_of(host.calls.begin(), host.calls.end(), [](const ServiceCall& call) {
        return call.kind == ServiceCall::realloc && !call.result;
    });
    const CleanScene::Result after = clean.draw();
    if (!clean.fencesStand()) return "a pixel outside the frame of a clean scene was written";
    if (!refused && !(after == undisturbed)) return "a clean scene looks different after hostile frames";
    return "";
}

} // namespace kardeno::tests
