// Draws hostile frames in which every decision is taken from the bytes of the fuzzer's input. See README.md.
#include "tests/robustness/hostile_frames.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size);
extern "C" const char* __asan_default_options();

// AddressSanitizer keeps freed blocks for a while, to catch their use. Here a small quarantine is enough, because the
// test host keeps and poisons the blocks that the library released; and with a small one, memory is soon used again.
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
