#include "sample_host/counts_in_words.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstring>

namespace sample_host {

namespace {

constexpr const char* planes[]{"near", "far", "right", "left", "bottom", "top"};

// "1 face" or "3 faces".
std::string many(long long count, const char* one, const char* several)
{
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

std::string percent(double part, double whole)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.1f %%", whole > 0 ? 100 * part / whole : 0);
    return text;
}

} // namespace

std::string countsAsText(const std::string& sceneName, const FrameCounts& counts)
{
    std::string cuts;
    for (std::size_t i = 0; i < counts.clipped.size(); ++i)
        cuts += std::string(i == 0 ? "" : ", ") + planes[i] + " " + std::to_string(counts.clipped[i]);
    char perPixel[32];
    std::snprintf(perPixel, sizeof perPixel, "%.2f",
                  counts.pixelsCovered ? double(counts.pixelsDrawn) / counts.pixelsCovered : 0);
    const auto number = [](long long count) { return std::to_string(count); };
    std::string text = sceneName + ", one frame\n";
    const auto add = [&](const char* stage, const std::string& words) {
        text += std::string("  ") + stage + std::string(11 - std::strlen(stage), ' ') + words + "\n";
    };
    add("objects", many(counts.objects, "object", "objects") + " asked for, " + number(counts.objectsDrawn) + " drawn");
    add("vertices",
        many(counts.verticesPrepared, "vertex", "vertices") + " prepared, " + number(counts.verticesLit) + " lit");
    add("faces",
        many(counts.facesTested, "face", "faces") + " tested, " + number(counts.facesEmitted) + " turned to the eye");
    add("clipping", "polygons cut at each plane: " + cuts);
    add("polygons", many(counts.polygonsInView, "polygon", "polygons") + " in view, " + number(counts.polygonsVisible)
                        + " of them seen");
    add("spans", many(counts.spans, "run", "runs") + " of pixels in a row");
    add("pixels", many(counts.pixelsDrawn, "pixel", "pixels") + " drawn, " + number(counts.pixelsCovered)
                      + " of the picture's " + number(counts.pixelsOfPicture) + " ("
                      + percent(double(counts.pixelsCovered), counts.pixelsOfPicture) + "), " + perPixel
                      + " times each");
    return text;
}

std::string countsAsJson(const FrameCounts& counts)
{
    nlohmann::ordered_json json;
    json["objects"] = counts.objects;
    json["objectsDrawn"] = counts.objectsDrawn;
    json["verticesPrepared"] = counts.verticesPrepared;
    json["verticesLit"] = counts.verticesLit;
    json["facesTested"] = counts.facesTested;
    json["facesEmitted"] = counts.facesEmitted;
    for (std::size_t i = 0; i < counts.clipped.size(); ++i) json["clipped"][planes[i]] = counts.clipped[i];
    json["polygonsInView"] = counts.polygonsInView;
    json["polygonsVisible"] = counts.polygonsVisible;
    json["spans"] = counts.spans;
    json["pixelsDrawn"] = counts.pixelsDrawn;
    json["pixelsCovered"] = counts.pixelsCovered;
    json["pixelsOfPicture"] = counts.pixelsOfPicture;
    return json.dump(2) + "\n";
}

} // namespace sample_host
