#include "sample_host/pick_in_words.h"

#include "sample_host/scenes/gallery_rows.h"

#include <cstdio>

namespace sample_host {

std::string pickInWords(const Pick& pick)
{
    if (!pick.object) return "nothing";
    char place[64];
    std::snprintf(place, sizeof place, "face %d, at depth %.4f", int(pick.face), double(pick.depth));
    std::string words = "'" + pick.object->name + "', " + place;
    const Material* material = pick.object->materialOf(pick.face);
    if (!material) return words;
    const std::string group = pick.object->groupOf(pick.face);
    if (!group.empty()) words += ", group '" + group + "'";
    return words + ", material '" + material->name + "', row " + galleryRows()[std::size_t(material->row())].name;
}

} // namespace sample_host
