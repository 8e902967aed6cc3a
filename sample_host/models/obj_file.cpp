#include "sample_host/models/obj_file.h"

#include "sample_host/host/failure.h"

#include <filesystem>
#include <fstream>
#include <limits>

namespace sample_host {

namespace {

constexpr int outOfRange = std::numeric_limits<int>::max();

// Reads the MTL files through the parser's own reader, and notes which file each material is from.
class MaterialFiles : public tinyobj::MaterialReader {
public:
    MaterialFiles(const std::filesystem::path& folder, std::vector<std::string>& files)
        : folder_(folder), files_(files), reader_(folder.string())
    {
    }

    bool operator()(const std::string& name, std::vector<tinyobj::material_t>* materials,
                    std::map<std::string, int>* numbers, std::string* warning, std::string* error) override
    {
        const bool found = reader_(name, materials, numbers, warning, error);
        files_.resize(materials->size(), (folder_ / name).generic_string());
        return found;
    }

private:
    std::filesystem::path folder_;
    std::vector<std::string>& files_;
    tinyobj::MaterialFileReader reader_;
};

// What the parser calls for each line.
struct Lines {
    ObjFile& result;
    int material = ObjFile::none;

    static Lines& of(void* data) { return *static_cast<Lines*>(data); }

    static void addPosition(void* data, float x, float y, float z, float)
    {
        of(data).result.positions.insert(of(data).result.positions.end(), {x, y, z});
    }
    static void addNormal(void* data, float x, float y, float z)
    {
        of(data).result.normals.insert(of(data).result.normals.end(), {x, y, z});
    }
    static void addTexture(void* data, float u, float v, float)
    {
        of(data).result.textures.insert(of(data).result.textures.end(), {u, v});
    }
    static void setMaterial(void* data, const char*, int number) { of(data).material = number; }
    static void setMaterials(void* data, const tinyobj::material_t* materials, int count)
    {
        of(data).result.materials.clear();
        for (int i = 0; i < count; ++i) of(data).result.materials.push_back({materials[i], {}});
    }
    static void addFace(void* data, tinyobj::index_t* corners, int count)
    {
        ObjFile& file = of(data).result;
        ObjFile::Face face;
        face.material = of(data).material;
        for (int i = 0; i < count; ++i) {
            // A vertex must be named; the parser gives 0 for what is not.
            const int vertex = corners[i].vertex_index;
            face.corners.push_back({vertex == 0 ? outOfRange : fromStart(vertex, file.positions.size() / 3),
                                    fromStart(corners[i].texcoord_index, file.textures.size() / 2),
                                    fromStart(corners[i].normal_index, file.normals.size() / 3)});
        }
        file.faces.push_back(std::move(face));
    }

    // A file counts from 1, or from the latest entry backwards with negative numbers.
    static int fromStart(int number, std::size_t count)
    {
        if (number == 0) return ObjFile::none;
        if (number > 0) return number - 1;
        return number >= -int(count) ? int(count) + number : outOfRange;
    }
};

// Calls back with the number and the words of each line, for as long as that gives true. Lines end as they do for the
// parser.
template <class Look>
void forEachLine(const std::string& file, Look look)
{
    std::ifstream stream(file, std::ios::binary);
    std::string line;
    char character = 0, before = 0;
    int number = 1;
    const auto words = [&] {
        std::vector<std::string> result;
        for (std::size_t begin = line.find_first_not_of(" \t"), end = 0; begin != std::string::npos;
             begin = line.find_first_not_of(" \t", end)) {
            end = std::min(line.find_first_of(" \t", begin), line.size());
            result.push_back(line.substr(begin, end - begin));
        }
        return result;
    };
    for (; stream.get(character); before = character) {
        if (character == '\n' && before == '\r') continue; // the second half of an end
        if (character != '\n' && character != '\r') {
            line += character;
            continue;
        }
        if (!look(number++, words())) return;
        line.clear();
    }
    look(number, words());
}

} // namespace

ObjFile readObjFile(const std::string& file)
{
    std::ifstream stream;
    // A folder could be opened, and would be taken for an empty file.
    std::error_code ignored;
    if (std::filesystem::is_regular_file(file, ignored)) stream.open(file, std::ios::binary);
    if (!stream.is_open()) fail("the model '" + file + "' cannot be read: it is not there or not a file");

    tinyobj::callback_t callbacks;
    callbacks.vertex_cb = Lines::addPosition;
    callbacks.normal_cb = Lines::addNormal;
    callbacks.texcoord_cb = Lines::addTexture;
    callbacks.index_cb = Lines::addFace;
    callbacks.usemtl_cb = Lines::setMaterial;
    callbacks.mtllib_cb = Lines::setMaterials;

    ObjFile result;
    Lines lines{result};
    std::vector<std::string> materialFiles;
    MaterialFiles materials(std::filesystem::path(file).parent_path(), materialFiles);
    std::string warning, error;
    if (!tinyobj::LoadObjWithCallback(stream, callbacks, &lines, &materials, &warning, &error))
        fail("the model '" + file + "' cannot be read: " + error.substr(0, error.find_first_of("\r\n")));
    for (std::size_t i = 0; i < result.materials.size(); ++i) result.materials[i].file = materialFiles[i];
    return result;
}

int lineOfFace(const std::string& file, std::size_t face)
{
    std::size_t faces = 0;
    int line = 0;
    forEachLine(file, [&](int number, const std::vector<std::string>& words) {
        // The parser calls back for faces that have a corner.
        if (words.size() > 1 && words[0] == "f" && faces++ == face) line = number;
        return line == 0;
    });
    return line;
}

int lineOfImage(const std::string& materialFile, const std::string& material)
{
    int line = 0;
    std::string current;
    forEachLine(materialFile, [&](int number, const std::vector<std::string>& words) {
        if (words.size() > 1 && words[0] == "newmtl") {
            current = words[1];
            for (std::size_t i = 2; i < words.size(); ++i) current += " " + words[i];
        }
        // Of several images the parser takes the last one.
        if (words.size() > 1 && words[0] == "map_Kd" && current == material) line = number;
        return true;
    });
    return line;
}

} // namespace sample_host
