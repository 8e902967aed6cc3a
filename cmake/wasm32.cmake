# Builds for WebAssembly with clang and the C library of WASI (Debian: clang-14, llvm-14, lld-14, wasi-libc,
# libc++-14-dev-wasm32, libclang-rt-14-dev-wasm32). Programs run under node through tools/run_wasm.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)

set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_AR llvm-ar-14)
set(CMAKE_RANLIB llvm-ranlib-14)
set(CMAKE_C_COMPILER_TARGET wasm32-wasi)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
