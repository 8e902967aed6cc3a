# Builds for 64-bit ARM Linux with clang and the headers and libraries of Debian's cross packages (clang-14, lld-14,
# llvm-14, libstdc++-12-dev-arm64-cross). Debian's own cross compiler cannot be installed beside g++-multilib.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_OBJCOPY llvm-objcopy-14)
set(CMAKE_C_COMPILER_TARGET aarch64-linux-gnu)
set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
set(CMAKE_C_FLAGS_INIT --gcc-toolchain=/usr)
set(CMAKE_CXX_FLAGS_INIT --gcc-toolchain=/usr)
set(CMAKE_EXE_LINKER_FLAGS_INIT -fuse-ld=lld-14)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -fuse-ld=lld-14)

set(CMAKE_FIND_ROOT_PATH /usr/aarch64-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
