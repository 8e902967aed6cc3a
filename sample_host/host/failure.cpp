#include "sample_host/host/failure.h"

#if defined(__cpp_exceptions)
#include <new>
#include <stdexcept>
#else
#include <cstdio>
#include <cstdlib>
#endif

namespace sample_host {

#if defined(__cpp_exceptions)
void fail(const std::string& sentence)
{
    throw std::runtime_error(sentence);
}

void failForMemory()
{
    throw std::bad_alloc();
}
#else
void fail(const std::string& sentence)
{
    std::fprintf(stderr, "sample_host: %s\n", sentence.c_str());
    std::abort();
}

void failForMemory()
{
    fail("there is not enough memory");
}
#endif

} // namespace sample_host
