// What a frame and a pick write into the host's memory: every byte is compared, gaps included.
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// Fills the bytes that belong to the host alone, so that a stray write of 0 shows.
template <class Record, class... Fields>
void paintGaps(Record& record, Fields Record::*... fields)
{
    Record painted;
    std::memset(static_cast<void*>(&painted), 0xa5, sizeof painted);
    ((painted.*fields = record.*fields), ...);
    std::memcpy(static_cast<void*>(&record), &painted, sizeof painted);
}

// Copies of blocks of memory, and what has changed in them since.
class Snapshot {
public:
    void watch(const std::string& name, const void* block, size_t bytes)
    {
        const u8* const begin = static_cast<const u8*>(block);
        blocks.push_back({name, begin, std::vector<u8>(begin, begin + bytes)});
    }
    template <class Record>
    void watch(const std::string& name, const Record& record)
    {
        watch(name, &record, sizeof record);
    }

    // "<name> + <offset>" of every changed word, in the order in which the blocks were given.
    std::vector<std::string> changes() const
    {
        std::vector<std::string> result;
        for (const Block& block : blocks) {
            for (size_t i = 0; i < block.before.size(); i += 4) {
                const size_t bytes = std::min<size_t>(4, block.before.size() - i);
                if (std::memcmp(block.live + i, &block.before[i], bytes) != 0)
                    result.push_back(block.name + " + " + std::to_string(i));
            }
        }
        return result;
    }

private:
    struct Block {
        std::string name;
        const u8* live;
        std::vector<u8> before;
    };
    std::vector<Block> blocks;
};

// A scene with a face for most ways of drawing, a group and a level, and all of its memory under watch.
class WatchedScene {
public:
    TestHost host{16};
    TestScene scene{
        host,
        {.right = 64, .bottom = 48, .nearZ = 1, .farZ = 100, .centreX = 32, .centreY = 24, .scaleX = 32, .scaleY = 32}};
    TestFrame frame{64, 48};
    Snapshot snapshot;

    WatchedScene()
    {
        addMaterials();
        TestObject& group = addObject("group", scene.addRoot());
        TestObject& part = addObject("part", scene.addObject("", &group));
        TestObject& plain = addObject("plain", scene.addRoot());
        TestObject& level = addObject("level", scene.addObject("", nullptr));
        group.isGroup = 1;
        group.boundsVisible = 0; // the part's bounds bring it into sight
        part.partOfGroup = 1;
        plain.level = &level;
        addFaces(group, 6);
        addFaces(part, 7);
        addFaces(level, 8);

        paintRecords();
        watchAll();
    }

    void draw(u8 flags) { scene.draw(frame, flags); }

private:
    TestTexture trueColour{16, 8, 8};
    TestTexture palettised{8, 8, 8};
    std::vector<TestMaterial*> materials;
    std::vector<TestObject*> objects;
    std::vector<TestFace*> faces;

    void addMaterials()
    {
        for (const i32 shading : {0, 1, 2, 10, 11}) materials.push_back(&scene.addMaterial(0, &trueColour, shading));
        for (const i32 shading : {0, 1, 2}) materials.push_back(&scene.addMaterial(1, &palettised, shading));
        for (const i32 state : {0, 1, 2, 3})
            for (const i32 transparency : {0, 50})
                materials.push_back(&scene.addMaterial(state, nullptr, 0, transparency));
        materials.push_back(&scene.addMaterial(0, &palettised));
        materials.push_back(&scene.addMaterial(0, &trueColour, 0, 50));
        for (const i32 shading : {0, 1}) materials.push_back(&scene.addMaterial(2, &palettised, shading, 50));
    }

    TestObject& addObject(const std::string& name, TestObject& object)
    {
        object.name = name;
        objects.push_back(&object);
        return object;
    }

    // For each material a face inside the view and one that crosses the near plane and all four sides.
    void addFaces(TestObject& object, f32 z)
    {
        const std::vector<TexCoord> coordinates = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
        for (TestMaterial* material : materials) {
            faces.push_back(&scene.addFace(object, *material, TestScene::rectangle(10, 8, 30, 28, z), coordinates));
            faces.push_back(&scene.addFace(
                object, *material, {{-20, -20, z}, {-20, 70, 0.5f}, {90, 70, 0.5f}, {90, -20, z}}, coordinates));
        }
    }

    void paintRecords()
    {
        paintGaps(host.context(), &HostContext::cameraVertices, &HostContext::screenVertices,
                  &HostContext::vertexShades, &HostContext::vertexOutcodes, &HostContext::vertexStamps,
                  &HostContext::alloc, &HostContext::realloc, &HostContext::free, &HostContext::bitsPerPixel,
                  &HostContext::projectionStamp);
        scene.view.record.pitch = frame.pitch();
        paintGaps(scene.view.record, &RenderView::firstObject, &RenderView::camera, &RenderView::left, &RenderView::top,
                  &RenderView::nearZ, &RenderView::farZ, &RenderView::pitch, &RenderView::projection);
        paintGaps(scene.camera, &SceneCamera::functions);
        for (TestObject* object : objects) {
            object->visible = object->boundsVisible; // what the host's own callback will store
            paintGaps<SceneObject>(*object, &SceneObject::firstChild, &SceneObject::nextSibling, &SceneObject::nextRoot,
                                   &SceneObject::partOfGroup, &SceneObject::faceCount, &SceneObject::faces,
                                   &SceneObject::visible, &SceneObject::materials, &SceneObject::groupFlag,
                                   &SceneObject::objectClass);
        }
        for (TestFace* face : faces) {
            paintGaps<SceneFace>(*face, &SceneFace::vertexCount, &SceneFace::vertexIndices, &SceneFace::texCoords,
                                 &SceneFace::material, &SceneFace::normalX, &SceneFace::normalY, &SceneFace::normalZ,
                                 &SceneFace::faceColour, &SceneFace::faceTest);
        }
        for (TestMaterial* material : materials) {
            paintGaps<SceneMaterial>(
                *material, &SceneMaterial::ambientColour, &SceneMaterial::diffuseColour, &SceneMaterial::specularColour,
                &SceneMaterial::tintColour, &SceneMaterial::shininess, &SceneMaterial::specularLevel,
                &SceneMaterial::transparency, &SceneMaterial::shadingMode, &SceneMaterial::textureMap,
                &SceneMaterial::materialFlags, &SceneMaterial::renderPrivate);
        }
        for (TestTexture* texture : {&trueColour, &palettised}) {
            paintGaps(texture->map, &TextureMap::transparentIndex, &TextureMap::transparentColour, &TextureMap::image,
                      &TextureMap::palette);
        }
    }

    void watchAll()
    {
        snapshot.watch("context", host.context());
        snapshot.watch("view", scene.view.record);
        snapshot.watch("projection", scene.view.projection);
        snapshot.watch("camera", scene.camera);
        snapshot.watch("camera functions", scene.cameraFunctions);
        for (const TestObject* object : objects) {
            snapshot.watch(object->name, static_cast<const SceneObject&>(*object));
            snapshot.watch("class", object->ownClass);
            snapshot.watch("functions", object->functions);
            snapshot.watch("group flag", object->isGroup);
            snapshot.watch("faces", object->faceList.data(), object->faceList.size() * sizeof(SceneFace*));
            for (const MaterialNode& node : object->nodes) snapshot.watch("material node", node);
        }
        for (const TestFace* face : faces) {
            snapshot.watch("face", static_cast<const SceneFace&>(*face));
            snapshot.watch("face colour", *face->faceColour);
            snapshot.watch("face test", *face->faceTest);
            snapshot.watch("indices", face->indices.data(), face->indices.size() * sizeof(i32));
            snapshot.watch("coordinates", face->coordinates.data(), face->coordinates.size() * sizeof(TexCoord));
        }
        for (const TestMaterial* material : materials) {
            snapshot.watch("material", static_cast<const SceneMaterial&>(*material));
            snapshot.watch("flags", material->flagBlock);
            snapshot.watch("private record", *material->renderPrivate);
        }
        for (TestTexture* texture : {&trueColour, &palettised}) {
            const size_t texels = 64 * (texture->image().bitsPerTexel == 8 ? 1 : 2);
            snapshot.watch("map", texture->map);
            snapshot.watch("image", &texture->image(), sizeof(TextureImage) + texels);
            snapshot.watch("palette", texture->map.palette, 1024);
        }
        snapshot.watch("camera vertices", host.cameraVertices.data(),
                       host.cameraVertices.size() * sizeof(CameraVertex));
        snapshot.watch("shades", host.shades.data(), host.shades.size() * sizeof(VertexShade));
        snapshot.watch("outcodes", host.outcodes.data(), host.outcodes.size() * sizeof(u32));
    }
};

const std::vector<std::string> written = {"context + " + std::to_string(offsetof(HostContext, projectionStamp)),
                                          "group + " + std::to_string(offsetof(SceneObject, visible))};

} // namespace

TEST_CASE("of the host's records a frame writes the projection stamp and a group's visible, besides the vertex cache")
{
    WatchedScene scene;
    for (const u8 flags : {0, 1}) scene.draw(flags);
    CHECK(scene.snapshot.changes() == written);
    if (sizeof(void*) == 4) CHECK(written == std::vector<std::string>{"context + 16832", "group + 92"});
    CHECK(scene.frame.fencesStand());
}

TEST_CASE("of the vertex cache a frame writes the entries of faces inside both depth planes")
{
    WatchedScene scene;
    const ScreenVertex mark = {-7, -7, -7};
    for (ScreenVertex& vertex : scene.host.screenVertices) vertex = mark;
    scene.draw(0);
    i32 projected = 0;
    for (size_t i = 0; i < scene.host.screenVertices.size(); ++i) {
        const bool changed = scene.host.screenVertices[i].invDepth != mark.invDepth;
        CHECK(changed == (scene.host.stamps[i] != 0));
        CHECK(changed == (i / 4 % 2 == 0)); // every other face crosses the near plane
        projected += changed;
    }
    CHECK(projected == static_cast<i32>(scene.host.screenVertices.size()) / 2);
}

TEST_CASE("a pick writes what a frame writes and nothing else")
{
    WatchedScene scene;
    i32 faceIndex;
    f32 depth;
    CHECK(Kardeno_Pick_Dll(&scene.scene.view.record, 20, 20, &faceIndex, &depth) != nullptr);
    CHECK(scene.snapshot.changes() == written);
}

TEST_CASE("a frame that is abandoned or refused writes no more than a whole one")
{
    WatchedScene scene;
    for (i32 n = 1; n <= 12; ++n) {
        CAPTURE(n);
        forgetPools();
        scene.host.refuse(n);
        scene.draw(1);
        CHECK(scene.snapshot.changes() == written);
    }
    scene.host.refuseNothing();
}
