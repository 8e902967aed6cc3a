// How each face of a frame fared. The renderer's functions are handed to the engine through a table; functions of the
// inspector stand in front of those that announce objects and faces, and thereby between the renderer and
// the host's callbacks. They watch the renderer's lists between two face tests and so find out which face became which
// polygon, although neither of them says so. Nothing that is drawn depends on any of this.
#pragma once

#include "inspector/followed_face.h"
#include "sample_host/host/object.h"

namespace inspector {

using namespace sample_host;

enum class FaceFate {
    hidden,   // the host's own test failed: it shows its back
    outside,  // some plane has all of it on its outer side, or nothing was left of it
    oneRow,   // all corners lie on one row: it is counted and not kept
    recorded, // it is a polygon of a list
};

struct FaceRecord {
    const Object* object;     // of the scene
    const SceneObject* drawn; // whose geometry is drawn
    i32 index;                // of the face in that geometry
    const SceneFace* face;
    bool cut; // some plane goes through it
    FaceFate fate;
    i32 list;       // 0: resolved, 1: sorted, 2: late sorted; -1: in none
    u32 byteOffset; // of the polygon in its list's block
};

struct FrameRecord {
    std::vector<FaceRecord> faces;
    i32 objectsPrepared = 0;
    FollowedFace followed;
};

// The table with the inspector's functions in front.
RendererTable recordingRenderer(const RendererTable& renderer);

// Between these two calls the record is filled by the frame that is drawn. It notes the stages of one face's clipping.
void startRecord(FrameRecord& record, i32 followed);
void endRecord();

} // namespace inspector
