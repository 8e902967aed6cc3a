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

std::string countsAsText(const std::string& sceneName, const FrameCounts& counts,
                         const std::optional<inspector::FrameSummary>& inside)
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
    if (!inside) {
        text +=
            "  inside     not counted: the library draws another frame than the renderer that this program brings\n";
        return text;
    }
    text += "inside of the renderer\n";
    add("faces", number(inside->facesTested) + " tested: " + number(inside->facesHidden) + " show their backs, "
                     + number(inside->facesOutside) + " lie outside, " + number(inside->facesOnOneRow) + " on one row, "
                     + number(inside->polygons) + " are polygons now, " + number(inside->facesCut) + " of them cut");
    add("lists", number(inside->resolved) + " resolved, " + number(inside->sorted) + " sorted by depth, "
                     + number(inside->lateSorted) + " sorted and painted late");
    add("scanlines", many(inside->edges, "edge", "edges") + ", " + number(inside->depthComparisons)
                         + " depths compared, " + number(inside->spans) + " spans of polygons, "
                         + number(inside->backgroundSpans) + " of the background");
    add("written", many(inside->pixels, "pixel", "pixels") + ", each as often as it is written");
    return text;
}

std::string countsAsJson(const FrameCounts& counts, const std::optional<inspector::FrameSummary>& inside)
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
    json["inside"] = nullptr;
    if (inside) inspector::forEachCount(*inside, [&](const char* name, i32 count) { json["inside"][name] = count; });
    return json.dump(2) + "\n";
}

} // namespace sample_host
