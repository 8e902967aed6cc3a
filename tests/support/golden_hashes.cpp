#include "tests/support/golden_hashes.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace kardeno::tests {

std::string hexadecimal(u32 hash)
{
    char text[16];
    std::snprintf(text, sizeof text, "%08x", static_cast<unsigned>(hash));
    return text;
}

GoldenHashes readGoldenHashes(const std::string& file)
{
    GoldenHashes hashes;
    std::ifstream in(file);
    std::string scene, bits, hash;
    while (in >> scene >> bits >> hash) hashes[scene + " " + bits] = hash;
    return hashes;
}

void writeGoldenHashes(const std::string& file, const GoldenHashes& hashes)
{
    std::ofstream out(file, std::ios::binary);
    for (const auto& [name, hash] : hashes) out << name << ' ' << hash << '\n';
}

bool updatesGoldenHashes()
{
    const char* const update = std::getenv("KARDENO_UPDATE_GOLDEN");
    return update && std::string(update) == "1";
}

} // namespace kardeno::tests
