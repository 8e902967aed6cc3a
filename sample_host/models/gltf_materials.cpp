#include "sample_host/models/gltf_materials.h"

#include "sample_host/models/model_parts.h"
#include "sample_host/pictures/image_files.h"
#include "sample_host/reading/colour_channels.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace sample_host {

namespace {

// Colours of a file are amounts of light; those of a picture are steps that look alike.
Colour pictureColour(const std::vector<double>& light)
{
    const auto step = [&](std::size_t i) { return channel(std::pow(std::clamp(light[i], 0.0, 1.0), 1 / 2.2)); };
    return {step(0), step(1), step(2)};
}

// The image in a colour, and without the pixels of less than that opacity.
Image coloured(Image image, Colour colour, double leastOpacity)
{
    const std::uint8_t factors[3]{colour.red, colour.green, colour.blue};
    for (std::size_t i = 0; i < image.pixelCount(); ++i) {
        std::uint8_t* pixel = &image.pixels[4 * i];
        for (std::size_t j = 0; j < 3; ++j) pixel[j] = std::uint8_t((pixel[j] * factors[j] + 127) / 255);
        pixel[3] = pixel[3] >= 255 * leastOpacity ? 255 : 0;
    }
    return image;
}

bool hasHidden(const Image& image)
{
    for (std::size_t i = 0; i < image.pixelCount(); ++i)
        if (image.hidden(i)) return true;
    return false;
}

class Materials {
public:
    Materials(const tinygltf::Model& file, const std::string& name, const std::string& folder)
        : file_(file), name_(name), folder_(folder)
    {
    }

    GltfMaterials all()
    {
        for (const tinygltf::Material& material : file_.materials) {
            result_.recipes.push_back(recipe(material));
            result_.bothSides.push_back(material.doubleSided);
        }
        MaterialRecipe plain;
        plain.name = "plain";
        result_.recipes.push_back(plain);
        result_.bothSides.push_back(false);
        return std::move(result_);
    }

private:
    MaterialRecipe recipe(const tinygltf::Material& material)
    {
        const tinygltf::PbrMetallicRoughness& base = material.pbrMetallicRoughness;
        const bool isMask = material.alphaMode == "MASK", isBlend = material.alphaMode == "BLEND";
        MaterialRecipe result;
        result.name = material.name;
        result.glows = material.extensions.count("KHR_materials_unlit") > 0;
        result.diffuse = pictureColour(base.baseColorFactor);
        result.ambient = {u8(result.diffuse.red / 5), u8(result.diffuse.green / 5), u8(result.diffuse.blue / 5)};
        if (isBlend) result.transparency = transparency(material.name, base.baseColorFactor[3]);
        const double leastOpacity = isMask ? material.alphaCutoff : isBlend ? 0.5 : 0;
        if (base.baseColorTexture.index >= 0) result.image = image(material, result.diffuse, leastOpacity);
        if (result.image && result.transparency == 0 && hasHidden(*result.image)) result.shadingMode = 1;
        return result;
    }

    // The renderer knows opaque and half transparent; other opacities become the one that is nearer.
    i32 transparency(const std::string& material, double opacity)
    {
        const i32 nearest = opacity < 0.75 ? 50 : 0;
        if (std::abs(opacity - (nearest == 0 ? 1 : 0.5)) > 0.005) {
            std::ostringstream sentence;
            sentence << "'" << name_ << "': the opacity of the material '" << material << "' is " << opacity
                     << ", and it is drawn " << (nearest == 0 ? "opaque" : "half transparent");
            result_.remarks.push_back(sentence.str());
        }
        return nearest;
    }

    std::shared_ptr<const Image> image(const tinygltf::Material& material, Colour colour, double leastOpacity)
    {
        std::string which = "the image";
        try {
            const int texture = material.pbrMetallicRoughness.baseColorTexture.index;
            if (std::size_t(texture) >= file_.textures.size()) throw std::runtime_error("is not in the file");
            const int source = file_.textures[std::size_t(texture)].source;
            if (source < 0 || std::size_t(source) >= file_.images.size())
                throw std::runtime_error("is not in the file");
            const tinygltf::Image& image = file_.images[std::size_t(source)];
            if (!image.image.empty()) {
                which += " " + std::to_string(source) + " inside of the file";
                return std::make_shared<const Image>(
                    coloured(resizedToPowersOfTwo(readImage(image.image)), colour, leastOpacity));
            }
            const std::string place = (std::filesystem::path(folder_) / image.uri).generic_string();
            which += " '" + place + "'";
            return std::make_shared<const Image>(
                coloured(resizedToPowersOfTwo(readImage(place)), colour, leastOpacity));
        } catch (const std::runtime_error& reason) {
            result_.remarks.push_back("'" + name_ + "': " + which + " of the material '" + material.name + "' "
                                      + reason.what() + "; the material is drawn in its colour");
            return nullptr;
        }
    }

    const tinygltf::Model& file_;
    const std::string &name_, &folder_;
    GltfMaterials result_;
};

} // namespace

GltfMaterials materialsOf(const tinygltf::Model& file, const std::string& name, const std::string& folder)
{
    return Materials(file, name, folder).all();
}

bool keepImageBytes(tinygltf::Image* image, int, std::string*, std::string*, int, int, const unsigned char* bytes,
                    int size, void*)
{
    image->image.assign(bytes, bytes + size);
    return true;
}

} // namespace sample_host
