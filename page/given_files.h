// The files that somebody has dropped onto the page. There are no folders: a file that names another one by a path
// means the given file of that name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace page {

struct GivenFile {
    std::string name;
    std::vector<std::uint8_t> bytes;

    std::string_view text() const { return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; }
};

using GivenFiles = std::vector<GivenFile>;

// What follows the last slash of either kind.
std::string_view lastPart(std::string_view path);
// Whether the name ends so, in capital or in other letters.
bool endsIn(std::string_view name, std::string_view ending);
// The file that is meant by a path; null when it was not given. Capital letters make no difference.
const GivenFile* find(const GivenFiles& files, std::string_view path);

} // namespace page
