// The sample host: loads the renderer, builds a scene, draws it and writes the pictures.
#include "sample_host/program.h"

#include <filesystem>
#include <iostream>

// The renderer is looked for beside the program.
int main(int argumentCount, char** arguments)
{
    const std::span<const char* const> all(arguments, std::size_t(argumentCount));
    if (all.empty()) return 1;
    const std::filesystem::path folder = std::filesystem::absolute(all[0]).parent_path();
    return sample_host::runProgram(all.subspan(1), (folder / KARDENO_LIBRARY_NAME).string(), std::cout, std::cerr);
}
