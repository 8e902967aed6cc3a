# Programs and libraries for 64-bit Windows (Debian: g++-mingw-w64-x86-64-posix).
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(mingw x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
