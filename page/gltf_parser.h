// The glTF library as the page uses it: without exceptions, files and its own image reader.
#pragma once

#define TINYGLTF_NOEXCEPTION
#define TINYGLTF_NO_FS
#define TINYGLTF_NO_INCLUDE_JSON
#define TINYGLTF_NO_STB_IMAGE
#define TINYGLTF_NO_STB_IMAGE_WRITE

#include <nlohmann/json.hpp>
#include <tiny_gltf.h>
