#include "page/read_model.h"
#include "sample_host/reading/obj_materials.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace page {

namespace {

std::string line(int number)
{
    return ", line " + std::to_string(number) + ": ";
}

// The words of a text line by line. Lines end in any of the three ways that there are.
template <class Visit>
void forEachLine(std::string_view text, Visit visit)
{
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        std::istringstream words{std::string(text.substr(0, end))};
        std::string first;
        if (words >> first) visit(number, first, words);
        const bool hasTwo = text.substr(end, 2) == "\r\n";
        text.remove_prefix(std::min(end + (hasTwo ? 2 : 1), text.size()));
    }
}

// The parser takes a number that is none for 0, and an index that names nothing as it is. So the lines are looked at
// first. Gives what is wrong with the first bad one, or nothing.
std::string firstFault(std::string_view text)
{
    long counts[3]{}; // of v, vt and vn
    const auto kindOf = [](const std::string& word) {
        return word == "v" ? 0 : word == "vt" ? 1 : word == "vn" ? 2 : -1;
    };
    forEachLine(text, [&](int, const std::string& word, std::istringstream&) {
        if (const int kind = kindOf(word); kind >= 0) ++counts[kind];
    });

    constexpr const char* names[]{"vertex", "texture coordinate", "normal"};
    std::string fault;
    long soFar[3]{};
    forEachLine(text, [&](int number, const std::string& word, std::istringstream& words) {
        if (!fault.empty()) return;
        if (const int kind = kindOf(word); kind >= 0) {
            ++soFar[kind];
            const int needed = kind == 1 ? 1 : 3;
            for (int i = 0; i < needed; ++i) {
                std::string digits;
                char* end = nullptr;
                if (words >> digits) std::strtod(digits.c_str(), &end);
                if (!end || *end != 0)
                    fault =
                        line(number) + "a " + names[kind] + " needs " + (needed == 3 ? "three numbers" : "a number");
            }
            return;
        }
        if (word != "f") return;
        std::string corner;
        while (fault.empty() && words >> corner) {
            std::istringstream parts(corner);
            std::string part;
            for (int kind = 0; kind < 3 && std::getline(parts, part, '/'); ++kind) {
                if (part.empty() && kind > 0) continue;
                char* end = nullptr;
                const long index = std::strtol(part.c_str(), &end, 10);
                const bool exists = *end == 0 && end != part.c_str() && index != 0
                                    && (index > 0 ? index <= counts[kind] : index >= -soFar[kind]);
                if (!exists)
                    fault = line(number) + "a face names the " + names[kind] + " '" + part
                            + "'; expected is a number from 1 to " + std::to_string(counts[kind]);
            }
        }
    });
    return fault;
}

// The line of a material file that names the image of a material.
int lineOfImage(std::string_view text, const std::string& material)
{
    bool isInside = false;
    int found = 1;
    forEachLine(text, [&](int number, const std::string& word, std::istringstream& words) {
        std::string name;
        if (word == "newmtl") isInside = (words >> name) && name == material;
        if (isInside && word == "map_Kd") found = number;
    });
    return found;
}

struct ReadMaterial {
    tinyobj::material_t record;
    const GivenFile* file;
};

// Reads material files by the parser's own reader, from the given files.
class MaterialFiles : public tinyobj::MaterialReader {
public:
    MaterialFiles(const GivenFiles& files, std::vector<std::string>& remarks) : files_(files), remarks_(remarks) {}

    std::vector<const GivenFile*> fileOf; // of each material

    bool operator()(const std::string& name, std::vector<tinyobj::material_t>* materials,
                    std::map<std::string, int>* numbers, std::string* warning, std::string* error) override
    {
        const GivenFile* file = find(files_, name);
        if (!file) {
            remarks_.push_back("the material file '" + name + "' is not among the files");
            return false;
        }
        std::istringstream stream{std::string(file->text())};
        tinyobj::LoadMtl(numbers, materials, &stream, warning, error);
        fileOf.resize(materials->size(), file);
        return true;
    }

private:
    const GivenFiles& files_;
    std::vector<std::string>& remarks_;
};

// Gives a material its image. One that cannot be had leaves it in its colours.
void addImage(MaterialRecipe& material, const std::string& path, const GivenFile& file, const GivenFiles& files,
              std::vector<std::string>& remarks)
{
    const GivenFile* image = find(files, path);
    const ImageReading reading = image ? readImage(image->bytes.data(), image->bytes.size(), false)
                                       : ImageReading{nullptr, "is not among the files"};
    material.image = reading.image;
    if (!reading.image)
        remarks.push_back("'" + file.name + "'" + line(lineOfImage(file.text(), material.name)) + "the image '" + path
                          + "' of the material '" + material.name + "' " + reading.problem
                          + "; the material is drawn in its colours");
}

} // namespace

ModelReading readObj(const GivenFiles& files, const GivenFile& file)
{
    if (const std::string fault = firstFault(file.text()); !fault.empty()) return problem(file, fault);

    std::vector<std::string> remarks;
    MaterialFiles materialFiles(files, remarks);
    tinyobj::attrib_t values;
    std::vector<tinyobj::shape_t> shapes;
    std::vector<tinyobj::material_t> materials;
    std::string warning, error;
    std::istringstream stream{std::string(file.text())};
    if (!tinyobj::LoadObj(&values, &shapes, &materials, &warning, &error, &stream, &materialFiles, true))
        return problem(file, " cannot be read: " + error.substr(0, error.find('\n')));

    Triangles triangles;
    for (std::size_t i = 0; i + 2 < values.vertices.size(); i += 3)
        triangles.positions.push_back({values.vertices[i], values.vertices[i + 1], values.vertices[i + 2]});
    for (std::size_t i = 0; i + 2 < values.normals.size(); i += 3)
        triangles.normals.push_back({values.normals[i], values.normals[i + 1], values.normals[i + 2]});
    // A file counts v from the lower edge of the image.
    for (std::size_t i = 0; i + 1 < values.texcoords.size(); i += 2)
        triangles.textures.push_back({values.texcoords[i], 1.0 - values.texcoords[i + 1]});

    std::vector<MaterialRecipe> recipes;
    for (std::size_t i = 0; i < materials.size(); ++i) {
        recipes.push_back(recipeOf(materials[i]));
        if (!materials[i].diffuse_texname.empty())
            addImage(recipes.back(), materials[i].diffuse_texname, *materialFiles.fileOf[i], files, remarks);
    }
    // Faces that name no material, or one that does not exist, take one more behind the file's own.
    const int plain = int(recipes.size());
    recipes.push_back({.name = "plain", .diffuse = {190, 190, 186}});

    for (const tinyobj::shape_t& shape : shapes) {
        const std::vector<tinyobj::index_t>& indices = shape.mesh.indices;
        for (std::size_t i = 0; i + 2 < indices.size(); i += 3) {
            const int named = shape.mesh.material_ids[i / 3];
            Triangles::Triangle triangle{{}, named >= 0 && named < plain ? named : plain};
            for (std::size_t corner = 0; corner < 3; ++corner) {
                const tinyobj::index_t& index = indices[i + corner];
                triangle.corners[corner] = {index.vertex_index, index.normal_index, index.texcoord_index};
            }
            triangles.triangles.push_back(triangle);
        }
    }
    return finished(file, triangles, std::move(recipes), std::move(remarks));
}

} // namespace page
