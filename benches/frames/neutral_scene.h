// A host for the neutral scenes: one object, whose vertices, face tests and normals the renderer asks for in its
// callbacks, as it would ask any engine. The host's share of a frame is therefore part of its time.
//
// Texture coordinates, light and the planes of the faces in object space do not change and are made beforehand.
#pragma once

#include "benches/frames/scene_file.h"
#include "benches/frames/subject.h"
#include "benches/frames/variant.h"
#include "sample_host/host/renderer_table.h"

#include <deque>
#include <map>

namespace benches {

using namespace kardeno;

// How a scene is to be drawn.
struct Drawing {
    Variant variant;
    bool palettised = false; // unlit textures: a map of 8 bits and not of 16; lit ones always have 8
    i32 bitsPerPixel = 16;
    int width = 640, height = 480;
};

// The renderer's record of a face, and the face's plane in object space.
struct BenchFace : SceneFace {
    f32 planeX, planeY, planeZ, planeDistance;
};

// A frame's way from object space to camera space, in which the sides of the view are X = -Z, X = Z, Y = Z and Y = -Z.
struct CameraTransform {
    f32 points[3][4];
    f32 normals[3][3];
    f32 eye[3]; // in object space
};

class NeutralScene : public Subject {
public:
    // Both arguments must live as long as the scene. Ends with sample_host::fail when the renderer refuses something.
    NeutralScene(const sample_host::RendererTable& renderer, const SceneFile& file, const Drawing& drawing);
    NeutralScene(const NeutralScene&) = delete;
    NeutralScene& operator=(const NeutralScene&) = delete;

    int frameCount() const override { return int(file_.frames.size()); }
    void draw(int frame) override;
    std::span<const u16> pixels() const override { return pixels_; }

    // What the callbacks do.
    void prepareVertices();
    bool facesTheEye(BenchFace& face) const;

private:
    struct Material : SceneMaterial {
        MaterialFlags flagWords;
        MaterialNode node;
    };

    void makeContext();
    void makeTexture();
    void makeFaces();
    void makeView();
    u16 packed(const u8 (&colour)[3]) const;
    MaterialColour colour(u8 red, u8 green, u8 blue) const;
    SceneMaterial* materialFor(u8 red, u8 green, u8 blue, bool seeThrough);
    void setTransform(const FileMatrix& matrix);

    const sample_host::RendererTable& renderer_;
    const SceneFile& file_;
    const Drawing drawing_;
    HostContext context_{};
    std::vector<CameraVertex> cameraVertices_;
    std::vector<ScreenVertex> screenVertices_;
    std::vector<VertexShade> shades_;
    std::vector<u32> outcodes_, stamps_;

    std::vector<u32> imageRecord_; // a TextureImage with its texels behind it
    u8 palette_[1024] = {};
    TextureMap map_{};
    std::deque<Material> materials_;
    std::map<u32, SceneMaterial*> materialOfKey_;

    // A face whose back is seen has its corners the other way round.
    std::vector<BenchFace> faces_;
    std::vector<SceneFace*> facePointers_;
    std::vector<i32> frontIndices_, backIndices_;
    std::vector<TexCoord> frontCoordinates_, backCoordinates_;

    SceneObject object_{};
    ObjectClass objectClass_{};
    SceneCamera camera_{};
    ViewProjection projection_{};
    RenderView view_{};
    CameraTransform transform_{};
    std::vector<u16> pixels_;
};

} // namespace benches
