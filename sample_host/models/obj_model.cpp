#include "sample_host/models/obj_model.h"

#include "sample_host/host/failure.h"
#include "sample_host/models/obj_file.h"
#include "sample_host/models/outline.h"
#include "sample_host/pictures/image_files.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <stdexcept>

namespace sample_host {

namespace {

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

    std::shared_ptr<const Image> get(const ObjFile::Material& material)
    {
        std::string name = material.record.diffuse_texname;
        std::replace(name.begin(), name.end(), '\\', '/');
        std::shared_ptr<const Image>& image = images_[name];
        if (!image) image = read((folder_ / name).generic_string(), material);
        return image;
    }

private:
    static std::shared_ptr<const Image> read(const std::string& file, const ObjFile::Material& material)
    {
        try {
            return std::make_shared<const Image>(resizedToPowersOfTwo(readImage(file)));
        } catch (const std::runtime_error& reason) {
            const int line = lineOfImage(material.file, material.record.name);
            fail("'" + material.file + "', line " + std::to_string(line) + ": the image '" + file
                 + "' of the material '" + material.record.name + "' " + reason.what());
        }
    }

    std::filesystem::path folder_;
    std::map<std::string, std::shared_ptr<const Image>> images_;
};

MaterialRecipe recipe(const ObjFile::Material& material, Images& images)
{
    const tinyobj::material_t& record = material.record;
    MaterialRecipe result;
    result.name = record.name;
    result.ambient = colour(record.ambient);
    result.diffuse = colour(record.diffuse);
    result.specular = colour(record.specular);
    result.specularLevel = 100;
    result.shininess = i32(std::clamp(record.shininess, 0.0f, 100.0f));
    if (record.dissolve < 0.75f) result.transparency = 50;
    if (!record.diffuse_texname.empty()) result.image = images.get(material);
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
        checkFinite(file.positions);
        checkFinite(file.normals);
        checkFinite(file.textures);
        findSphere();
    }

    // Adds the triangles of a face; `number` is the face's place in the file.
    void addFace(std::size_t number, int material)
    {
        const std::vector<ObjFile::Corner>& corners = file_.faces[number].corners;
        std::vector<Vector> places;
        for (const ObjFile::Corner& corner : corners) {
            checkCorner(corner, number);
            places.push_back(placeOf(corner));
        }
        const SplitOutline outline = splitOutline(places);
        for (const auto& [a, b, c] : outline.triangles) addTriangle({corners[a], corners[b], corners[c]}, material);
        if (outline.fault != OutlineFault::none) faulty_[remarkOn(outline)].push_back(number);
    }

    Mesh finished()
    {
        if (mesh_.polygons.empty())
            failModel("it has no faces that can be drawn" + (faulty_.empty() ? "" : "; " + remarks().front()));
        for (Vector& normal : mesh_.normals) normal = unit(normal);
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

    void checkFinite(const std::vector<float>& numbers) const
    {
        if (!std::all_of(numbers.begin(), numbers.end(), [](float number) { return std::isfinite(number); }))
            failModel("it has a number that is not finite");
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

    // In double precision: even a vertex at the end of single precision leaves a finite radius.
    void findSphere()
    {
        const std::size_t count = file_.positions.size() / 3;
        if (count == 0) failModel("it has no vertices");
        Vector low = position(0), high = low;
        for (std::size_t i = 1; i < count; ++i) {
            const Vector p = position(i);
            low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
        }
        centre_ = (low + high) * 0.5;
        for (std::size_t i = 0; i < count; ++i) radius_ = std::max(radius_, length(position(i) - centre_));
        if (radius_ == 0) failModel("all of its vertices are in one place");
    }

    Vector position(std::size_t i) const
    {
        const std::vector<float>& p = file_.positions;
        return {p[3 * i], p[3 * i + 1], p[3 * i + 2]};
    }

    // Moved and scaled into the sphere of radius 1.
    Vector placeOf(const ObjFile::Corner& corner) const
    {
        return (position(std::size_t(corner.vertex)) - centre_) * (1 / radius_);
    }

    void addTriangle(const std::array<ObjFile::Corner, 3>& corners, int material)
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
    }

    int vertex(const ObjFile::Corner& corner)
    {
        const auto [entry, isNew] = vertices_.try_emplace({corner.vertex, corner.normal}, 0);
        if (isNew) {
            Vector normal{};
            if (corner.normal != ObjFile::none) {
                const float* n = &file_.normals[3 * std::size_t(corner.normal)];
                normal = {n[0], n[1], n[2]};
            }
            entry->second = mesh_.addVertex(placeOf(corner), normal);
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
    Vector centre_{};
    double radius_ = 0;
    Mesh mesh_;
    std::map<std::pair<int, int>, int> vertices_;            // by the numbers of their position and normal in the file
    std::map<std::string, std::vector<std::size_t>> faulty_; // the faces that a remark is about
};

} // namespace

Model readObjModel(const std::string& name)
{
    const ObjFile file = readObjFile(name);
    Model model;
    model.name = std::filesystem::path(name).stem().string();
    Images images(std::filesystem::path(name).parent_path());
    for (const ObjFile::Material& material : file.materials) model.materials.push_back(recipe(material, images));

    // Faces that name no material, or one that does not exist, take one more material behind the file's own.
    const int plain = int(model.materials.size());
    bool plainIsUsed = false;
    MeshBuilder builder(name, file);
    for (std::size_t i = 0; i < file.faces.size(); ++i) {
        const int named = file.faces[i].material;
        const int material = named >= 0 && named < plain ? named : plain;
        plainIsUsed |= material == plain;
        builder.addFace(i, material);
    }
    if (plainIsUsed) {
        MaterialRecipe chequered;
        chequered.name = "chequered";
        chequered.image = chequerboard();
        model.materials.push_back(chequered);
    }
    model.mesh = builder.finished();
    model.remarks = builder.remarks();
    return model;
}

} // namespace sample_host
