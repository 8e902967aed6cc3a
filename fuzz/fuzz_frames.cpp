// Hostile frames whose every decision is a byte of the fuzzer's. See README.md.
#include "tests/robustness/hostile_frames.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size);
extern "C" const char* __asan_default_options();

// The test host itself keeps what the library released, and forbids it: a short memory of freed blocks is enough, and
// keeps the pages that are already there in use.
extern "C" const char* __asan_default_options()
{
    return "quarantine_size_mb=4";
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    kardeno::tests::ByteSource source(data, size);
    const std::string complaint = kardeno::tests::complaintAbout(source);
    if (!complaint.empty()) {
        std::fprintf(stderr, "fuzz_frames: %s\n", complaint.c_str());
        std::abort();
    }
    return 0;
}
