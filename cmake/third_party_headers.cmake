# The header-only libraries that tests and sample host use.
# They are linked one by one into a folder of the build: /usr/include as a whole, on the search path of a compiler for
# another system, would hide that system's own headers.
set(headers ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
foreach(header doctest stb tiny_obj_loader.h)
    if(EXISTS /usr/include/${header})
        file(CREATE_LINK /usr/include/${header} ${headers}/${header} SYMBOLIC)
    endif()
endforeach()

add_library(third_party_headers INTERFACE)
target_include_directories(third_party_headers SYSTEM INTERFACE ${headers})
