#include "sample_host/models/obj_model.h"

#include "sample_host/host/failure.h"
#include "sample_host/models/model_parts.h"
#include "sample_host/models/obj_file.h"
#include "sample_host/models/outline.h"
#include "sample_host/pictures/image_files.h"
#include "sample_host/reading/obj_materials.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>
#include <stdexcept>

namespace sample_host {

namespace {

// The beginning of a remark on one of a material's values.
std::string lineOf(const ObjFile::Material& material, std::span<const std::string> values)
{
    const int line = lineOfValue(material.file, material.record.name, values);
    return "'" + material.file + "', line " + std::to_string(line) + ": ";
}

// Images are looked for beside the model, whatever kind of slash their names have, and each is read once. One that
// cannot be used is remarked on where it is first asked for.
class Images {
public:
    Images(const std::filesystem::path& folder, std::vector<std::string>& remarks) : folder_(folder), remarks_(remarks)
    {
    }

    std::shared_ptr<const Image> get(const ObjFile::Material& material)
    {
        std::string name = material.record.diffuse_texname;
        std::replace(name.begin(), name.end(), '\\', '/');
        const auto [entry, isNew] = images_.try_emplace(name);
        if (isNew) entry->second = read((folder_ / name).generic_string(), material);
        return entry->second;
    }

private:
    std::shared_ptr<const Image> read(const std::string& file, const ObjFile::Material& material)
    {
        try {
            return std::make_shared<const Image>(resizedToPowersOfTwo(readImage(file)));
        } catch (const std::runtime_error& reason) {
            const std::string value = "map_Kd";
            remarks_.push_back(lineOf(material, {&value, 1}) + "the image '" + file + "' of the material '"
                               + material.record.name + "' " + reason.what()
                               + "; the material is drawn in its colours");
            return nullptr;
        }
    }

    std::filesystem::path folder_;
    std::vector<std::string>& remarks_;
    std::map<std::string, std::shared_ptr<const Image>> images_;
};

// Says of an opacity that is neither of the two that the renderer knows what becomes of it.
void remarkOnOpacity(const ObjFile::Material& material, i32 transparency, std::vector<std::string>& remarks)
{
    const double opacity = double(material.record.dissolve);
    if (!(std::abs(opacity - (transparency == 0 ? 1 : 0.5)) > 0.005)) return;
    std::ostringstream sentence;
    const std::array<std::string, 2> values{"d", "Tr"};
    sentence << lineOf(material, values) << "the opacity of the material '" << material.record.name << "' is "
             << opacity << ", and it is drawn " << (transparency == 0 ? "opaque" : "half transparent");
    remarks.push_back(sentence.str());
}

MaterialRecipe recipe(const ObjFile::Material& material, Images& images, std::vector<std::string>& remarks)
{
    MaterialRecipe result = recipeOf(material.record);
    remarkOnOpacity(material, result.transparency, remarks);
    if (!material.record.diffuse_texname.empty()) result.image = images.get(material);
    return result;
}

// What is wrong with a face, and what is done about it.
std::string remarkOn(const SplitOutline& outline)
{
    switch (outline.fault) {
    case OutlineFault::tooFewCorners: return "a face has fewer than three corners and is left out";
    case OutlineFault::noArea: return "a face has no area and is left out";
    case OutlineFault::repeatsCorners:
        return "a face repeats corners and is drawn without the repetitions, in "
               + std::to_string(outline.triangles.size()) + " triangles";
    case OutlineFault::crossesItself: return "the outline of a face crosses itself, and only a part of it is drawn";
    default: return "";
    }
}

// Builds the mesh: corners that share position and normal share a vertex.
class MeshBuilder {
public:
    MeshBuilder(const std::string& name, const ObjFile& file) : name_(name), file_(file)
    {
        for (std::size_t i = 0; i + 2 < file.positions.size(); i += 3)
            places_.push_back({file.positions[i], file.positions[i + 1], file.positions[i + 2]});
        if (places_.empty()) failModel("it has no vertices");
        if (std::none_of(places_.begin(), places_.end(), isFinite)) failModel("none of its vertices is finite");
        if (!fitIntoSphere(places_)) failModel("all of its vertices are in one place");
    }

    // Adds the triangles of a face; `number` is the face's place in the file.
    void addFace(std::size_t number, int material)
    {
        std::vector<ObjFile::Corner> corners;
        std::vector<Vector> places;
        for (const ObjFile::Corner& corner : file_.faces[number].corners) {
            checkCorner(corner, number);
            const Vector& place = places_[std::size_t(corner.vertex)];
            if (!isFinite(place)) continue;
            corners.push_back(usable(corner));
            places.push_back(place);
        }
        if (corners.size() < file_.faces[number].corners.size()) {
            const bool isLost = corners.size() < 3;
            faulty_[isLost ? "a face has corners that are not finite and is left out"
                           : "corners of a face are not finite and are left out"]
                .push_back(number);
            if (isLost) return;
        }
        const SplitOutline outline = splitOutline(places);
        for (const auto& [a, b, c] : outline.triangles)
            addTriangle({corners[a], corners[b], corners[c]}, material, file_.faces[number].group);
        if (outline.fault != OutlineFault::none) faulty_[remarkOn(outline)].push_back(number);
        if (!outline.triangles.empty() && isTurnedAway(corners, places))
            faulty_["a face is turned away from its normals and is seen from behind alone"].push_back(number);
    }

    Mesh finished()
    {
        if (mesh_.polygons.empty())
            failModel("it has no faces that can be drawn" + (faulty_.empty() ? "" : "; " + remarks().front()));
        for (Vector& normal : mesh_.normals) normal = unit(normal);
        mesh_.groups = file_.groups;
        return std::move(mesh_);
    }

    // A sentence for each kind of fault, with the line of the first face that has it.
    std::vector<std::string> remarks() const
    {
        std::vector<std::string> sentences;
        for (const auto& [remark, faces] : faulty_) {
            std::string sentence = lineOf(faces[0]) + remark;
            if (faces.size() > 1) sentence += " (and so " + std::to_string(faces.size() - 1) + " more)";
            sentences.push_back(sentence);
        }
        return sentences;
    }

private:
    [[noreturn]] void failModel(const std::string& why) const
    {
        fail("the model '" + name_ + "' cannot be used: " + why);
    }

    std::string lineOf(std::size_t face) const
    {
        return "'" + name_ + "', line " + std::to_string(lineOfFace(name_, face)) + ": ";
    }

    void checkCorner(const ObjFile::Corner& corner, std::size_t face) const
    {
        const auto check = [&](int index, std::size_t count, const char* what) {
            if (index < 0 || std::size_t(index) >= count)
                fail(lineOf(face) + "a face names " + what + " that does not exist");
        };
        check(corner.vertex, file_.positions.size() / 3, "a vertex");
        if (corner.texture != ObjFile::none) check(corner.texture, file_.textures.size() / 2, "a texture coordinate");
        if (corner.normal != ObjFile::none) check(corner.normal, file_.normals.size() / 3, "a normal");
    }

    Vector normalOf(const ObjFile::Corner& corner) const
    {
        const float* n = &file_.normals[3 * std::size_t(corner.normal)];
        return {n[0], n[1], n[2]};
    }

    // Without a normal or a texture coordinate that is not finite.
    ObjFile::Corner usable(ObjFile::Corner corner) const
    {
        if (corner.normal != ObjFile::none && !isFinite(normalOf(corner))) corner.normal = ObjFile::none;
        const float* t = corner.texture == ObjFile::none ? nullptr : &file_.textures[2 * std::size_t(corner.texture)];
        if (t && !(std::isfinite(t[0]) && std::isfinite(t[1]))) corner.texture = ObjFile::none;
        return corner;
    }

    // Whether every corner has a normal, and all of them point to where the face is seen from behind.
    bool isTurnedAway(std::span<const ObjFile::Corner> corners, std::span<const Vector> places) const
    {
        Vector area{};
        for (std::size_t i = 1; i + 1 < places.size(); ++i)
            area = area + cross(places[i] - places[0], places[i + 1] - places[0]);
        return std::all_of(corners.begin(), corners.end(), [&](const ObjFile::Corner& corner) {
            return corner.normal != ObjFile::none && dot(normalOf(corner), area) < 0;
        });
    }

    void addTriangle(const std::array<ObjFile::Corner, 3>& corners, int material, int group)
    {
        std::array<Mesh::Corner, 3> triangle;
        for (std::size_t i = 0; i < 3; ++i) triangle[i] = texturedCorner(corners[i], vertex(corners[i]));
        // Vertices without a normal of their own take that of the triangles around them, the larger ones more.
        const Vector& a = mesh_.positions[std::size_t(triangle[0].vertex)];
        const Vector area = cross(mesh_.positions[std::size_t(triangle[1].vertex)] - a,
                                  mesh_.positions[std::size_t(triangle[2].vertex)] - a);
        for (std::size_t i = 0; i < 3; ++i) {
            Vector& normal = mesh_.normals[std::size_t(triangle[i].vertex)];
            if (corners[i].normal == ObjFile::none) normal = normal + area;
        }
        mesh_.addPolygon(material, triangle);
        mesh_.polygons.back().group = group;
    }

    int vertex(const ObjFile::Corner& corner)
    {
        const auto [entry, isNew] = vertices_.try_emplace({corner.vertex, corner.normal}, 0);
        if (isNew) {
            const Vector normal = corner.normal == ObjFile::none ? Vector{} : normalOf(corner);
            entry->second = mesh_.addVertex(places_[std::size_t(corner.vertex)], normal);
            if (!file_.colours.empty())
                mesh_.colours.push_back(colourOf(&file_.colours[3 * std::size_t(corner.vertex)]));
        }
        return entry->second;
    }

    // A file counts v from the lower edge of the image. Corners without coordinates take them from where they are.
    Mesh::Corner texturedCorner(const ObjFile::Corner& corner, int vertexNumber) const
    {
        if (corner.texture == ObjFile::none) {
            const Vector& p = mesh_.positions[std::size_t(vertexNumber)];
            return {vertexNumber, 0.5 + 0.5 * p.x, 0.5 - 0.5 * p.y};
        }
        const float* t = &file_.textures[2 * std::size_t(corner.texture)];
        return {vertexNumber, t[0], 1.0 - t[1]};
    }

    const std::string& name_;
    const ObjFile& file_;
    std::vector<Vector> places_; // of the file's vertices, in the sphere of radius 1
    Mesh mesh_;
    std::map<std::pair<int, int>, int> vertices_;            // by the numbers of their position and normal in the file
    std::map<std::string, std::vector<std::size_t>> faulty_; // the faces that a remark is about
};

std::vector<std::string> remarksOnMissing(const std::string& name, const ObjFile& file)
{
    std::vector<std::string> remarks;
    const auto remark = [&](const ObjFile::Missing& missing, const char* what, const char* done) {
        remarks.push_back("'" + name + "', line " + std::to_string(missing.line) + ": " + what + " '" + missing.name
                          + "' " + done);
    };
    for (const ObjFile::Missing& missing : file.missingFiles)
        remark(missing, "the material file", "is not there; faces of its materials are drawn in chequers");
    // Of a file that is missing all materials are.
    if (!file.missingFiles.empty()) return remarks;
    for (const ObjFile::Missing& missing : file.missingMaterials)
        remark(missing, "the material", "is in no material file; its faces are drawn in chequers");
    return remarks;
}

} // namespace

Model readObjModel(const std::string& name, const Progress& progress)
{
    const ObjFile file = readObjFile(name, progress);
    Model model;
    model.name = std::filesystem::path(name).stem().string();
    model.remarks = remarksOnMissing(name, file);
    Images images(std::filesystem::path(name).parent_path(), model.remarks);
    for (const ObjFile::Material& material : file.materials)
        model.materials.push_back(recipe(material, images, model.remarks));

    // Faces that name no material, or one that does not exist, take one more material behind the file's own.
    const int plain = int(model.materials.size());
    bool plainIsUsed = false;
    MeshBuilder builder(name, file);
    for (std::size_t i = 0; i < file.faces.size(); ++i) {
        const int named = file.faces[i].material;
        const int material = named >= 0 && named < plain ? named : plain;
        plainIsUsed |= material == plain;
        builder.addFace(i, material);
        if (i % 1024 == 0) report(progress, "building", double(i) / double(file.faces.size()));
    }
    if (plainIsUsed) {
        MaterialRecipe chequered;
        chequered.name = "chequered";
        if (file.colours.empty()) chequered.image = chequerboard();
        model.materials.push_back(chequered);
    }
    model.mesh = builder.finished();
    for (std::string& remark : builder.remarks()) model.remarks.push_back(std::move(remark));
    if (!model.mesh.colours.empty()) useVertexColours(model);
    return model;
}

} // namespace sample_host
