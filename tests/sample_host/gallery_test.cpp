#include "sample_host/pictures/label.h"
#include "sample_host/scenes/gallery.h"

#include <doctest/doctest.h>

using namespace sample_host;

TEST_CASE("the pictures of a contact sheet lie inside of it and keep apart, with their labels")
{
    constexpr int pictures = 20;
    for (int i = 0; i < pictures; ++i) {
        const int left = SheetLayout::left(i), right = left + SheetLayout::pictureWidth;
        const int top = SheetLayout::top(i), bottom = top + SheetLayout::pictureHeight + SheetLayout::labelHeight;
        CHECK(left >= 0);
        CHECK(top >= SheetLayout::titleHeight);
        CHECK(right <= SheetLayout::width());
        CHECK(bottom <= SheetLayout::height(pictures));
        for (int j = 0; j < i; ++j) {
            const bool besides =
                SheetLayout::left(j) + SheetLayout::pictureWidth <= left || right <= SheetLayout::left(j);
            const bool above = SheetLayout::top(j) + SheetLayout::pictureHeight + SheetLayout::labelHeight <= top;
            CHECK((besides || above));
        }
    }
}

TEST_CASE("a row of a sheet that is not full still has its height")
{
    CHECK(SheetLayout::rowsFor(1) == 1);
    CHECK(SheetLayout::rowsFor(5) == 1);
    CHECK(SheetLayout::rowsFor(6) == 2);
}

TEST_CASE("there are twenty rows, and their labels are no wider than their pictures")
{
    const std::vector<GalleryRow> rows = galleryRows();
    CHECK(rows.size() == 20);
    for (const GalleryRow& row : rows) {
        CAPTURE(row.name);
        CHECK(textWidth(row.name) <= SheetLayout::pictureWidth);
        CHECK(textWidth(row.what) <= SheetLayout::pictureWidth);
    }
}
