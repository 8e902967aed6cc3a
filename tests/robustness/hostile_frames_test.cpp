#include "tests/robustness/clean_scene.h"
#include "tests/robustness/hostile_frames.h"
#include "tests/robustness/hostile_scene.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE(
    "scenes of hostile numbers, outlines, outcodes, views and trees draw nothing outside, and leave nothing behind")
{
    forEachSeed(500, [](u32 seed) {
        ByteSource source(seed);
        CHECK(complaintAbout(source) == "");
    });
}
