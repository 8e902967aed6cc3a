// The body of the glTF library, which reads no file by itself and leaves images to us.
#define TINYGLTF_IMPLEMENTATION
#include <fstream>

#include "page/gltf_parser.h"
