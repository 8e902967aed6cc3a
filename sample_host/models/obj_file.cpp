#include "sample_host/models/obj_file.h"

#include "sample_host/host/failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

namespace sample_host {

namespace {

constexpr int outOfRange = std::numeric_limits<int>::max();

// Reads the MTL files through the parser's own reader, and notes which file each material is from.
class MaterialFiles : public tinyobj::MaterialReader {
public:
    MaterialFiles(const std::filesystem::path& folder, std::vector<std::string>& files,
                  std::vector<ObjFile::Missing>& missing)
        : folder_(folder), files_(files), missing_(missing), reader_(folder.string())
    {
    }

    bool operator()(const std::string& name, std::vector<tinyobj::material_t>* materials,
                    std::map<std::string, int>* numbers, std::string* warning, std::string* error) override
    {
        const bool found = reader_(name, materials, numbers, warning, error);
        files_.resize(materials->size(), (folder_ / name).generic_string());
        if (!found) missing_.push_back({name});
        return found;
    }

private:
    std::filesystem::path folder_;
    std::vector<std::string>& files_;
    std::vector<ObjFile::Missing>& missing_;
    tinyobj::MaterialFileReader reader_;
};

// What the parser calls for each line.
struct Lines {
    ObjFile& result;
    int material = ObjFile::none, group = ObjFile::none;

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
    static void setMaterial(void* data, const char* name, int number)
    {
        of(data).material = number;
        std::vector<ObjFile::Missing>& missing = of(data).result.missingMaterials;
        const auto isThis = [&](const ObjFile::Missing& other) { return other.name == name; };
        if (number < 0 && std::none_of(missing.begin(), missing.end(), isThis)) missing.push_back({name});
    }
    static void setMaterials(void* data, const tinyobj::material_t* materials, int count)
    {
        of(data).result.materials.clear();
        for (int i = 0; i < count; ++i) of(data).result.materials.push_back({materials[i], {}});
    }
    // Groups and objects are both parts of a model that have a name.
    static void setGroup(void* data, const std::string& name)
    {
        std::vector<std::string>& groups = of(data).result.groups;
        if (groups.empty() || groups.back() != name) groups.push_back(name);
        of(data).group = int(groups.size()) - 1;
    }
    static void setGroups(void* data, const char** names, int count) { setGroup(data, count > 0 ? names[0] : ""); }
    static void setObject(void* data, const char* name) { setGroup(data, name); }
    static void addFace(void* data, tinyobj::index_t* corners, int count)
    {
        ObjFile& file = of(data).result;
        ObjFile::Face face;
        face.material = of(data).material;
        face.group = of(data).group;
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
void forEachLine(std::istream& stream, Look look)
{
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

template <class Look>
void forEachLine(const std::string& file, Look look)
{
    std::ifstream stream(file, std::ios::binary);
    forEachLine(stream, look);
}

// A text that is read as a stream, and tells how much of it has been read.
class ToldText : public std::streambuf {
public:
    ToldText(std::string& text, const Progress& progress) : text_(text), progress_(progress) {}

protected:
    int_type underflow() override
    {
        if (place_ == text_.size()) return traits_type::eof();
        report(progress_, "reading", double(place_) / double(text_.size()));
        const std::size_t size = std::min<std::size_t>(1 << 16, text_.size() - place_);
        setg(&text_[place_], &text_[place_], &text_[place_] + size);
        place_ += size;
        return traits_type::to_int_type(*gptr());
    }

private:
    std::string& text_;
    const Progress& progress_;
    std::size_t place_ = 0;
};

float numberIn(std::string_view word)
{
    float number = std::numeric_limits<float>::quiet_NaN();
    std::from_chars(word.data(), word.data() + word.size(), number);
    return number;
}

// What the parser passes over in the lines of vertices and normals: colours behind the coordinates, and numbers that
// are none, which it takes for 0.
class VertexLines {
public:
    explicit VertexLines(ObjFile& file) : file_(file) {}

    void read(std::string_view text)
    {
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
            readLine(text.substr(begin, end - begin));
            begin = end + 1;
        }
        if (!hasColours_) file_.colours.clear();
    }

private:
    void readLine(std::string_view line)
    {
        std::array<std::string_view, 9> words;
        std::size_t count = 0;
        constexpr std::string_view blanks = " \t";
        for (std::size_t begin = line.find_first_not_of(blanks); begin < line.size() && count < words.size();) {
            const std::size_t end = std::min(line.find_first_of(blanks, begin), line.size());
            words[count++] = line.substr(begin, end - begin);
            begin = line.find_first_not_of(blanks, end);
        }
        if (count < 2) return;
        if (words[0] == "v") {
            markNumbers(std::span(words).subspan(1, std::min<std::size_t>(count - 1, 3)), vertices_++, file_.positions);
            addColour(std::span(words).first(count));
        } else if (words[0] == "vn") {
            markNumbers(std::span(words).subspan(1, std::min<std::size_t>(count - 1, 3)), normals_++, file_.normals);
        }
    }

    // In what the parser made of a line, the numbers that were none.
    static void markNumbers(std::span<const std::string_view> words, std::size_t line, std::vector<float>& numbers)
    {
        for (std::size_t i = 0; i < words.size() && 3 * line + i < numbers.size(); ++i)
            if (words[i].find_first_of("nN") != std::string_view::npos)
                numbers[3 * line + i] = std::numeric_limits<float>::quiet_NaN();
    }

    // Three more numbers behind the coordinates, or behind their weight.
    void addColour(std::span<const std::string_view> words)
    {
        std::array<float, 3> colour{1, 1, 1};
        if (words.size() == 7 || words.size() == 8) {
            hasColours_ = true;
            for (std::size_t i = 0; i < 3; ++i) colour[i] = numberIn(words[words.size() - 3 + i]);
        }
        file_.colours.insert(file_.colours.end(), colour.begin(), colour.end());
    }

    ObjFile& file_;
    std::size_t vertices_ = 0, normals_ = 0;
    bool hasColours_ = false;
};

// The first lines in which the file asks for what is missing.
void findLines(const std::string& text, std::string_view keyword, std::vector<ObjFile::Missing>& missing)
{
    if (missing.empty()) return;
    std::istringstream stream(text);
    forEachLine(stream, [&](int number, const std::vector<std::string>& words) {
        if (words.empty() || words[0] != keyword) return true;
        std::string all; // the words with one blank between them
        for (std::size_t i = 1; i < words.size(); ++i) all += " " + words[i];
        for (ObjFile::Missing& one : missing) {
            std::istringstream nameWords(one.name);
            std::string name;
            for (std::string word; nameWords >> word;) name += " " + word;
            if (one.line == 0 && (all + " ").find(name + " ") != std::string::npos) one.line = number;
        }
        return true;
    });
}

} // namespace

ObjFile readObjFile(const std::string& file, const Progress& progress)
{
    std::ifstream stream;
    // A folder could be opened, and would be taken for an empty file.
    std::error_code ignored;
    if (std::filesystem::is_regular_file(file, ignored)) stream.open(file, std::ios::binary);
    if (!stream.is_open()) fail("the model '" + file + "' cannot be read: it is not there or not a file");
    std::string text{std::istreambuf_iterator<char>(stream), {}};

    tinyobj::callback_t callbacks;
    callbacks.vertex_cb = Lines::addPosition;
    callbacks.normal_cb = Lines::addNormal;
    callbacks.texcoord_cb = Lines::addTexture;
    callbacks.index_cb = Lines::addFace;
    callbacks.usemtl_cb = Lines::setMaterial;
    callbacks.mtllib_cb = Lines::setMaterials;
    callbacks.group_cb = Lines::setGroups;
    callbacks.object_cb = Lines::setObject;

    ObjFile result;
    Lines lines{result};
    std::vector<std::string> materialFiles;
    MaterialFiles materials(std::filesystem::path(file).parent_path(), materialFiles, result.missingFiles);
    ToldText told(text, progress);
    std::istream lineStream(&told);
    std::string warning, error;
    if (!tinyobj::LoadObjWithCallback(lineStream, callbacks, &lines, &materials, &warning, &error))
        fail("the model '" + file + "' cannot be read: " + error.substr(0, error.find_first_of("\r\n")));
    for (std::size_t i = 0; i < result.materials.size(); ++i) result.materials[i].file = materialFiles[i];
    VertexLines(result).read(text);
    findLines(text, "mtllib", result.missingFiles);
    findLines(text, "usemtl", result.missingMaterials);
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

int lineOfValue(const std::string& materialFile, const std::string& material, std::span<const std::string> values)
{
    int line = 0;
    std::string current;
    forEachLine(materialFile, [&](int number, const std::vector<std::string>& words) {
        if (words.size() > 1 && words[0] == "newmtl") {
            current = words[1];
            for (std::size_t i = 2; i < words.size(); ++i) current += " " + words[i];
        }
        // Of several lines the parser takes the last one.
        if (words.size() > 1 && current == material
            && std::find(values.begin(), values.end(), words[0]) != values.end())
            line = number;
        return true;
    });
    return line;
}

} // namespace sample_host
