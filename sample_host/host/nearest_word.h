// What a mistyped word may have meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace sample_host {

// Of the words the one from which the mistyped word is the fewest letters away: changed, put in, left out or swapped
// with the next. Empty when they are so many that it would be a guess: more than two, or than half of the word.
std::string nearestWord(std::string_view mistyped, std::span<const std::string> words);

// "; did you mean 'room'?", or nothing where no word is near.
std::string suggestion(std::string_view mistyped, std::span<const std::string> words);

} // namespace sample_host
