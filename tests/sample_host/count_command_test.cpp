#include "sample_host/count_command.h"

#include "sample_host/program.h"
#include "tests/sample_host/golden_counts.h"
#include "tests/sample_host/linked_renderer.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

using namespace sample_host;

namespace {

nlohmann::ordered_json goldenCounts()
{
    std::ifstream file(goldenCountsFile);
    return nlohmann::ordered_json::parse(file);
}

void KARDENO_CALL drawAndChangeAPixel(RenderView* view, u16* frameBuffer, u32 argument, u8 flags)
{
    linkedRendererOfTheTests().render(view, frameBuffer, argument, flags);
    frameBuffer[0] ^= 1;
}

} // namespace

TEST_CASE("stats says the counts of the inspector, as the page does, next to those that a host can see")
{
    const char* renderer = std::getenv("KARDENO_LIBRARY");
    REQUIRE(renderer);
    const nlohmann::ordered_json golden = goldenCounts();
    for (const auto& item : golden.items()) {
        const std::string& scene = item.key();
        const nlohmann::ordered_json& counts = item.value();
        CAPTURE(scene);
        for (const char* command : {"stats", "--stats"}) {
            const char* arguments[]{command, "--json", "--scene", scene.c_str(), "--size", "160x120"};
            std::ostringstream said, complained;
            REQUIRE(runProgram(arguments, renderer, said, complained) == 0);
            const auto json = nlohmann::ordered_json::parse(said.str());
            CHECK(json["inside"] == counts);
            CHECK(json["facesTested"] == counts["facesTested"]);
            CHECK(json["objectsDrawn"] == counts["objects"]);
        }
    }
}

TEST_CASE("when the library draws another frame, what is inside of it is said to be unknown")
{
    RendererTable other = linkedRendererOfTheTests();
    other.render = drawAndChangeAPixel;
    std::ostringstream said;
    sayCounts(other, {.sceneName = "room"}, {.asJson = true, .width = 32, .height = 32}, {}, said);
    const auto json = nlohmann::ordered_json::parse(said.str());
    CHECK(json["inside"].is_null());
    CHECK(json["pixelsOfPicture"] == 1024);
}
