// The form of the host that looks at everything before it is used. It has the members of TrustedHost in
// frame/trusted_host.h, which says when each is asked.
#pragma once

#include "checked/address_table.h"
#include "checked/face_checks.h"

namespace kardeno::checked {

// Begins to count the frames anew, at initialisation.
void forgetFrames();

// What the walk is made for.
enum class Purpose { frame, pick };

class WatchedHost {
public:
    WatchedHost(HostContext& theContext, const RenderView* theView, Purpose thePurpose, const Place& thePlace)
        : context(theContext), view(theView), purpose(thePurpose), callPlace(thePlace)
    {
        callPlace.view = theView;
    }
    ~WatchedHost() { usedMaterials.clear(); }
    WatchedHost(const WatchedHost&) = delete;
    WatchedHost& operator=(const WatchedHost&) = delete;

    void prepareCamera(RenderView* preparedView);
    bool mayWalk(const RenderView* preparedView);
    bool mayVisitFaces(SceneObject* object, SceneObject* drawn);
    bool mayDraw();

    bool isGroup(const SceneObject& object);
    bool needsLight(const SceneObject& drawn);
    void update(SceneObject* object);
    void transform(SceneObject* object, RenderView* preparedView);
    SceneObject* selectLevel(SceneObject* object, RenderView* preparedView);
    void testBounds(SceneObject* drawn, SceneObject* object, RenderView* preparedView);
    void light(SceneObject* drawn, SceneObject* object, RenderView* preparedView);
    void prepareVertices(SceneObject* drawn, SceneObject* object, RenderView* preparedView);
    bool passes(SceneFace* face, i32 index);

private:
    HostContext& context;
    const RenderView* const view;
    const Purpose purpose;
    Place callPlace;        // the call and the view
    Place objectPlace = {}; // and the object whose faces are visited
    bool cameraWasPrepared = false;
    bool preparedSinceVisit = true; // vertices were prepared after the last visit of faces
    bool anyVisible = false;
    bool listIsLit = false; // a material in the list of the visited object is lit
    FaceChecks faces;

    // The materials of the frame: 1 + the row, or `unusable`.
    static constexpr u32 unusable = ~0u;
    AddressTable usedMaterials;
    const SceneMaterial* lastMaterial = nullptr;
    u32 lastUse = unusable;

    u32 useOf(const SceneMaterial& material, const Place& place);
    bool mayBeEmitted(const SceneFace& face, const Place& place);
    Place placeOf(const SceneObject* object, const SceneObject* drawn = nullptr) const;
};

} // namespace kardeno::checked
