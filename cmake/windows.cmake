# What the toolchains for Windows share. They set CMAKE_SYSTEM_PROCESSOR and `mingw`, the prefix of the tools' names.
# The thread variant of the compiler makes no difference to the library; the tests want the one that has std::mutex.
set(CMAKE_SYSTEM_NAME Windows)

set(CMAKE_C_COMPILER ${mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${mingw})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs carry the compiler's run-time libraries with them: Windows has none of them.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
