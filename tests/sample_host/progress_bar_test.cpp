#include "sample_host/progress_bar.h"

#include <doctest/doctest.h>

#include <sstream>

using namespace sample_host;

TEST_CASE("a bar stands there after a second, moves ten times a second at most, and is taken back at the end")
{
    std::ostringstream out;
    double now = 100;
    {
        ProgressBar bar(out, true, [&] { return now; });
        now = 100.9;
        bar.show("reading", 0.3);
        CHECK(out.str().empty());
        now = 101;
        bar.show("reading", 0.5);
        const std::string half = "\rreading [" + std::string(20, '#') + std::string(20, '.') + "] 50 %";
        CHECK(out.str() == half);
        now = 101.05;
        bar.show("reading", 0.6);
        CHECK(out.str() == half);
        now = 101.2;
        bar.show("quick", 0.75);
        // Two letters shorter than the line before: blanks fill it up.
        CHECK(out.str() == half + "\rquick [" + std::string(30, '#') + std::string(10, '.') + "] 75 %  ");
        out.str("");
    }
    CHECK(out.str() == "\r" + std::string(55, ' ') + "\r"); // "reading [", 40 cells and "] 50 %"
}

TEST_CASE("what is done wholly takes its bar back")
{
    std::ostringstream out;
    double now = 0;
    ProgressBar bar(out, true, [&] { return now; });
    bar.show("drawing", 1);
    CHECK(out.str().empty());
    now = 2;
    bar.show("drawing", 0);
    out.str("");
    bar.show("drawing", 1);
    CHECK(out.str() == "\r" + std::string(54, ' ') + "\r"); // "drawing [", 40 cells and "] 0 %"
    out.str("");
    bar.show("drawing", 1);
    CHECK(out.str().empty());
}

TEST_CASE("where there is no terminal no bar is written")
{
    std::ostringstream out;
    double now = 0;
    {
        ProgressBar bar(out, false, [&] { return now; });
        now = 5;
        bar.show("reading", 0.5);
    }
    CHECK(out.str().empty());
}
