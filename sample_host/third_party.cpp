// The bodies of the header-only libraries. The image reader goes without its SSE2 paths, which not every build has,
// so that an image has the same texels in all.
#define STBI_NO_SIMD
#define STB_IMAGE_IMPLEMENTATION
#include <stb/stb_image.h>

#define STB_IMAGE_RESIZE_IMPLEMENTATION
#include <stb/stb_image_resize.h>

#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb/stb_image_write.h>

#define TINYOBJLOADER_IMPLEMENTATION
#include <tiny_obj_loader.h>

// A page has a body of its own, which reads no files.
#ifndef __wasm__
#define TINYGLTF_NO_EXTERNAL_IMAGE
#define TINYGLTF_IMPLEMENTATION
#include "sample_host/reading/gltf_parser.h"
#endif
