// The bodies of the header-only libraries that read models and images, without all that reads from a disk. The image
// reader goes without its fast paths, so that an image has the same texels as in other builds.
#define STBI_NO_SIMD
#define STBI_NO_STDIO
#define STBI_NO_HDR
#define STBI_NO_LINEAR
#define STB_IMAGE_IMPLEMENTATION
#include <stb/stb_image.h>

#define STB_IMAGE_RESIZE_IMPLEMENTATION
#include <stb/stb_image_resize.h>

#define TINYOBJLOADER_IMPLEMENTATION
#include <tiny_obj_loader.h>
