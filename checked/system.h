// The few calls of the checked library in which systems differ.
#pragma once

#include "kardeno_soft/types.h"

#include <stdarg.h>

namespace kardeno::checked {

// A number that tells the threads of the process apart.
uintptr_t currentThread();

// Copies the value of an environment variable, cut to `size` bytes with the closing 0. Returns false when it is not
// set.
bool readVariable(const char* name, char* value, u32 size);

// Writes a text of printf's patterns into a room of `size` bytes, cut to it with the closing 0. On Windows it is the C
// library's own routine: the compiler's would need start-up code, which the library has not.
void formatText(char* text, u32 size, const char* pattern, va_list values);

// Shows a text in the output of a debugger, where the system has such a thing.
void showInDebugger(const char* text);

} // namespace kardeno::checked
