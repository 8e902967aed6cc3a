#include "page/read_model.h"
#include "sample_host/reading/gltf_numbers.h"

#include <algorithm>
#include <span>

namespace page {

namespace {

// What the parser asks for files.
struct FileAccess {
    static const GivenFiles& of(void* data) { return *static_cast<const GivenFiles*>(data); }

    static bool exists(const std::string& path, void* data) { return find(of(data), path) != nullptr; }
    static std::string expanded(const std::string& path, void*) { return path; }
    static bool readWhole(std::vector<unsigned char>* bytes, std::string*, const std::string& path, void* data)
    {
        const GivenFile* file = find(of(data), path);
        if (file) *bytes = file->bytes;
        return file != nullptr;
    }
    static bool writeWhole(std::string*, const std::string&, const std::vector<unsigned char>&, void*) { return false; }
};

// An image of a file or of the text itself is kept as its bytes until a material asks for it. One that lies in a buffer
// is left there: the parser has not looked whether the buffer reaches so far.
bool keepImage(tinygltf::Image* image, int, std::string*, std::string*, int, int, const unsigned char* bytes, int count,
               void*)
{
    if (image->bufferView < 0) image->image.assign(bytes, bytes + count);
    return true;
}

// A place in the scene as a file says it: a matrix, or a translation, a rotation and a scale.
Placement placementOf(const tinygltf::Node& node)
{
    if (node.matrix.size() == 16) {
        const double* m = node.matrix.data();
        return {{m[0], m[1], m[2]}, {m[4], m[5], m[6]}, {m[8], m[9], m[10]}, {m[12], m[13], m[14]}};
    }
    Placement place;
    if (node.rotation.size() == 4) {
        const double x = node.rotation[0], y = node.rotation[1], z = node.rotation[2], w = node.rotation[3];
        place.axisX = {1 - 2 * (y * y + z * z), 2 * (x * y + z * w), 2 * (x * z - y * w)};
        place.axisY = {2 * (x * y - z * w), 1 - 2 * (x * x + z * z), 2 * (y * z + x * w)};
        place.axisZ = {2 * (x * z + y * w), 2 * (y * z - x * w), 1 - 2 * (x * x + y * y)};
    }
    if (node.scale.size() == 3) {
        place.axisX = place.axisX * node.scale[0];
        place.axisY = place.axisY * node.scale[1];
        place.axisZ = place.axisZ * node.scale[2];
    }
    if (node.translation.size() == 3) place.origin = {node.translation[0], node.translation[1], node.translation[2]};
    return place;
}

u8 channel(double value)
{
    // From linear light to what screens show.
    return u8(255 * std::pow(std::clamp(value, 0.0, 1.0), 1 / 2.2) + 0.5);
}

class Reader {
public:
    Reader(const GivenFiles& files, const GivenFile& file) : files_(files), file_(file) {}

    ModelReading read()
    {
        if (!parse()) return problem(file_, problem_);
        for (const tinygltf::Material& material : gltf_.materials) addMaterial(material);
        plain_ = int(recipes_.size());
        recipes_.push_back({.name = "plain", .diffuse = {190, 190, 186}});

        isAdded_.resize(gltf_.nodes.size());
        std::vector<int> roots;
        const std::size_t chosen = gltf_.defaultScene >= 0 ? std::size_t(gltf_.defaultScene) : 0;
        if (chosen < gltf_.scenes.size()) roots = gltf_.scenes[chosen].nodes;
        for (const int root : roots)
            if (!addNode(root, {}, 0)) return problem(file_, problem_);
        return finished(file_, triangles_, std::move(recipes_), std::move(remarks_));
    }

private:
    bool fails(const std::string& what)
    {
        problem_ = what;
        return false;
    }

    bool parse()
    {
        tinygltf::TinyGLTF parser;
        parser.SetFsCallbacks({FileAccess::exists, FileAccess::expanded, FileAccess::readWhole, FileAccess::writeWhole,
                               const_cast<GivenFiles*>(&files_)});
        parser.SetImageLoader(keepImage, nullptr);
        std::string error, warning;
        const auto* bytes = file_.bytes.data();
        const unsigned count = unsigned(file_.bytes.size());
        const bool isText = endsIn(file_.name, ".gltf");
        const bool read = isText ? parser.LoadASCIIFromString(&gltf_, &error, &warning,
                                                              reinterpret_cast<const char*>(bytes), count, "")
                                 : parser.LoadBinaryFromMemory(&gltf_, &error, &warning, bytes, count, "");
        if (!read) {
            std::replace(error.begin(), error.end(), '\n', ' ');
            return fails(" cannot be read as glTF 2.0: " + error);
        }
        for (const std::string& extension : gltf_.extensionsRequired)
            if (extension != "KHR_materials_unlit" && extension != "KHR_texture_transform")
                return fails(" needs the extension '" + extension + "', which the page does not know");
        return true;
    }

    void addMaterial(const tinygltf::Material& material)
    {
        MaterialRecipe recipe;
        recipe.name = material.name;
        const std::vector<double>& factor = material.pbrMetallicRoughness.baseColorFactor;
        if (factor.size() == 4) recipe.diffuse = {channel(factor[0]), channel(factor[1]), channel(factor[2])};
        if (material.alphaMode == "BLEND" && (factor.size() < 4 || factor[3] < 0.75)) recipe.transparency = 50;
        const int texture = material.pbrMetallicRoughness.baseColorTexture.index;
        if (texture >= 0 && std::size_t(texture) < gltf_.textures.size())
            addImage(recipe, gltf_.textures[std::size_t(texture)].source, material.alphaMode == "MASK");
        recipes_.push_back(std::move(recipe));
    }

    void addImage(MaterialRecipe& recipe, int number, bool isMasked)
    {
        if (number < 0 || std::size_t(number) >= gltf_.images.size()) return;
        const tinygltf::Image& image = gltf_.images[std::size_t(number)];
        const std::span<const unsigned char> bytes = bytesOf(image);
        const ImageReading reading = bytes.empty() ? ImageReading{nullptr, "is not among the files"}
                                                   : readImage(bytes.data(), bytes.size(), isMasked);
        recipe.image = reading.image;
        if (reading.image && isMasked) recipe.shadingMode = 1;
        const std::string name = !image.uri.empty()    ? image.uri
                                 : !image.name.empty() ? image.name
                                                       : std::to_string(number);
        if (!reading.image)
            remarks_.push_back("'" + file_.name + "': the image '" + name + "' of the material '" + recipe.name + "' "
                               + reading.problem + "; the material is drawn in its colours");
    }

    // The bytes of an image's file; none when it is not there, or goes beyond the end of its buffer.
    std::span<const unsigned char> bytesOf(const tinygltf::Image& image) const
    {
        return image.bufferView < 0 ? image.image : sample_host::bytesOf(gltf_, image.bufferView);
    }

    bool addNode(int number, const Placement& parent, int depth)
    {
        constexpr int deepest = 64;
        if (number < 0 || std::size_t(number) >= gltf_.nodes.size())
            return fails(": node " + std::to_string(number) + " is not there");
        if (isAdded_[std::size_t(number)])
            return fails(": node " + std::to_string(number)
                         + " has more than one parent, or lies in a circle of nodes");
        if (depth > deepest) return fails(": its tree of nodes is too deep; expected are at most 64 levels");
        isAdded_[std::size_t(number)] = true;
        const tinygltf::Node& node = gltf_.nodes[std::size_t(number)];
        const Placement place = parent * placementOf(node);
        if (node.mesh >= 0) {
            if (std::size_t(node.mesh) >= gltf_.meshes.size())
                return fails(": node " + std::to_string(number) + " names mesh " + std::to_string(node.mesh)
                             + ", which is not there");
            const tinygltf::Mesh& mesh = gltf_.meshes[std::size_t(node.mesh)];
            for (const tinygltf::Primitive& primitive : mesh.primitives)
                if (!addPrimitive(mesh, primitive, place)) return false;
        }
        for (const int child : node.children)
            if (!addNode(child, place, depth + 1)) return false;
        return true;
    }

    // The numbers of an accessor, each element as `width` of them.
    bool numbers(int accessor, std::size_t width, const std::string& what, std::vector<double>& result)
    {
        GltfNumbers read = numbersOf(gltf_, accessor, {&width, 1}, what);
        if (!read.problem.empty()) return fails(": " + read.problem);
        result = std::move(read.numbers);
        return true;
    }

    bool addPrimitive(const tinygltf::Mesh& mesh, const tinygltf::Primitive& primitive, const Placement& place)
    {
        const int mode = primitive.mode < 0 ? TINYGLTF_MODE_TRIANGLES : primitive.mode;
        if (mode < TINYGLTF_MODE_TRIANGLES) {
            remarks_.push_back("'" + file_.name + "': points and lines of the mesh '" + mesh.name + "' are left out");
            return true;
        }
        const auto attribute = [&](const char* name) {
            const auto entry = primitive.attributes.find(name);
            return entry == primitive.attributes.end() ? -1 : entry->second;
        };
        const std::string ofMesh = " of the mesh '" + mesh.name + "'";
        std::vector<double> positions, normals, textures, indices;
        if (!numbers(attribute("POSITION"), 3, "the positions" + ofMesh, positions)) return false;
        if (attribute("NORMAL") >= 0 && !numbers(attribute("NORMAL"), 3, "the normals" + ofMesh, normals)) return false;
        if (attribute("TEXCOORD_0") >= 0
            && !numbers(attribute("TEXCOORD_0"), 2, "the texture coordinates" + ofMesh, textures))
            return false;
        if (primitive.indices >= 0 && !numbers(primitive.indices, 1, "the indices" + ofMesh, indices)) return false;

        const std::size_t count = positions.size() / 3;
        const int firstPosition = int(triangles_.positions.size()), firstNormal = int(triangles_.normals.size());
        const int firstTexture = int(triangles_.textures.size());
        for (std::size_t i = 0; i < count; ++i)
            triangles_.positions.push_back(place.point({positions[3 * i], positions[3 * i + 1], positions[3 * i + 2]}));
        // Exact for places that do not stretch one way more than another, which is what files nearly always have.
        for (std::size_t i = 0; 3 * i + 2 < normals.size(); ++i)
            triangles_.normals.push_back(
                unit(place.direction({normals[3 * i], normals[3 * i + 1], normals[3 * i + 2]})));
        for (std::size_t i = 0; 2 * i + 1 < textures.size(); ++i)
            triangles_.textures.push_back({textures[2 * i], textures[2 * i + 1]});

        const bool hasNormals = normals.size() / 3 == count, hasTextures = textures.size() / 2 == count;
        const std::size_t corners = primitive.indices >= 0 ? indices.size() : count;
        const auto corner = [&](std::size_t i) {
            const std::size_t index = primitive.indices >= 0 ? std::size_t(indices[i]) : i;
            const int at = index < count ? int(index) : -1;
            return Triangles::Corner{at < 0 ? -1 : firstPosition + at, hasNormals ? firstNormal + at : -1,
                                     hasTextures ? firstTexture + at : -1};
        };
        const bool isNamed = primitive.material >= 0 && primitive.material < plain_;
        const auto add = [&](std::size_t a, std::size_t b, std::size_t c) {
            triangles_.triangles.push_back({{corner(a), corner(b), corner(c)}, isNamed ? primitive.material : plain_});
            for (const Triangles::Corner& each : triangles_.triangles.back().corners)
                if (each.position < 0) return fails(": the indices" + ofMesh + " name a position that is not there");
            return true;
        };
        if (mode == TINYGLTF_MODE_TRIANGLES) {
            for (std::size_t i = 0; i + 2 < corners; i += 3)
                if (!add(i, i + 1, i + 2)) return false;
            return true;
        }
        const bool isFan = mode == TINYGLTF_MODE_TRIANGLE_FAN;
        for (std::size_t i = 0; i + 2 < corners; ++i) {
            const bool turned = !isFan && i % 2 == 1;
            if (!add(isFan ? 0 : turned ? i + 1 : i, isFan ? i + 1 : turned ? i : i + 1, i + 2)) return false;
        }
        return true;
    }

    const GivenFiles& files_;
    const GivenFile& file_;
    tinygltf::Model gltf_;
    Triangles triangles_;
    std::vector<MaterialRecipe> recipes_;
    std::vector<std::string> remarks_;
    std::vector<bool> isAdded_; // of each node
    int plain_ = 0;
    std::string problem_; // goes on after the file's name
};

} // namespace

ModelReading readGltf(const GivenFiles& files, const GivenFile& file)
{
    return Reader(files, file).read();
}

} // namespace page
