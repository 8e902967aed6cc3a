# Programs and libraries for 32-bit Windows (Debian: g++-mingw-w64-i686-posix).
set(CMAKE_SYSTEM_PROCESSOR i686)
set(mingw i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
