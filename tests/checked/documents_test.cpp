// Every sentence has a test that provokes it, and its line in the document.
#include "checked/mistakes.h"

#include <doctest/doctest.h>

#include <fstream>
#include <iterator>
#include <string>

using namespace kardeno;

namespace {

std::string textOf(const std::string& file)
{
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

const char* levelOf(checked::Level level)
{
    constexpr const char* names[] = {"error", "warning", "hint"};
    return names[static_cast<u32>(level)];
}

} // namespace

TEST_CASE("each mistake is provoked by a test and told of in the document, in the same words")
{
    const std::string document = textOf("docs/checked_library.md");
    std::string tests;
    for (const char* name : {"calls", "view", "materials", "tree", "faces"})
        tests += textOf("tests/checked/" + std::string(name) + "_test.cpp");
    REQUIRE_FALSE(document.empty());
    for (u32 i = 0; i < static_cast<u32>(checked::Mistake::count); ++i) {
        const checked::MistakeWords& words = checked::wordsOf(static_cast<checked::Mistake>(i));
        CAPTURE(words.name);
        CHECK(contains(tests, "\"" + std::string(words.name) + "\""));
        CHECK(contains(document, "| `" + std::string(words.name) + "` | " + levelOf(words.level) + " | " + words.what
                                     + " | " + words.remedy + " |"));
    }
}
