// The glTF library as it is used here: images are left to us, so that one that cannot be used is told by its name. A
// module for a page adds that it has neither exceptions nor files (cmake/third_party_headers.cmake).
#pragma once

#define TINYGLTF_NO_INCLUDE_JSON
#define TINYGLTF_NO_STB_IMAGE
#define TINYGLTF_NO_STB_IMAGE_WRITE

#include <nlohmann/json.hpp>
#include <tiny_gltf.h>
