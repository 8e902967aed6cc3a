#include "page/read_model.h"

#include <stb/stb_image.h>
#include <stb/stb_image_resize.h>

#include <algorithm>
#include <map>

namespace page {

namespace {

bool isFinite(const Vector& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

// The sphere around the box around the positions that triangles use.
struct Sphere {
    Vector centre{};
    double radius = 0;
};

Sphere sphereAround(const Triangles& triangles)
{
    std::vector<Vector> used;
    for (const Triangles::Triangle& triangle : triangles.triangles)
        for (const Triangles::Corner& corner : triangle.corners) {
            const Vector& position = triangles.positions[std::size_t(corner.position)];
            if (isFinite(position)) used.push_back(position);
        }
    if (used.empty()) return {};
    Vector low = used[0], high = low;
    for (const Vector& p : used) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
    Sphere sphere{(low + high) * 0.5, 0};
    for (const Vector& p : used) sphere.radius = std::max(sphere.radius, length(p - sphere.centre));
    return sphere;
}

bool namesOnlyWhatIsThere(const Triangles& triangles)
{
    const auto isIn = [](int number, std::size_t count) { return number >= 0 && std::size_t(number) < count; };
    for (const Triangles::Triangle& triangle : triangles.triangles)
        for (const Triangles::Corner& corner : triangle.corners)
            if (!isIn(corner.position, triangles.positions.size())
                || (corner.normal != -1 && !isIn(corner.normal, triangles.normals.size()))
                || (corner.texture != -1 && !isIn(corner.texture, triangles.textures.size())))
                return false;
    return true;
}

std::string counted(std::size_t count, const char* what)
{
    return std::to_string(count) + " triangle" + (count == 1 ? "" : "s") + what;
}

int nearestPowerOfTwo(int side)
{
    constexpr int least = 8, most = 256;
    int power = least;
    while (power < most && power + power / 2 <= side) power *= 2;
    return power;
}

} // namespace

ModelReading readModel(const GivenFiles& files)
{
    std::vector<const GivenFile*> models;
    for (const GivenFile& file : files)
        if (endsIn(file.name, ".obj") || endsIn(file.name, ".gltf") || endsIn(file.name, ".glb"))
            models.push_back(&file);
    if (models.empty())
        return {std::nullopt,
                "there is no model among the files; expected is one that ends in .obj, .gltf or .glb, or a scene "
                "in .json"};
    if (models.size() > 1)
        return {std::nullopt, "'" + models[0]->name + "' and '" + models[1]->name
                                  + "' are two models; expected is one, with its materials and images"};
    return readModelFile(files, *models[0]);
}

ModelReading readModelFile(const GivenFiles& files, const GivenFile& file)
{
    const bool isGltf = endsIn(file.name, ".gltf") || endsIn(file.name, ".glb");
    return isGltf ? readGltf(files, file) : readObj(files, file);
}

ModelReading finished(const GivenFile& file, const Triangles& triangles, std::vector<MaterialRecipe> materials,
                      std::vector<std::string> remarks)
{
    if (triangles.triangles.empty()) return problem(file, " has no faces; expected are triangles or polygons");
    if (triangles.triangles.size() > mostTriangles)
        return problem(file, " has " + counted(triangles.triangles.size(), "; the page takes up to ")
                                 + std::to_string(mostTriangles));
    if (!namesOnlyWhatIsThere(triangles)) return problem(file, " has a face that names a corner which is not there");
    const Sphere sphere = sphereAround(triangles);
    if (!(sphere.radius > 0)) return problem(file, " has all of its corners in one place");

    Model model;
    std::map<std::pair<int, int>, int> vertices; // by the numbers of their position and normal in the file
    std::size_t flat = 0, notFinite = 0;
    for (const Triangles::Triangle& triangle : triangles.triangles) {
        Vector places[3];
        bool allFinite = true;
        for (int i = 0; i < 3; ++i) {
            const Vector& position = triangles.positions[std::size_t(triangle.corners[i].position)];
            allFinite = allFinite && isFinite(position);
            places[i] = (position - sphere.centre) * (1 / sphere.radius);
        }
        if (!allFinite) {
            ++notFinite;
            continue;
        }
        const Vector area = cross(places[1] - places[0], places[2] - places[0]);
        if (!(length(area) > 1e-12)) {
            ++flat;
            continue;
        }
        Mesh::Corner corners[3];
        for (int i = 0; i < 3; ++i) {
            const Triangles::Corner& corner = triangle.corners[i];
            const auto [entry, isNew] = vertices.try_emplace({corner.position, corner.normal}, 0);
            const bool hasNormal = corner.normal >= 0 && isFinite(triangles.normals[std::size_t(corner.normal)]);
            if (isNew)
                entry->second = model.mesh.addVertex(
                    places[i], hasNormal ? triangles.normals[std::size_t(corner.normal)] : Vector{});
            Vector& normal = model.mesh.normals[std::size_t(entry->second)];
            if (!hasNormal) normal = normal + area;
            corners[i] = {entry->second, 0.5 + 0.5 * places[i].x, 0.5 - 0.5 * places[i].y};
            if (corner.texture >= 0) {
                const Triangles::TexturePlace& place = triangles.textures[std::size_t(corner.texture)];
                if (std::isfinite(place.u) && std::isfinite(place.v))
                    corners[i] = {entry->second, std::clamp(place.u, -1000.0, 1000.0),
                                  std::clamp(place.v, -1000.0, 1000.0)};
            }
        }
        model.mesh.addPolygon(triangle.material, corners);
    }
    if (model.mesh.polygons.empty()) return problem(file, " has no triangle with an area");
    if (flat > 0) remarks.push_back("'" + file.name + "': " + counted(flat, " without an area are left out"));
    if (notFinite > 0)
        remarks.push_back("'" + file.name
                          + "': " + counted(notFinite, " with a number that is not finite are left out"));
    for (Vector& normal : model.mesh.normals) normal = unit(normal);
    const std::string_view name = lastPart(file.name);
    model.name = name.substr(0, name.find_last_of('.'));
    model.materials = std::move(materials);
    model.remarks = std::move(remarks);
    return {std::move(model), ""};
}

ImageReading readImage(const std::uint8_t* bytes, std::size_t count, bool keepsHoles)
{
    constexpr int longestSide = 8192;
    constexpr std::size_t mostBytes = 1u << 28;
    if (count > mostBytes) return {nullptr, "has more than 256 MB"};
    int width = 0, height = 0, channels = 0;
    // The size is looked at first: a broken header may claim more pixels than there is memory.
    if (!stbi_info_from_memory(bytes, int(count), &width, &height, &channels))
        return {nullptr, "is none that can be read; expected is PNG, JPEG, BMP, GIF, TGA or PSD"};
    if (std::max(width, height) > longestSide)
        return {nullptr, "has " + std::to_string(width) + " x " + std::to_string(height)
                             + " pixels; expected are at most 8192 a side"};
    stbi_uc* loaded = stbi_load_from_memory(bytes, int(count), &width, &height, &channels, 4);
    if (!loaded) return {nullptr, std::string("is broken (") + stbi_failure_reason() + ")"};

    auto image = std::make_shared<Image>(nearestPowerOfTwo(width), nearestPowerOfTwo(height));
    if (image->width == width && image->height == height)
        std::copy_n(loaded, image->pixels.size(), image->pixels.begin());
    else
        stbir_resize_uint8(loaded, width, height, 0, image->pixels.data(), image->width, image->height, 0, 4);
    stbi_image_free(loaded);
    if (!keepsHoles)
        for (std::size_t i = 3; i < image->pixels.size(); i += 4) image->pixels[i] = 255;
    return {image, ""};
}

} // namespace page
