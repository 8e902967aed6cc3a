#include "checked/watched_host.h"

#include "checked/tree_checks.h"
#include "checked/view_checks.h"

namespace kardeno::checked {

namespace {

constexpr i32 longestList = 1 << 16; // of the materials of an object

constinit bool frontWasSeen = false; // of any face of any frame

} // namespace

void forgetFrames()
{
    frontWasSeen = false;
}

Place WatchedHost::placeOf(const SceneObject* object, const SceneObject* drawn) const
{
    Place place = callPlace;
    place.object = object;
    place.drawn = drawn;
    return place;
}

void WatchedHost::prepareCamera(RenderView* preparedView)
{
    if (!mayBePrepared(*preparedView, callPlace)) return;
    preparedView->camera->functions->prepare(preparedView->camera, preparedView);
    cameraWasPrepared = true;
}

bool WatchedHost::mayWalk(const RenderView*)
{
    if (!cameraWasPrepared || !mayBeWalked(*view, callPlace)) return false;
    if (purpose == Purpose::frame && !liesInFrame(*view, context, callPlace)) return false;
    return treeEnds(*view, callPlace);
}

bool WatchedHost::mayVisitFaces(SceneObject* object, SceneObject* drawn)
{
    objectPlace = placeOf(object, drawn);
    anyVisible = true;
    const bool newBatch = preparedSinceVisit;
    preparedSinceVisit = false;
    if (!hasProjection(*view, callPlace)) return false;
    if (drawn->faceCount <= 0) return true;
    if (!drawn->faces) {
        tell(Mistake::missingFaces, objectPlace, "faceCount %d", drawn->faceCount);
        return false;
    }
    const char* const missing = !context.cameraVertices   ? "cameraVertices"
                                : !context.screenVertices ? "screenVertices"
                                : !context.vertexOutcodes ? "vertexOutcodes"
                                : !context.vertexStamps   ? "vertexStamps"
                                                          : nullptr;
    if (missing) {
        Place place = objectPlace;
        place.about = missing;
        tell(Mistake::missingArray, place, "%s", missing);
        return false;
    }
    faces.begin(context, *view, newBatch);
    if (purpose == Purpose::frame) listIsLit = needsLight(*drawn);
    return true;
}

bool WatchedHost::mayDraw()
{
    if (!hasProjection(*view, callPlace)) return false;
    if (faces.fronts > 0) frontWasSeen = true;
    if (!frontWasSeen && faces.backs > 0) tell(Mistake::onlyBacks, callPlace, "%d faces", faces.backs);
    if (!anyVisible && view->firstObject) tell(Mistake::nothingVisible, callPlace);

    // Materials are read again when the polygons are drawn, and a later callback may have changed them.
    bool usable = true;
    for (u32 i = 0; i < usedMaterials.capacity; ++i) {
        const AddressTable::Entry& entry = usedMaterials.entries[i];
        if (!entry.address || entry.value == unusable) continue;
        const SceneMaterial& material = *static_cast<const SceneMaterial*>(entry.address);
        RenderModeRow row;
        usable &= mayBeDrawnWith(material, at(callPlace, material), &row);
    }
    return usable && liesInFrame(*view, context, callPlace);
}

bool WatchedHost::isGroup(const SceneObject& object)
{
    return checked::isGroup(object, placeOf(&object));
}

bool WatchedHost::needsLight(const SceneObject& drawn)
{
    i32 nodes = 0;
    for (const MaterialNode* node = drawn.materials; node; node = node->next) {
        if (++nodes > longestList) {
            tell(Mistake::materialListRing, placeOf(&drawn));
            return false;
        }
        if (!node->material) {
            tell(Mistake::missingMaterial, placeOf(&drawn), "in its list");
            continue;
        }
        RenderModeRow row;
        if (!hasRow(*node->material, at(placeOf(&drawn), *node->material), &row)) continue;
        const i32 state = modeOf(*node->material).state;
        if (state == stateLit || state == stateLitToo) return true;
    }
    return false;
}

void WatchedHost::update(SceneObject* object)
{
    const Place place = placeOf(object);
    const ObjectFunctions* const functions = functionsOf(*object, place);
    if (functions && isThere(functions->update, "update", place)) functions->update(object);
}

void WatchedHost::transform(SceneObject* object, RenderView* preparedView)
{
    const Place place = placeOf(object);
    const ObjectFunctions* const functions = functionsOf(*object, place);
    if (functions && isThere(functions->transform, "transform", place)) functions->transform(object, preparedView);
}

SceneObject* WatchedHost::selectLevel(SceneObject* object, RenderView* preparedView)
{
    const Place place = placeOf(object);
    const ObjectFunctions* const functions = functionsOf(*object, place);
    if (!functions || !isThere(functions->selectLevel, "selectLevel", place)) return nullptr;
    return functions->selectLevel(object, preparedView);
}

// An object whose bounds cannot be tested is not seen.
void WatchedHost::testBounds(SceneObject* drawn, SceneObject* object, RenderView* preparedView)
{
    const Place place = placeOf(object, drawn);
    const ObjectFunctions* const functions = functionsOf(*drawn, place);
    if (functions && isThere(functions->testBounds, "testBounds", place))
        functions->testBounds(drawn, object, preparedView);
    else
        object->visible = 0;
}

void WatchedHost::light(SceneObject* drawn, SceneObject* object, RenderView* preparedView)
{
    const Place place = placeOf(object, drawn);
    const ObjectFunctions* const functions = functionsOf(*drawn, place);
    if (functions && isThere(functions->light, "light", place)) functions->light(drawn, object, preparedView);
}

void WatchedHost::prepareVertices(SceneObject* drawn, SceneObject* object, RenderView* preparedView)
{
    preparedSinceVisit = true;
    const Place place = placeOf(object, drawn);
    const ObjectFunctions* const functions = functionsOf(*drawn, place);
    if (functions && isThere(functions->prepareVertices, "prepareVertices", place))
        functions->prepareVertices(drawn, object, preparedView);
}

bool WatchedHost::passes(SceneFace* face, i32 index)
{
    Place place = objectPlace;
    place.faceIndex = index;
    if (!face) {
        tell(Mistake::missingFace, place);
        return false;
    }
    place.face = face;
    if (!face->faceTest || !face->faceTest->test) {
        tell(Mistake::missingFaceTest, place);
        return false;
    }
    if (!face->faceTest->test(face)) return false;
    if (!faces.hasCorners(*face, place)) return false;
    return purpose == Purpose::pick || mayBeEmitted(*face, place);
}

bool WatchedHost::mayBeEmitted(const SceneFace& face, const Place& place)
{
    if (!face.material) {
        tell(Mistake::missingMaterial, place);
        return false;
    }
    const u32 use = useOf(*face.material, place);
    if (use == unusable) return false;
    const RenderModeRow row = static_cast<RenderModeRow>(use - 1);
    if (needsOf(row).light && !listIsLit) tell(Mistake::missingLight, at(place, *face.material));
    const i32 backsBefore = faces.backsOfObject;
    if (!faces.mayBeEmitted(face, row, place)) return false;
    if (faces.backsOfObject > backsBefore && faces.backsOfObject == 1) {
        Place ofObject = place;
        ofObject.about = place.object;
        tell(Mistake::backsShown, ofObject);
    }
    return true;
}

u32 WatchedHost::useOf(const SceneMaterial& material, const Place& place)
{
    if (&material == lastMaterial) return lastUse;
    u32* const known = usedMaterials.findOrAdd(&material);
    u32 use = known ? *known : 0;
    if (use == 0) {
        RenderModeRow row;
        use = mayBeDrawnWith(material, at(place, material), &row) ? 1 + static_cast<u32>(row) : unusable;
        if (known) *known = use;
    }
    lastMaterial = &material;
    lastUse = use;
    return use;
}

} // namespace kardeno::checked
