// The body of the glTF library, which reads no file by itself and leaves images to us.
#define TINYGLTF_IMPLEMENTATION
#include <fstream>

#include "sample_host/reading/gltf_parser.h"
