# The header-only libraries that the tests and the sample host use. Each is linked into a folder of the build by itself:
# if a compiler for another system searched the whole of /usr/include, it would miss that system's own headers.
set(headers ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
foreach(header doctest stb tiny_obj_loader.h CLI nlohmann tiny_gltf.h)
    if(EXISTS /usr/include/${header})
        file(CREATE_LINK /usr/include/${header} ${headers}/${header} SYMBOLIC)
    endif()
endforeach()

add_library(third_party_headers INTERFACE)
target_include_directories(third_party_headers SYSTEM INTERFACE ${headers})
# A module has neither exceptions nor files.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "wasm32")
    target_compile_definitions(third_party_headers INTERFACE
        JSON_NOEXCEPTION JSON_HAS_FILESYSTEM=0 JSON_HAS_EXPERIMENTAL_FILESYSTEM=0 TINYGLTF_NOEXCEPTION TINYGLTF_NO_FS)
endif()
