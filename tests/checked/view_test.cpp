// Views that cannot be drawn, or will not look as they should.
#include "kardeno_soft/checked.h"
#include "tests/checked/good_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr f32 infinite = std::numeric_limits<f32>::infinity();
constexpr f32 notANumber = std::numeric_limits<f32>::quiet_NaN();

CheckedSizes& tellSizes(GoodScene& good)
{
    CheckedSizes& sizes = *KARDENO_CHECKED_SIZES(&good.context());
    sizes.mark = checkedSizesMark;
    sizes.markAgain = ~sizes.mark;
    return sizes;
}

} // namespace

TEST_CASE("a view without a camera is hinted at")
{
    GoodScene good;
    good.view().camera = nullptr;
    CHECK(good.draw() == Names{"missing-camera"});
    CHECK(good.pick() == Names{"missing-camera"});
}

TEST_CASE("a camera without its function ends the call")
{
    GoodScene good;
    good.scene.cameraFunctions.prepare = nullptr;
    CHECK(good.draw() == Names{"missing-camera-function"});
    CHECK(good.isUntouched());
    good.scene.camera.functions = nullptr;
    CHECK(good.draw() == Names{"missing-camera-function"});
    CHECK(good.pick() == Names{"missing-camera-function"});
}

TEST_CASE("a view without a projection ends the call")
{
    GoodScene good;
    good.view().projection = nullptr;
    CHECK(good.draw() == Names{"missing-projection"});
    CHECK(good.pick() == Names{"missing-projection"});
    CHECK(good.isUntouched());
}

TEST_CASE("a projection that a callback takes away ends the call")
{
    GoodScene good;
    const ViewProjection* const projection = good.view().projection;
    good.object.onPrepare = [&] { good.view().projection = nullptr; };
    CHECK(good.draw() == Names{"missing-projection"});
    CHECK(good.isUntouched());
    good.view().projection = projection;
    CHECK(good.pick() == Names{"missing-projection"});
}

TEST_CASE("a frame without a frame buffer ends")
{
    GoodScene good;
    CHECK(heardIn([&] { Kardeno_Render_Dll(&good.view(), nullptr, 0, 0); }) == Names{"missing-frame-buffer"});
}

TEST_CASE("a rectangle beyond its limits is told of")
{
    GoodScene good;
    const auto spoilt = [&](f32& field, f32 value) {
        const f32 before = field;
        field = value;
        const Names names = good.draw(); // the outcodes do not fit it either
        field = before;
        return names.front();
    };
    const std::string once = "rectangle-limits";
    CHECK(spoilt(good.view().left, -32769) == once);
    CHECK(spoilt(good.view().top, -1) == once);
    CHECK(spoilt(good.projection().right, 32768) == once);
    CHECK(spoilt(good.projection().bottom, 4097) == once);
    CHECK(spoilt(good.view().left, notANumber) == once);
    CHECK(spoilt(good.view().top, 3e9f) == once);
    CHECK(spoilt(good.projection().bottom, infinite) == once);
    CHECK(good.isUntouched());
}

TEST_CASE("an empty rectangle is hinted at")
{
    GoodScene good;
    good.projection().right = 0;
    CHECK(good.draw().front() == "empty-rectangle");
}

TEST_CASE("depths that are no range are told of")
{
    GoodScene good;
    good.view().nearZ = 0;
    CHECK(good.draw() == Names{"depth-range"});
    good.view().nearZ = 10;
    good.view().farZ = 10;
    CHECK(good.draw().front() == "depth-range");
    good.view().farZ = notANumber;
    CHECK(good.draw().front() == "depth-range");
    good.view().nearZ = 1;
    good.view().farZ = infinite;
    CHECK(good.draw() == Names{});
}

TEST_CASE("a projection without a scale is told of")
{
    GoodScene good;
    good.projection().scaleX = 0;
    CHECK(good.draw().front() == "projection-scale");
    good.projection().scaleX = notANumber;
    CHECK(good.draw().front() == "projection-scale");
}

TEST_CASE("each of the four fields that follow from others is told of when it does not")
{
    GoodScene good;
    ViewProjection& projection = good.projection();
    for (f32* const field :
         {&projection.invScaleX, &projection.invScaleY, &projection.centreXOverScaleX, &projection.centreYOverScaleY}) {
        const f32 before = *field;
        *field = 0;
        CHECK(good.draw() == Names{"projection-derived"});
        *field = before * 1.01f;
        CHECK(good.draw() == Names{"projection-derived"});
        *field = before * 1.0000001f;
        CHECK(good.draw() == Names{});
        *field = before;
    }
}

TEST_CASE("a rectangle that is not 90 degrees wide is a hint until a face is cut at the near plane")
{
    GoodScene good;
    ViewProjection& projection = good.projection();
    projection.scaleX = 40;
    projection.invScaleX = 1 / 40.0f;
    projection.centreXOverScaleX = projection.centreX / 40;
    CHECK(good.draw() == Names{"projection-angle-unused"});

    good.vertex(good.face, 0).z = 0.5f;
    good.outcode(good.face, 0) = outcodeAll & ~outcodeNear & ~outcodeLeft & ~outcodeTop;
    const Names names = good.draw();
    CHECK(std::count(names.begin(), names.end(), "projection-angle") == 1);
}

TEST_CASE("a centre that is not that of the rectangle is not 90 degrees either")
{
    GoodScene good;
    good.projection().centreY = 30;
    good.projection().centreYOverScaleY = 30 / good.projection().scaleY;
    CHECK(good.draw().front() == "projection-angle-unused");
}

TEST_CASE("a pitch less than the width is told of")
{
    GoodScene good;
    good.view().pitch = GoodScene::width - 1;
    const auto drawOnce = [&] { Kardeno_Render_Dll(&good.view(), good.frame.pixels(), 0, 0); };
    CHECK(heardIn(drawOnce) == Names{"pitch-too-short"});
    good.view().pitch = GoodScene::width;
    CHECK(heardIn(drawOnce) == Names{});
}

TEST_CASE("a pitch of just twice the width is hinted at")
{
    GoodScene good;
    std::vector<u16> pixels(2 * GoodScene::width * GoodScene::height);
    good.view().pitch = 2 * GoodScene::width;
    CHECK(heardIn([&] { Kardeno_Render_Dll(&good.view(), pixels.data(), 0, 0); }) == Names{"pitch-twice"});
}

TEST_CASE("with the size of the frame buffer told, a pitch in bytes ends the frame")
{
    GoodScene good;
    std::vector<u16> pixels(GoodScene::width * GoodScene::height, 7);
    tellSizes(good).framePixels = GoodScene::width * GoodScene::height;
    const auto drawOnce = [&] { Kardeno_Render_Dll(&good.view(), pixels.data(), 0, frameClear); };
    good.view().pitch = 2 * GoodScene::width;
    CHECK(heardIn(drawOnce) == Names{"pitch-twice", "pitch-in-bytes"});
    CHECK(pixels == std::vector<u16>(GoodScene::width * GoodScene::height, 7));

    good.view().pitch = GoodScene::width;
    CHECK(heardIn(drawOnce) == Names{});
    CHECK(pixels[0] == 0);
}

TEST_CASE("with the size of the frame buffer told, a rectangle outside it ends the frame")
{
    GoodScene good;
    std::vector<u16> pixels(GoodScene::width * GoodScene::height, 7);
    tellSizes(good).framePixels = GoodScene::width * GoodScene::height - 1;
    good.view().pitch = GoodScene::width;
    const auto drawOnce = [&] { Kardeno_Render_Dll(&good.view(), pixels.data(), 0, frameClear); };
    CHECK(heardIn(drawOnce) == Names{"rectangle-outside-frame"});
    CHECK(pixels[0] == 7);
}

TEST_CASE("a rectangle that a callback moves out of the frame buffer ends the frame before it is drawn")
{
    GoodScene good;
    std::vector<u16> pixels(GoodScene::width * GoodScene::height, 7);
    tellSizes(good).framePixels = GoodScene::width * GoodScene::height;
    good.view().pitch = GoodScene::width;
    good.object.onPrepare = [&] { good.projection().bottom = 1000; };
    const Names names = heardIn([&] { Kardeno_Render_Dll(&good.view(), pixels.data(), 0, frameClear); });
    CHECK(names.back() == "rectangle-outside-frame");
    CHECK(pixels[0] == 7);
}

TEST_CASE("sizes without their marks are the host's own bytes")
{
    GoodScene good;
    CheckedSizes& sizes = tellSizes(good);
    sizes.framePixels = 1;
    sizes.vertexCount = 1;
    sizes.markAgain = 0;
    CHECK(good.draw() == Names{});
    CHECK(good.isDrawn());
}
