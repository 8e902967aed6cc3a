#include "tests/raster/row_setup.h"
#include "interface/render_mode_table.h"

#include <cstring>

namespace kardeno::tests {

namespace {

// A vertex on the left or right end of the polygon.
void setCorner(ScreenPolygon& polygon, i32 corner, const SpanGradients& span, const SpanGradients& shade, f32 columns,
               i32 y)
{
    const auto at = [columns](f32 start, f32 step) { return start + step * columns; };
    polygon.screenX[corner] = columns;
    polygon.scanY[corner] = y;
    polygon.invDepth[corner] = at(span.start.invDepth, span.step.invDepth);
    polygon.texU[corner] = at(span.start.texU, span.step.texU);
    polygon.texV[corner] = at(span.start.texV, span.step.texV);
    polygon.intensity[corner] = at(shade.start.intensity, shade.step.intensity);
}

} // namespace

RowScene::RowScene(RenderModeRow row, const RowSettings& settings, i32 bitsPerPixel, Addressing addressing, SetUp setUp)
    : host(bitsPerPixel), texture(settings.bitsPerTexel == 8 ? 8 : 16, addressing), destination(settings.destination)
{
    const bool isTextured = settings.bitsPerTexel != 0;
    texture.replace(settings.texelThatIsZero, 0);
    texture.map.transparentIndex = settings.transparentIndex;
    texture.map.transparentColour = settings.transparentColour;
    ramp = isTextured ? markedTexturedRamp() : markedPlainRamp();
    privateRecord = {.mode = &RenderModeTable[row], .shadeRamp = ramp.data()};
    std::memset(static_cast<void*>(&material), 0, sizeof material);
    material.renderPrivate = &privateRecord;
    material.textureMap = isTextured ? &texture.map : nullptr;
    material.diffuseColour.packed = settings.diffuse;

    SpanGradients span = setUp == SetUp::flat ? flat() : receding();
    SpanGradients shade = setUp == SetUp::flat ? flatShade() : recedingShade();
    if (isTextured) {
        shade.start.intensity = static_cast<f32>(span.shade);
        shade.step.intensity = static_cast<f32>(span.shadeStep);
    }
    std::memset(&polygon, 0, sizeof polygon);
    polygon.vertexCount = 4;
    setCorner(polygon, 0, span, shade, 0, 0);
    setCorner(polygon, 1, span, shade, 0, 4);
    setCorner(polygon, 2, span, shade, 32, 4);
    setCorner(polygon, 3, span, shade, 32, 0);
    for (i32 corner = 0; corner < 4; ++corner) {
        const f32* channels = corner < 2 ? settings.channelsOnTheLeft : settings.channelsOnTheRight;
        polygon.colourR[corner] = channels[0];
        polygon.colourG[corner] = channels[1];
        polygon.colourB[corner] = channels[2];
    }
    polygon.material = &material;
    polygon.faceColour = settings.faceColour;
    polygon.spanHead = -1;
    drawnRectangle = {0, 0, 40, 4};
}

void RowScene::fill(TestFrame& frame)
{
    modeOf(material).fill(&polygon, frame.pixels(), 0xdeadbeef, static_cast<u32>(frame.pitch()));
}

std::string RowScene::drawn(const std::vector<SpanLists::Run>& runs, i32 y, i32 x, i32 xEnd)
{
    TestFrame frame(40, 4, destination);
    spans.give(polygon, runs);
    fill(frame);
    CHECK(frame.fencesStand());
    return text(frame.row(y, x, xEnd));
}

void checkRow(RenderModeRow row, const RowSettings& settings, const std::vector<RowCase>& cases)
{
    for (const RowCase& line : cases) {
        CAPTURE(line.pixels);
        const Pixels expected = pixelsOf(line.pixels);
        REQUIRE(expected.size() == 9);
        for (const i32 bitsPerPixel : {15, 16}) {
            if (line.format == (bitsPerPixel == 15 ? Format::in565 : Format::in555)) continue;
            CAPTURE(bitsPerPixel);
            RowScene scene(row, settings, bitsPerPixel, line.addressing, line.setUp);
            Pixels wanted = expected;
            wanted.insert(wanted.end(), 31, settings.destination);
            CHECK(scene.drawn({{0, 9, 1}}, 1, 0, 40) == text(wanted));
            CHECK(scene.drawn({{0, 9, 1}}, 2, 0, 40) == text(Pixels(40, settings.destination)));

            if (line.setUp != SetUp::flat) continue;
            for (size_t i = 0; i < 4; ++i) wanted[i] = settings.destination;
            CHECK(scene.drawn({{4, 5, 2}}, 2, 0, 40) == text(wanted));
        }
    }
}

} // namespace kardeno::tests
