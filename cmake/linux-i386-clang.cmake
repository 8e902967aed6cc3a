# Builds for 32-bit Linux with clang, for the sake of libFuzzer, which only clang has (Debian: clang-14,
# libclang-rt-14-dev, and g++-multilib for its libraries).
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)

set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_C_FLAGS_INIT -m32)
set(CMAKE_CXX_FLAGS_INIT -m32)
