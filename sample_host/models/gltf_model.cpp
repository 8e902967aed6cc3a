#include "sample_host/models/gltf_model.h"

#include "sample_host/host/failure.h"
#include "sample_host/models/gltf_materials.h"
#include "sample_host/models/model_parts.h"
#include "sample_host/models/outline.h"
#include "sample_host/reading/colour_channels.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace sample_host {

namespace {

Placement placeOf(const tinygltf::Node& node)
{
    if (node.matrix.size() == 16) {
        const std::vector<double>& m = node.matrix; // by columns
        return {{m[0], m[1], m[2]}, {m[4], m[5], m[6]}, {m[8], m[9], m[10]}, {m[12], m[13], m[14]}};
    }
    Placement place;
    if (node.rotation.size() == 4) {
        const Vector axis{node.rotation[0], node.rotation[1], node.rotation[2]};
        const double w = node.rotation[3];
        const auto turn = [&](const Vector& v) {
            const Vector across = cross(axis, v) * 2;
            return v + across * w + cross(axis, across);
        };
        place = {turn({1, 0, 0}), turn({0, 1, 0}), turn({0, 0, 1}), {}};
    }
    if (node.scale.size() == 3) {
        place.axisX = place.axisX * node.scale[0];
        place.axisY = place.axisY * node.scale[1];
        place.axisZ = place.axisZ * node.scale[2];
    }
    if (node.translation.size() == 3) place.origin = {node.translation[0], node.translation[1], node.translation[2]};
    return place;
}

// Three corners of a triangle by their numbers.
using Triangle = std::array<std::size_t, 3>;

// The triangles of a list of corners, which are joined in one of three ways.
std::vector<Triangle> trianglesOf(const std::vector<std::size_t>& corners, int mode)
{
    std::vector<Triangle> triangles;
    if (mode == TINYGLTF_MODE_TRIANGLES)
        for (std::size_t i = 2; i < corners.size(); i += 3)
            triangles.push_back({corners[i - 2], corners[i - 1], corners[i]});
    else
        for (std::size_t i = 2; i < corners.size(); ++i) {
            if (mode == TINYGLTF_MODE_TRIANGLE_FAN)
                triangles.push_back({corners[0], corners[i - 1], corners[i]});
            else // in a strip every second one runs the other way
                triangles.push_back({corners[i - 2], corners[i - 1 + i % 2], corners[i - i % 2]});
        }
    return triangles;
}

class Builder {
public:
    Builder(const tinygltf::Model& file, const std::string& name, const GltfMaterials& materials,
            const Progress& progress)
        : file_(file), name_(name), materials_(materials), progress_(progress)
    {
    }

    // The file's scene or, in a file without scenes, all of its nodes.
    void addScene()
    {
        isAdded_.assign(file_.nodes.size(), false);
        std::vector<int> roots;
        if (file_.scenes.empty()) {
            std::vector<bool> isChild(file_.nodes.size(), false);
            for (const tinygltf::Node& node : file_.nodes)
                for (const int child : node.children)
                    if (child >= 0 && std::size_t(child) < isChild.size()) isChild[std::size_t(child)] = true;
            for (std::size_t i = 0; i < isChild.size(); ++i)
                if (!isChild[i]) roots.push_back(int(i));
        } else {
            const std::size_t scene = file_.defaultScene < 0 ? 0 : std::size_t(file_.defaultScene);
            if (scene >= file_.scenes.size()) failModel("it has no scene " + std::to_string(scene));
            roots = file_.scenes[scene].nodes;
        }
        for (const int node : roots) addNode(node, {});
    }

    Model finished()
    {
        if (triangles_.empty()) failModel("it has no triangles");
        if (!fitIntoSphere(places_)) failModel("all of its vertices are in one place, or none is finite");
        Model model;
        model.materials = materials_.recipes;
        model.remarks = materials_.remarks;
        for (const tinygltf::Mesh& mesh : file_.meshes) model.mesh.groups.push_back(mesh.name);
        for (std::size_t i = 0; i < places_.size(); ++i)
            model.mesh.addVertex(isFinite(places_[i]) ? places_[i] : Vector{}, normals_[i]);
        std::size_t flat = 0, infinite = 0;
        for (const Face& face : triangles_) {
            const std::array<Vector, 3> corners{places_[face.corners[0]], places_[face.corners[1]],
                                                places_[face.corners[2]]};
            if (!std::all_of(corners.begin(), corners.end(), isFinite))
                ++infinite;
            else if (splitOutline(corners).triangles.empty())
                ++flat;
            else
                addTriangle(model.mesh, face);
        }
        remarkOn(infinite, "with a corner that is not finite", model.remarks);
        remarkOn(flat, "without an area", model.remarks);
        for (const auto& [what, count] : leftOut_)
            model.remarks.push_back("'" + name_ + "': " + what
                                    + (count > 1 ? " (" + std::to_string(count) + " times)" : ""));
        if (model.mesh.polygons.empty()) failModel("it has no triangles that can be drawn");
        for (Vector& normal : model.mesh.normals) normal = unit(normal);
        if (hasColours_) {
            model.mesh.colours = colours_;
            useVertexColours(model);
        }
        return model;
    }

private:
    struct Face {
        Triangle corners;
        int material;
        bool hasNormals;
        int group;
    };

    [[noreturn]] void failModel(const std::string& why) const
    {
        fail("the model '" + name_ + "' cannot be used: " + why);
    }

    void addNode(int number, const Placement& outer)
    {
        if (number < 0 || std::size_t(number) >= file_.nodes.size())
            failModel("it names the node " + std::to_string(number) + ", of which there are "
                      + std::to_string(file_.nodes.size()));
        if (isAdded_[std::size_t(number)])
            failModel("the node " + std::to_string(number) + " has more than one parent");
        isAdded_[std::size_t(number)] = true;
        const tinygltf::Node& node = file_.nodes[std::size_t(number)];
        const Placement place = outer * placeOf(node);
        if (node.mesh >= 0) addMesh(node.mesh, place);
        for (const int child : node.children) addNode(child, place);
    }

    void addMesh(int number, const Placement& place)
    {
        if (std::size_t(number) >= file_.meshes.size())
            failModel("it names the mesh " + std::to_string(number) + ", of which there are "
                      + std::to_string(file_.meshes.size()));
        const tinygltf::Mesh& mesh = file_.meshes[std::size_t(number)];
        for (std::size_t i = 0; i < mesh.primitives.size(); ++i) {
            addPrimitive(mesh.primitives[i], place, number,
                         "the model '" + name_ + "' cannot be used: mesh " + std::to_string(number) + ", primitive "
                             + std::to_string(i));
            report(progress_, "building", double(i + 1) / double(mesh.primitives.size()));
        }
    }

    void addPrimitive(const tinygltf::Primitive& primitive, const Placement& place, int mesh, const std::string& who)
    {
        const int mode = primitive.mode < 0 ? TINYGLTF_MODE_TRIANGLES : primitive.mode;
        if (mode < TINYGLTF_MODE_TRIANGLES) {
            ++leftOut_["points and lines are left out"];
            return;
        }
        const std::size_t first = places_.size();
        const std::size_t count = addVertices(primitive, place, who);

        std::vector<std::size_t> corners;
        if (primitive.indices >= 0) {
            for (const double index : numbers(primitive.indices, std::array<std::size_t, 1>{1}, who).numbers) {
                if (!(index >= 0 && index < double(count))) fail(who + " names a vertex that does not exist");
                corners.push_back(first + std::size_t(index));
            }
        } else
            for (std::size_t i = 0; i < count; ++i) corners.push_back(first + i);

        const int plain = int(materials_.recipes.size()) - 1;
        const int material = primitive.material >= 0 && primitive.material < plain ? primitive.material : plain;
        // A place that mirrors turns the triangles round.
        const bool mirrors = dot(cross(place.axisX, place.axisY), place.axisZ) < 0;
        const bool hasNormals = primitive.attributes.count("NORMAL") > 0;
        for (Triangle triangle : trianglesOf(corners, mode)) {
            if (mirrors) std::swap(triangle[1], triangle[2]);
            triangles_.push_back({triangle, material, hasNormals, mesh});
        }
    }

    GltfNumbers numbers(int accessor, std::span<const std::size_t> widths, const std::string& who) const
    {
        GltfNumbers result = numbersOf(file_, accessor, widths, who);
        if (!result.problem.empty()) fail(result.problem);
        return result;
    }

    // The numbers of an attribute, one element for each of the vertices; none when the primitive has no such attribute.
    GltfNumbers attribute(const tinygltf::Primitive& primitive, const char* name, std::span<const std::size_t> widths,
                          std::size_t count, const std::string& who) const
    {
        const auto found = primitive.attributes.find(name);
        if (found == primitive.attributes.end()) return {};
        GltfNumbers values = numbers(found->second, widths, who + ", " + name);
        if (values.count() < count) fail(who + ": " + name + " has fewer elements than POSITION");
        return values;
    }

    std::size_t addVertices(const tinygltf::Primitive& primitive, const Placement& place, const std::string& who)
    {
        constexpr std::array<std::size_t, 1> two{2}, three{3};
        constexpr std::array<std::size_t, 2> threeOrFour{3, 4};
        const GltfNumbers positions = attribute(primitive, "POSITION", three, 0, who);
        const std::size_t count = positions.count();
        const GltfNumbers normals = attribute(primitive, "NORMAL", three, count, who);
        const GltfNumbers textures = attribute(primitive, "TEXCOORD_0", two, count, who);
        const GltfNumbers colours = attribute(primitive, "COLOR_0", threeOrFour, count, who);
        hasColours_ |= colours.count() > 0;
        // Directions across a surface that is stretched are turned the other way.
        const Placement across{
            cross(place.axisY, place.axisZ), cross(place.axisZ, place.axisX), cross(place.axisX, place.axisY), {}};
        const double side = dot(cross(place.axisX, place.axisY), place.axisZ) < 0 ? -1 : 1;
        const Colour base = primitive.material >= 0 && std::size_t(primitive.material) < materials_.recipes.size()
                                ? materials_.recipes[std::size_t(primitive.material)].diffuse
                                : Colour{255, 255, 255};
        const bool hasImage = primitive.material >= 0 && std::size_t(primitive.material) < materials_.recipes.size()
                              && materials_.recipes[std::size_t(primitive.material)].image;
        for (std::size_t i = 0; i < count; ++i) {
            const double* p = positions.of(i);
            places_.push_back(place.point({p[0], p[1], p[2]}));
            const double* n = normals.count() ? normals.of(i) : nullptr;
            const Vector normal = n ? across.direction({n[0], n[1], n[2]}) * side : Vector{};
            normals_.push_back(isFinite(normal) ? normal : Vector{});
            const double* t = textures.count() ? textures.of(i) : nullptr;
            const bool hasTexture = t && std::isfinite(t[0]) && std::isfinite(t[1]);
            textures_.push_back({hasTexture ? t[0] : 0, hasTexture ? t[1] : 0});
            // The image has the material's base colour in it already.
            Colour colour = hasImage ? Colour{255, 255, 255} : base;
            if (colours.count()) {
                const double* c = colours.of(i);
                colour = {channel(c[0] * colour.red / 255), channel(c[1] * colour.green / 255),
                          channel(c[2] * colour.blue / 255)};
            }
            colours_.push_back(colour);
        }
        return count;
    }

    void addTriangle(Mesh& mesh, const Face& face) const
    {
        std::array<Mesh::Corner, 3> corners;
        for (std::size_t i = 0; i < 3; ++i) {
            const auto& [u, v] = textures_[face.corners[i]];
            corners[i] = {int(face.corners[i]), u, v};
        }
        // Vertices without a normal of their own take that of the triangles around them, the larger ones more.
        const Vector& a = places_[face.corners[0]];
        const Vector area = cross(places_[face.corners[1]] - a, places_[face.corners[2]] - a);
        if (!face.hasNormals)
            for (const std::size_t corner : face.corners) mesh.normals[corner] = mesh.normals[corner] + area;
        mesh.addPolygon(face.material, corners);
        mesh.polygons.back().group = face.group;
        if (!materials_.bothSides[std::size_t(face.material)]) return;
        std::swap(corners[1], corners[2]);
        mesh.addPolygon(face.material, corners);
        mesh.polygons.back().group = face.group;
    }

    void remarkOn(std::size_t count, const std::string& what, std::vector<std::string>& remarks) const
    {
        if (count > 0)
            remarks.push_back("'" + name_ + "': " + std::to_string(count) + (count == 1 ? " triangle " : " triangles ")
                              + what + (count == 1 ? " is" : " are") + " left out");
    }

    const tinygltf::Model& file_;
    const std::string& name_;
    const GltfMaterials& materials_;
    const Progress& progress_;
    std::vector<bool> isAdded_; // of the nodes
    std::vector<Vector> places_, normals_;
    std::vector<std::pair<double, double>> textures_;
    std::vector<Colour> colours_;
    bool hasColours_ = false;
    std::vector<Face> triangles_;
    std::map<std::string, int> leftOut_;
};

bool isBinary(const std::string& name)
{
    std::ifstream stream;
    std::error_code ignored;
    if (std::filesystem::is_regular_file(name, ignored)) stream.open(name, std::ios::binary);
    if (!stream.is_open()) fail("the model '" + name + "' cannot be read: it is not there or not a file");
    char magic[4]{};
    stream.read(magic, 4);
    return std::string_view(magic, 4) == "glTF";
}

// The first line of what the parser complains of, without its mark.
std::string firstLine(std::string text)
{
    text = text.substr(0, text.find_first_of("\r\n"));
    return text.empty() ? "it is no glTF 2.0 file" : text;
}

} // namespace

Model readGltfModel(const std::string& name, const Progress& progress)
{
    const bool binary = isBinary(name);
    report(progress, "reading", 0);
    tinygltf::TinyGLTF parser;
    parser.SetImageLoader(keepImageBytes, nullptr);
    tinygltf::Model file;
    std::string error, warning;
    const bool isRead = binary ? parser.LoadBinaryFromFile(&file, &error, &warning, name)
                               : parser.LoadASCIIFromFile(&file, &error, &warning, name);
    if (!isRead) fail("the model '" + name + "' cannot be read: " + firstLine(error));
    if (file.asset.version.substr(0, 2) != "2.")
        fail("the model '" + name + "' cannot be read: it is of glTF version '" + file.asset.version
             + "'; expected is 2.0");

    const std::string folder = std::filesystem::path(name).parent_path().string();
    const GltfMaterials materials = materialsOf(file, name, folder);
    Builder builder(file, name, materials, progress);
    builder.addScene();
    Model model = builder.finished();
    model.name = std::filesystem::path(name).stem().string();
    return model;
}

} // namespace sample_host
