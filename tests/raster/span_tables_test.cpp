// The tables of inner routines: what a filler's table has to say, and which routine it answers with.
#include "raster/span_routines.h"

#include <doctest/doctest.h>

using namespace kardeno;

namespace {

// Whether a table compiles that names its routines and not what its key is taken from.
template <class Table>
concept MayForgetItsKey = requires(SpanRoutine routine)
{
    Table{{routine, routine}, {routine, routine}};
};

template <class Table>
concept CanNameItsKey = requires(SpanRoutine routine, u32 (&keyOf)(const TextureMap&))
{
    Table{{routine, routine}, {routine, routine}, keyOf};
};

template <i32 number>
void drawNothing(SpanGradients*, u16*)
{
    static_assert(number >= 0); // so that the four are different routines
}

u32 noKey(const TextureMap&)
{
    return 0;
}

} // namespace

TEST_CASE("a table of textured span routines that does not say what its key is taken from does not compile")
{
    CHECK(CanNameItsKey<TexturedSpanRoutines>);
    CHECK_FALSE(MayForgetItsKey<TexturedSpanRoutines>);
}

TEST_CASE("a table answers by the map's mark of 256 x 256 and by the pixel format")
{
    const TexturedSpanRoutines table = {{drawNothing<0>, drawNothing<1>}, {drawNothing<2>, drawNothing<3>}, noKey};
    TextureImage image = {};
    CHECK((table.choose(image, rgb555) == drawNothing<0>));
    CHECK((table.choose(image, rgb565) == drawNothing<1>));
    image.is256x256 = 7; // any value but 0
    CHECK((table.choose(image, rgb555) == drawNothing<2>));
    CHECK((table.choose(image, rgb565) == drawNothing<3>));
}
