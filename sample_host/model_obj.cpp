#include "sample_host/model_obj.h"

#include <tiny_obj_loader.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <stdexcept>

namespace sample_host {

namespace {

using tinyobj::index_t;

[[noreturn]] void fail(const std::string& file, const std::string& why)
{
    throw std::runtime_error("the model '" + file + "' cannot be used: " + why);
}

// The first line of what the parser has to say.
std::string firstLine(const std::string& text)
{
    return text.substr(0, text.find_first_of("\r\n"));
}

u8 channel(float value)
{
    return u8(255 * std::clamp(value, 0.0f, 1.0f) + 0.5f);
}

Colour colour(const float (&values)[3])
{
    return {channel(values[0]), channel(values[1]), channel(values[2])};
}

// A board of two greys: on a model that has neither material nor image it lets the shape be seen.
std::shared_ptr<const Image> chequerboard()
{
    auto image = std::make_shared<Image>(64, 64);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            const u8 grey = ((x ^ y) & 8) ? 200 : 120;
            image->set(x, y, {grey, grey, grey});
        }
    }
    return image;
}

// Images are looked for beside the model, whatever kind of slash their names have, and each is read once.
class Images {
public:
    explicit Images(const std::filesystem::path& folder) : folder_(folder) {}

    std::shared_ptr<const Image> get(std::string name)
    {
        std::ranges::replace(name, '\\', '/');
        std::shared_ptr<const Image>& image = images_[name];
        if (!image) image = std::make_shared<const Image>(resizedToPowersOfTwo(readImage((folder_ / name).string())));
        return image;
    }

private:
    std::filesystem::path folder_;
    std::map<std::string, std::shared_ptr<const Image>> images_;
};

MaterialRecipe recipe(const tinyobj::material_t& material, Images& images)
{
    MaterialRecipe result;
    result.name = material.name;
    result.ambient = colour(material.ambient);
    result.diffuse = colour(material.diffuse);
    result.specular = colour(material.specular);
    result.specularLevel = 100;
    result.shininess = i32(std::clamp(material.shininess, 0.0f, 100.0f));
    if (material.dissolve < 0.75f) result.transparency = 50;
    if (!material.diffuse_texname.empty()) result.image = images.get(material.diffuse_texname);
    return result;
}

// Builds the mesh: corners that share position and normal share a vertex.
class MeshBuilder {
public:
    MeshBuilder(const std::string& file, const tinyobj::attrib_t& attributes) : file_(file), attributes_(attributes)
    {
        checkFinite(attributes.vertices);
        checkFinite(attributes.normals);
        checkFinite(attributes.texcoords);
        findSphere();
    }

    void addTriangle(const index_t* corners, int material)
    {
        std::array<Mesh::Corner, 3> triangle;
        for (std::size_t i = 0; i < 3; ++i) {
            const index_t& index = corners[i];
            checkIndex(index.vertex_index, attributes_.vertices.size() / 3);
            if (index.normal_index != -1) checkIndex(index.normal_index, attributes_.normals.size() / 3);
            if (index.texcoord_index != -1) checkIndex(index.texcoord_index, attributes_.texcoords.size() / 2);
            triangle[i] = texturedCorner(index, vertex(index));
        }
        // Vertices without a normal of their own take that of the triangles around them, the larger ones more.
        const Vector& a = mesh_.positions[std::size_t(triangle[0].vertex)];
        const Vector area = cross(mesh_.positions[std::size_t(triangle[1].vertex)] - a,
                                  mesh_.positions[std::size_t(triangle[2].vertex)] - a);
        for (std::size_t i = 0; i < 3; ++i) {
            Vector& normal = mesh_.normals[std::size_t(triangle[i].vertex)];
            if (corners[i].normal_index == -1) normal = normal + area;
        }
        mesh_.addPolygon(material, triangle);
    }

    Mesh finished()
    {
        if (mesh_.polygons.empty()) fail(file_, "it has no faces");
        for (Vector& normal : mesh_.normals) normal = unit(normal);
        return std::move(mesh_);
    }

private:
    void checkFinite(const std::vector<tinyobj::real_t>& numbers) const
    {
        if (!std::ranges::all_of(numbers, [](tinyobj::real_t number) { return std::isfinite(number); }))
            fail(file_, "it has a number that is not finite");
    }

    void checkIndex(int index, std::size_t count) const
    {
        if (index < 0 || std::size_t(index) >= count) fail(file_, "a face names a vertex that does not exist");
    }

    // In double precision: even a vertex at the end of single precision leaves a finite radius.
    void findSphere()
    {
        const std::size_t count = attributes_.vertices.size() / 3;
        if (count == 0) fail(file_, "it has no vertices");
        Vector low = position(0), high = low;
        for (std::size_t i = 1; i < count; ++i) {
            const Vector p = position(i);
            low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
        }
        centre_ = (low + high) * 0.5;
        for (std::size_t i = 0; i < count; ++i) radius_ = std::max(radius_, length(position(i) - centre_));
        if (radius_ == 0) fail(file_, "all of its vertices are in one place");
    }

    Vector position(std::size_t i) const
    {
        const auto& v = attributes_.vertices;
        return {v[3 * i], v[3 * i + 1], v[3 * i + 2]};
    }

    int vertex(const index_t& index)
    {
        const auto [entry, isNew] = vertices_.try_emplace({index.vertex_index, index.normal_index}, 0);
        if (isNew) {
            Vector normal{};
            if (index.normal_index != -1) {
                const auto* n = &attributes_.normals[3 * std::size_t(index.normal_index)];
                normal = {n[0], n[1], n[2]};
            }
            const Vector place = (position(std::size_t(index.vertex_index)) - centre_) * (1 / radius_);
            entry->second = mesh_.addVertex(place, normal);
        }
        return entry->second;
    }

    // A file counts v from the lower edge of the image. Corners without coordinates take them from where they are.
    Mesh::Corner texturedCorner(const index_t& index, int vertexNumber) const
    {
        if (index.texcoord_index == -1) {
            const Vector& p = mesh_.positions[std::size_t(vertexNumber)];
            return {vertexNumber, 0.5 + 0.5 * p.x, 0.5 - 0.5 * p.y};
        }
        const auto* t = &attributes_.texcoords[2 * std::size_t(index.texcoord_index)];
        return {vertexNumber, t[0], 1.0 - t[1]};
    }

    const std::string& file_;
    const tinyobj::attrib_t& attributes_;
    Vector centre_{};
    double radius_ = 0;
    Mesh mesh_;
    std::map<std::pair<int, int>, int> vertices_;
};

} // namespace

Model readObjModel(const std::string& file)
{
    // The parser takes a folder for an empty file.
    if (!std::filesystem::is_regular_file(file)) fail(file, "it is not there or not a file");
    tinyobj::ObjReader reader;
    tinyobj::ObjReaderConfig config;
    config.triangulate = true; // the renderer takes convex outlines of at most 10 corners
    config.vertex_color = false;
    if (!reader.ParseFromFile(file, config)) fail(file, firstLine(reader.Error()));

    Model model;
    Images images(std::filesystem::path(file).parent_path());
    for (const tinyobj::material_t& material : reader.GetMaterials())
        model.materials.push_back(recipe(material, images));

    // Faces that name no material, or one that does not exist, take one more material behind the file's own.
    const int plain = int(model.materials.size());
    bool plainIsUsed = false;
    MeshBuilder builder(file, reader.GetAttrib());
    for (const tinyobj::shape_t& shape : reader.GetShapes()) {
        const tinyobj::mesh_t& mesh = shape.mesh;
        for (std::size_t face = 0; 3 * face + 2 < mesh.indices.size(); ++face) {
            const int named = face < mesh.material_ids.size() ? mesh.material_ids[face] : -1;
            const int material = named >= 0 && named < plain ? named : plain;
            plainIsUsed |= material == plain;
            builder.addTriangle(&mesh.indices[3 * face], material);
        }
    }
    if (plainIsUsed) {
        MaterialRecipe chequered;
        chequered.name = "chequered";
        chequered.image = chequerboard();
        model.materials.push_back(chequered);
    }
    model.mesh = builder.finished();
    return model;
}

} // namespace sample_host
