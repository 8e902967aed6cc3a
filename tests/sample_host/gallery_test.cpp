#include "sample_host/gallery.h"
#include "sample_host/label.h"

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

TEST_CASE("text leaves ink in the picture, and none outside of its width")
{
    Image image(60, 12);
    drawText(image, 2, 2, "Lit", {0, 0, 0});
    const auto inkIn = [&](int left, int right) {
        int count = 0;
        for (int y = 0; y < image.height; ++y)
            for (int x = left; x < right; ++x) count += image.colour(std::size_t(y * image.width + x)).red == 0;
        return count;
    };
    CHECK(inkIn(2, 2 + textWidth("Lit")) > 10);
    CHECK(inkIn(0, 2) == 0);
    CHECK(inkIn(2 + textWidth("Lit"), 60) == 0);
}

TEST_CASE("text and lines that leave the picture are cut off")
{
    Image image(8, 8);
    drawText(image, -20, -3, "across the border", {0, 0, 0});
    drawLine(image, {-1000, 3}, {1000, 3}, {9, 9, 9});
    for (std::size_t x = 0; x < 8; ++x) CHECK(image.colour(3 * 8 + x).red == 9);
}

TEST_CASE("a line goes through both of its ends, in either direction")
{
    for (const bool turned : {false, true}) {
        Image image(8, 8);
        const Pixel a{1, 2}, b{6, 4};
        drawLine(image, turned ? b : a, turned ? a : b, {0, 0, 0});
        CHECK(image.colour(2 * 8 + 1).red == 0);
        CHECK(image.colour(4 * 8 + 6).red == 0);
        CHECK(image.colour(2 * 8 + 0).red == 255);
        CHECK(image.colour(4 * 8 + 7).red == 255);
    }
}
