#include "support/list.h"

#include <doctest/doctest.h>

#include <string>

using namespace kardeno;

namespace {

struct First {
    static constexpr char letter = 'a';
};
struct Second {
    static constexpr char letter = 'b';
};
struct Absent {};

} // namespace

TEST_CASE("a list is visited from its first item to its last")
{
    std::string visited;
    List<First, Second, First>::forEach([&]<class Item>() { visited += Item::letter; });
    CHECK(visited == "aba");

    List<>::forEach([&]<class Item>() { visited += Item::letter; });
    CHECK(visited == "aba");
}

TEST_CASE("a list knows its size and what it contains")
{
    CHECK(List<First, Second>::size == 2);
    CHECK(List<>::size == 0);
    CHECK(List<First, Second>::contains<Second>());
    CHECK_FALSE(List<First, Second>::contains<Absent>());
    CHECK_FALSE(List<>::contains<First>());
}
