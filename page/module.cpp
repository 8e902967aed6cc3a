// What the page's scripts call. Numbers go in and out as they are, records as addresses in the module's memory, and
// everything else as JSON text, which stays where it is until the next call that returns text.
#include "host/render_modes.h"
#include "inspector/frame_parts.h"
#include "inspector/frame_summary.h"
#include "inspector/opened_row.h"
#include "page/json_text.h"
#include "page/read_model.h"
#include "page/read_scene.h"
#include "page/stage.h"
#include "sample_host/host/projected_outline.h"
#include "sample_host/scenes/gallery.h"
#include "sample_host/scenes/scenes.h"

using namespace page;
using namespace inspector;

#define EXPORTED(name) extern "C" __attribute__((export_name(#name)))

namespace {

GivenFiles givenFiles;
std::string answer; // ends in a zero byte, as c_str() has it

const char* answered(const JsonText& json)
{
    answer = json.text();
    return answer.c_str();
}

// The camera of the scene as eleven numbers that scripts read and write.
double cameraNumbers[11];

constexpr const char* listNames[]{"resolved", "sorted", "late sorted"};

const std::string& rowName(i32 row)
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> result;
        for (const GalleryRow& galleryRow : galleryRows()) result.push_back(galleryRow.name);
        return result;
    }();
    static const std::string none;
    return row >= 0 && row < i32(names.size()) ? names[std::size_t(row)] : none;
}

void addCorner(JsonText& json, double x, double y, double depth)
{
    json.beginArray().value(x).value(y).value(depth).endArray();
}

// All materials of a frame are the sample host's own.
const std::string& nameOf(const SceneMaterial& material)
{
    return static_cast<const Material&>(material).name;
}

void addFace(JsonText& json, const FaceRecord& face)
{
    json.field("object", face.object->name).field("face", face.index);
    json.field("material", nameOf(*face.face->material));
    json.field("corners", face.face->vertexCount).field("cut", face.cut);
}

// The polygon that a face of the record became, by its place in the order of painting; -1: none.
i32 polygonOfFace(i32 faceNumber)
{
    const std::vector<PaintedPolygon>& polygons = frameParts().polygons();
    for (std::size_t i = 0; i < polygons.size(); ++i)
        if (polygons[i].face == faceNumber) return i32(i);
    return -1;
}

void inspectFrame(double phase, i32 followed)
{
    stage().drawRecorded(phase, followed);
    frameParts().takeApart(stage().record(), stage().frame());
}

} // namespace

// The scenes and the gallery's rows, with a few words about each.
EXPORTED(listScenes) const char* listScenes()
{
    JsonText json;
    json.beginObject().key("scenes").beginArray();
    for (const SceneEntry& entry : ownScenes)
        json.beginObject().field("name", entry.name).field("shows", entry.shows).endObject();
    json.endArray().key("rows").beginArray();
    for (const GalleryRow& row : galleryRows())
        json.beginObject().field("name", row.name).field("shows", row.what).endObject();
    json.endArray().endObject();
    return answered(json);
}

// Room for bytes that scripts hand over.
EXPORTED(reserve) void* reserve(u32 bytes)
{
    return std::malloc(bytes);
}

EXPORTED(release) void release(void* bytes)
{
    std::free(bytes);
}

EXPORTED(forgetFiles) void forgetFiles()
{
    givenFiles.clear();
}

EXPORTED(giveFile) void giveFile(const char* name, u32 nameBytes, const u8* bytes, u32 count)
{
    givenFiles.push_back({std::string(name, nameBytes), std::vector<u8>(bytes, bytes + count)});
}

// Reads the scene file or, where there is none, the model among the given files. What cannot be used changes nothing.
EXPORTED(takeFiles) const char* takeFiles()
{
    JsonText json;
    json.beginObject();
    const auto tell = [&](const char* kind, const auto& read, const std::string& problem) {
        json.field("kind", kind).field("problem", problem).field("name", read ? read->name : "").key("remarks");
        json.beginArray();
        if (read)
            for (const std::string& remark : read->remarks) json.value(remark);
        json.endArray();
    };
    if (sceneFileAmong(givenFiles)) {
        SceneReading reading = readScene(givenFiles);
        tell("scene", reading.scene, reading.problem);
        if (reading.scene) stage().takeScene(std::move(*reading.scene));
    } else {
        ModelReading reading = readModel(givenFiles);
        tell("model", reading.model, reading.problem);
        if (reading.model) stage().takeModel(std::move(*reading.model));
    }
    givenFiles.clear();
    json.endObject();
    return answered(json);
}

// `bitsPerPixel` is 15 or 16; the others are as Choices has them.
EXPORTED(build)
const char* build(int scene, int galleryRow, int bitsPerPixel, int renderState, int palettised, int shadingMode,
                  int transparency, int largestTexture)
{
    Choices choices;
    choices.scene = scene;
    choices.galleryRow = galleryRow;
    choices.format = bitsPerPixel == 16 ? PixelFormat::rgb565 : PixelFormat::rgb555;
    choices.renderState = renderState;
    choices.textures = palettised ? TextureKind::palettised : TextureKind::trueColour;
    choices.changes = {shadingMode, transparency, largestTexture};
    stage().build(choices);

    const Camera& camera = stage().scene().camera;
    const double numbers[]{camera.target.x, camera.target.y,  camera.target.z,      camera.distance,
                           camera.height,   camera.startTurn, camera.turnsPerRound, camera.sway,
                           camera.zoom,     camera.nearZ,     camera.farZ};
    std::copy(std::begin(numbers), std::end(numbers), cameraNumbers);
    JsonText json;
    json.beginObject().field("name", stage().scene().name).field("contents", stage().scene().contents).endObject();
    return answered(json);
}

EXPORTED(resize) void resize(int width, int height)
{
    stage().resize(width, height);
}

EXPORTED(cameraNumbers) double* cameraNumbersAddress()
{
    return cameraNumbers;
}

// Takes the camera from the numbers.
EXPORTED(useCamera) void useCamera()
{
    Camera& camera = stage().scene().camera;
    camera.target = {cameraNumbers[0], cameraNumbers[1], cameraNumbers[2]};
    camera.distance = cameraNumbers[3];
    camera.height = cameraNumbers[4];
    camera.startTurn = cameraNumbers[5];
    camera.turnsPerRound = cameraNumbers[6];
    camera.sway = cameraNumbers[7];
    camera.zoom = cameraNumbers[8];
    camera.nearZ = cameraNumbers[9];
    camera.farZ = cameraNumbers[10];
}

EXPORTED(useLevel) void useLevel(int level)
{
    stage().scene().drawOnlyLevel(level);
}

// Draws the scene at a phase of its movements. The pixels are those of framePixels().
EXPORTED(draw) void draw(double phase)
{
    stage().scene().draw(stage().frame(), phase);
}

EXPORTED(framePixels) const u16* framePixels()
{
    return stage().frame().pixels.data();
}

EXPORTED(framePitch) int framePitch()
{
    return stage().frame().pitch;
}

// Draws the frame once more, noting how it is made, and takes it apart for the calls below.
EXPORTED(inspect) const char* inspect(double phase)
{
    inspectFrame(phase, -1);
    JsonText json;
    json.beginObject();
    forEachCount(summaryOf(stage().record(), frameParts()),
                 [&](const char* name, i32 count) { json.field(name, count); });
    json.endObject();
    return answered(json);
}

EXPORTED(polygons) const PaintedPolygon* polygons()
{
    return frameParts().polygons().data();
}

EXPORTED(polygonCount) int polygonCount()
{
    return int(frameParts().polygons().size());
}

EXPORTED(spans) const PaintedSpan* spans()
{
    return frameParts().spans().data();
}

EXPORTED(spanCount) int spanCount()
{
    return int(frameParts().spans().size());
}

EXPORTED(paintUpTo) const u16* paintUpTo(int polygonCount, int spanCount)
{
    return frameParts().paintUpTo(polygonCount, spanCount).data();
}

// What lies under a pixel, as the renderer's pick says.
EXPORTED(pick) const char* pick(double phase, int x, int y)
{
    inspectFrame(phase, -1);
    const Pick found = stage().scene().pick(stage().frame(), phase, x, y);
    JsonText json;
    json.beginObject().field("hit", found.object != nullptr);
    if (found.object) {
        const std::vector<FaceRecord>& faces = stage().record().faces;
        i32 number = -1;
        for (std::size_t i = 0; i < faces.size(); ++i)
            if (faces[i].object == found.object && faces[i].index == found.face) number = i32(i);
        const i32 polygon = polygonOfFace(number);
        json.field("object", found.object->name).field("face", found.face).field("depth", double(found.depth));
        json.field("polygon", polygon);
        if (number >= 0) json.field("material", nameOf(*faces[std::size_t(number)].face->material));
        if (polygon >= 0) json.field("row", rowName(frameParts().polygons()[std::size_t(polygon)].row));
        json.key("outline").beginArray();
        const View view(stage().scene().camera, stage().frame().width, stage().frame().height, stage().frame().pitch);
        for (const Pixel& corner : projectedOutline(found.object->outline(found.face), view))
            addCorner(json, corner.x, corner.y, 0);
        json.endArray();
    }
    json.endObject();
    return answered(json);
}

// A polygon of the frame that was taken apart.
EXPORTED(describePolygon) const char* describePolygon(int place)
{
    const PaintedPolygon& polygon = frameParts().polygons()[std::size_t(place)];
    const StoredPolygon& stored = frameParts().stored(place);
    JsonText json;
    json.beginObject();
    if (polygon.face >= 0) addFace(json, stage().record().faces[std::size_t(polygon.face)]);
    json.field("row", rowName(polygon.row)).field("list", listNames[polygon.list]);
    json.field("state", modeOf(*stored.material).state);
    if (polygon.list > 0) json.field("sortDepth", polygon.sortDepth);
    json.key("outline").beginArray();
    const CornerLayout layout = cornerLayouts[stored.format];
    for (u32 i = 0; i < stored.cornerCount; ++i) {
        const CornerPlace& corner = placeOf(cornersOf(stored) + i * layout.bytes, layout);
        addCorner(json, corner.x, corner.y, 0);
    }
    json.endArray().key("rows").beginArray();
    for (const OutlineRow& row : outlineRows(stored, stage().frame().width, stage().frame().height))
        json.beginArray().value(row.y).value(row.left).value(row.right).endArray();
    json.endArray().endObject();
    return answered(json);
}

// A row of the frame that was taken apart.
EXPORTED(openRow) const char* openRowAt(int y)
{
    const OpenedRow row = openRow(y, stage().frame().width, stage().frame().height);
    const auto place = [](i32 polygon) { return polygon < 0 ? -1 : frameParts().placeOf(polygon); };
    JsonText json;
    json.beginObject().field("agrees", row.agrees).key("events").beginArray();
    for (const OpenedRow::Event& event : row.events) {
        json.beginObject().field("x", event.x).field("polygon", place(event.polygon)).field("enters", event.enters);
        json.field("comparisons", event.comparisons).key("stack").beginArray();
        for (const i32 polygon : event.stack) json.value(place(polygon));
        json.endArray().endObject();
    }
    json.endArray().key("spans").beginArray();
    for (const OpenedRow::RowSpan& span : row.spans)
        json.beginArray().value(span.x).value(span.length).value(place(span.polygon)).endArray();
    json.endArray().endObject();
    return answered(json);
}

// Draws the frame once more and follows the face of a polygon through the clip planes. The frame is the same, and so
// are its parts.
EXPORTED(follow) const char* follow(double phase, int place)
{
    inspectFrame(phase, frameParts().polygons()[std::size_t(place)].face);
    JsonText json;
    json.beginArray();
    for (const FollowedFace::Stage& passed : stage().record().followed.stages) {
        json.beginObject().field("name", passed.name).field("onScreen", passed.onScreen).field("cut", passed.cut);
        json.key("corners").beginArray();
        for (const FollowedFace::Corner& corner : passed.corners) addCorner(json, corner.x, corner.y, corner.depth);
        json.endArray().endObject();
    }
    json.endArray();
    return answered(json);
}
