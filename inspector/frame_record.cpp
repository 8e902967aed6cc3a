#include "inspector/frame_record.h"

#include "geometry/face_steps.h"
#include "geometry/polygon_lists.h"
#include "host/host_context.h"

#include <deque>

namespace inspector {

namespace {

RendererTable behind; // the renderer's own functions

// What the lists held when the last face was tested.
struct ListMark {
    i32 count, storedCount;
    u32 usedBytes;
};

struct Visit {
    const Object* object;
    const SceneObject* drawn;
};

FrameRecord* record = nullptr; // null while nothing is recorded
i32 followedFace = -1;
ListMark marks[3];
std::deque<Visit> visits; // objects in the order in which they were prepared, which is that of their face tests
i32 nextFace = 0;         // of the visit at the front
const RenderView* recordedView = nullptr;

const PolygonList* const lists[] = {&resolvedPolygons, &sortedPolygons, &lateSortedPolygons};

// The host's own callbacks, which all objects and faces of the sample host share.
const FaceTest* hostFaceTest = nullptr;
const ObjectFunctions* hostFunctions = nullptr;

// Finds out what has become of the face that was tested last.
void settleLastFace()
{
    for (i32 i = 0; i < 3; ++i) {
        const PolygonList& list = *lists[i];
        ListMark& mark = marks[i];
        if (!record->faces.empty() && list.count != mark.count) {
            FaceRecord& last = record->faces.back();
            const bool isStored = list.storedCount != mark.storedCount;
            last.fate = isStored ? FaceFate::recorded : FaceFate::oneRow;
            last.list = isStored ? i : -1;
            last.byteOffset = mark.usedBytes;
        }
        mark = {list.count, list.storedCount, list.usedBytes};
    }
}

i32 testFace(SceneFace* face)
{
    const i32 seen = hostFaceTest->test(face);
    if (!record) return seen;
    settleLastFace();
    while (!visits.empty() && nextFace >= visits.front().drawn->faceCount) {
        visits.pop_front();
        nextFace = 0;
    }
    if (visits.empty()) return seen;
    const FoldedOutcodes outcodes = foldedOutcodes(*hostContext, *face);
    record->faces.push_back({.object = visits.front().object,
                             .drawn = visits.front().drawn,
                             .index = nextFace++,
                             .face = face,
                             .cut = outcodes.any == outcodeAll && outcodes.all != outcodeAll,
                             .fate = seen ? FaceFate::outside : FaceFate::hidden,
                             .list = -1,
                             .byteOffset = 0});
    if (seen && i32(record->faces.size()) - 1 == followedFace) record->followed = followFace(*recordedView, *face);
    return seen;
}

void prepareVertices(SceneObject* drawn, SceneObject* object, RenderView* view)
{
    hostFunctions->prepareVertices(drawn, object, view);
    if (!record) return;
    recordedView = view;
    visits.push_back({static_cast<const Object*>(object), drawn});
    ++record->objectsPrepared;
}

constexpr FaceTest faceTest{testFace};
ObjectFunctions objectFunctions;
ObjectClass objectClass{{}, &objectFunctions};

i32 addFace(SceneFace* face)
{
    if (face->faceTest != &faceTest) hostFaceTest = face->faceTest;
    face->faceTest = &faceTest;
    return behind.addFace(face);
}

// An object hands itself over when all of its record is filled.
i32 addObject(const void* object)
{
    SceneObject& announced = *static_cast<SceneObject*>(const_cast<void*>(object));
    if (announced.objectClass != &objectClass) hostFunctions = announced.objectClass->functions;
    objectFunctions = *hostFunctions;
    objectFunctions.prepareVertices = prepareVertices;
    announced.objectClass = &objectClass;
    return behind.addObject(object);
}

} // namespace

RendererTable recordingRenderer(const RendererTable& renderer)
{
    behind = renderer;
    RendererTable table = renderer;
    table.addFace = addFace;
    table.addObject = addObject;
    return table;
}

void startRecord(FrameRecord& target, i32 followed)
{
    target = {};
    record = &target;
    followedFace = followed;
    visits.clear();
    nextFace = 0;
    for (ListMark& mark : marks) mark = {}; // the lists are emptied before the first face
}

void endRecord()
{
    settleLastFace();
    record = nullptr;
}

} // namespace inspector
