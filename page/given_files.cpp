#include "page/given_files.h"

namespace page {

namespace {

char lowered(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? char(letter - 'A' + 'a') : letter;
}

bool sameWord(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (lowered(a[i]) != lowered(b[i])) return false;
    return true;
}

} // namespace

std::string_view lastPart(std::string_view path)
{
    const std::size_t slash = path.find_last_of("/\\");
    return slash == path.npos ? path : path.substr(slash + 1);
}

bool endsIn(std::string_view name, std::string_view ending)
{
    return name.size() > ending.size() && sameWord(name.substr(name.size() - ending.size()), ending);
}

const GivenFile* find(const GivenFiles& files, std::string_view path)
{
    for (const GivenFile& file : files)
        if (sameWord(lastPart(file.name), lastPart(path))) return &file;
    return nullptr;
}

} // namespace page
