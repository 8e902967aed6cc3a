#include "sample_host/host/nearest_word.h"

#include <algorithm>
#include <vector>

namespace sample_host {

namespace {

// The steps from one word to the other, by a table of the steps between all of their beginnings.
std::size_t steps(std::string_view from, std::string_view to)
{
    const std::size_t width = to.size() + 1;
    std::vector<std::size_t> table((from.size() + 1) * width);
    const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& { return table[i * width + j]; };
    for (std::size_t i = 0; i <= from.size(); ++i) {
        for (std::size_t j = 0; j <= to.size(); ++j) {
            if (i == 0 || j == 0) {
                at(i, j) = i + j;
                continue;
            }
            const std::size_t changed = at(i - 1, j - 1) + (from[i - 1] == to[j - 1] ? 0 : 1);
            at(i, j) = std::min({changed, at(i - 1, j) + 1, at(i, j - 1) + 1});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
                at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
        }
    }
    return table.back();
}

} // namespace

std::string nearestWord(std::string_view mistyped, std::span<const std::string> words)
{
    std::string nearest;
    std::size_t fewest = std::min<std::size_t>(2, mistyped.size() / 2) + 1;
    for (const std::string& word : words) {
        const std::size_t needed = steps(mistyped, word);
        if (needed >= fewest) continue;
        nearest = word;
        fewest = needed;
    }
    return nearest;
}

std::string suggestion(std::string_view mistyped, std::span<const std::string> words)
{
    const std::string nearest = nearestWord(mistyped, words);
    return nearest.empty() ? "" : "; did you mean '" + nearest + "'?";
}

} // namespace sample_host
