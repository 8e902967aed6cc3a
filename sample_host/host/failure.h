// What the engine does when it cannot go on.
#pragma once

#include <string>

namespace sample_host {

// Throws std::runtime_error with a sentence for people, and std::bad_alloc. The engine and the scenes throw nowhere
// else. In a program without exceptions both write a sentence to the standard error and end the program.
[[noreturn]] void fail(const std::string& sentence);
[[noreturn]] void failForMemory();

} // namespace sample_host
