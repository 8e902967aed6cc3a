// How far a long task has come.
#pragma once

#include <functional>

namespace sample_host {

// Is told what is being done, in a word or two, and the part of it that is done, from 0 to 1. None is told nothing.
using Progress = std::function<void(const char* task, double part)>;

inline void report(const Progress& progress, const char* task, double part)
{
    if (progress) progress(task, part);
}

} // namespace sample_host
