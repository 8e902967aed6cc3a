#include "checked/system.h"

#include <stdio.h>

#if defined(_WIN32)
#include <windows.h>
#else
#include <stdlib.h>
#include <string.h>
#if !defined(__wasm__)
#include <pthread.h>
#endif
#endif

namespace kardeno::checked {

#if defined(_WIN32)

uintptr_t currentThread()
{
    return GetCurrentThreadId();
}

bool readVariable(const char* name, char* value, u32 size)
{
    const DWORD length = GetEnvironmentVariableA(name, value, size);
    return length > 0 && length < size;
}

void formatText(char* text, u32 size, const char* pattern, va_list values)
{
    _vsnprintf(text, size, pattern, values);
    text[size - 1] = 0;
}

void showInDebugger(const char* text)
{
    OutputDebugStringA(text);
}

#else

uintptr_t currentThread()
{
#if defined(__wasm__)
    return 0; // there is only one
#else
    return (uintptr_t)pthread_self();
#endif
}

bool readVariable(const char* name, char* value, u32 size)
{
    const char* const found = getenv(name);
    if (!found || !*found || strlen(found) >= size) return false;
    memcpy(value, found, strlen(found) + 1);
    return true;
}

void formatText(char* text, u32 size, const char* pattern, va_list values)
{
    vsnprintf(text, size, pattern, values);
}

void showInDebugger(const char*) {}

#endif

} // namespace kardeno::checked
