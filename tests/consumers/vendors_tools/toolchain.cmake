# Clang and its linker as they stand in for the vendor's on Windows, without the vendor's headers and libraries. MACHINE
# is i686 or x86_64.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${MACHINE})
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MACHINE)

set(CMAKE_C_COMPILER clang-14)
set(CMAKE_C_COMPILER_TARGET ${MACHINE}-pc-windows-msvc)
set(CMAKE_LINKER lld-link-14)
set(CMAKE_AR llvm-ar-14)
set(CMAKE_MT llvm-mt-14)
set(CMAKE_RC_COMPILER llvm-rc-14)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
