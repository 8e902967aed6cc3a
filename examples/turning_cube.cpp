// The host of turning_cube.c from C++, with a library that is loaded at run time: the same picture.
//
//     turning_cube_loaded LIBRARY FILE.ppm
//
// The records are bases of the host's own classes, so that a function of the host finds the object that it is for.
#include <kardeno_soft/kardeno_soft.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

using namespace kardeno;

namespace {

constexpr int size = 160, pictures = 4, width = pictures * size, sides = 6, texelsAcross = 64;

// The 28 functions, found by their names.
struct Renderer : Functions {
    bool load(const char* file)
    {
#ifdef _WIN32
        const HMODULE library = LoadLibraryA(file);
        const auto find = [library](const char* name) {
            return reinterpret_cast<void*>(GetProcAddress(library, name));
        };
#else
        void* const library = dlopen(file, RTLD_NOW);
        const auto find = [library](const char* name) { return dlsym(library, name); };
#endif
        if (!library) return false;
#define FIND(field, name)                                                                                              \
    field = reinterpret_cast<decltype(field)>(find(#name));                                                            \
    if (!field) return false;
        KARDENO_FUNCTIONS(FIND)
#undef FIND
        return true;
    }
};

struct Vector {
    double x, y, z;
};

Vector operator+(const Vector& a, const Vector& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Vector operator*(double factor, const Vector& a)
{
    return {factor * a.x, factor * a.y, factor * a.z};
}

// A side: the direction that it looks in, and what is right and up for somebody who looks at it.
struct Side {
    Vector normal, right, up;
};
constexpr Side cubeSides[sides] = {
    {{0, 0, -1}, {1, 0, 0}, {0, 1, 0}},  {{1, 0, 0}, {0, 0, 1}, {0, 1, 0}}, {{0, 0, 1}, {-1, 0, 0}, {0, 1, 0}},
    {{-1, 0, 0}, {0, 0, -1}, {0, 1, 0}}, {{0, 1, 0}, {1, 0, 0}, {0, 0, 1}}, {{0, -1, 0}, {1, 0, 0}, {0, 0, -1}},
};
constexpr TexCoord texCoords[4] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
constexpr i32 noGroup = 0;

// The services of the host, and what the renderer reads and writes of each vertex.
struct Context : HostContext {
    std::array<CameraVertex, 4 * sides> camera;
    std::array<ScreenVertex, 4 * sides> screen;
    std::array<VertexShade, 4 * sides> shades;
    std::array<u32, 4 * sides> outcodes, stamps{};

    Context() : HostContext{}
    {
        cameraVertices = camera.data();
        screenVertices = screen.data();
        vertexShades = shades.data();
        vertexOutcodes = outcodes.data();
        vertexStamps = stamps.data();
        alloc = [](u32 count, u32 bytes) { return std::calloc(count, bytes); };
        realloc = [](void* block, u32 bytes) { return std::realloc(block, bytes); };
        free = [](void* block) { std::free(block); };
        bitsPerPixel = bitsPerPixel565;
    }
};

// A chequered material of two colours, which the light brightens.
struct Material : SceneMaterial {
    struct {
        TextureImage head;
        u8 texels[texelsAcross * texelsAcross];
    } image{};
    std::array<u8, 256 * 4> colours{60, 90, 230, 0, 150, 220, 250, 0}; // blue, green, red, unused
    TextureMap map{};
    MaterialFlags flags{};

    Material() : SceneMaterial{}
    {
        image.head.bitsPerTexel = bitsPerTexelPalettised;
        image.head.indexMask = texelsAcross * texelsAcross - 1;
        image.head.rowShift = 6;
        image.head.width = image.head.height = texelsAcross;
        for (int i = 0; i < texelsAcross * texelsAcross; ++i) image.texels[i] = u8((i / 8 + i / texelsAcross / 8) & 1);
        map.image = &image.head;
        map.palette = colours.data();
        specularColour = tintColour = {255, 255, 255, 0, 0xffff};
        shininess = 50;
        specularLevel = 40;
        textureMap = &map;
        materialFlags = &flags;
    }
};

class Cube : public SceneObject {
public:
    Cube(Context& context, Material& material) : SceneObject{}, context_(context), node_{&material, nullptr}
    {
        for (i32 side = 0; side < sides; ++side) {
            SceneFace& face = faceRecords[std::size_t(side)];
            for (i32 corner = 0; corner < 4; ++corner) indices_[side][corner] = 4 * side + corner;
            face.vertexCount = 4;
            face.vertexIndices = indices_[side];
            face.texCoords = texCoords;
            face.material = &material;
            face.faceTest = &faceTest_;
            facePointers_[std::size_t(side)] = &face;
        }
        faceCount = sides;
        SceneObject::faces = facePointers_.data();
        materials = &node_;
        groupFlag = &noGroup;
        objectClass = &class_;

        functions_.update = [](SceneObject* object) { static_cast<Cube*>(object)->turnOn(); };
        functions_.transform = [](SceneObject* object, RenderView*) { static_cast<Cube*>(object)->turnNormals(); };
        functions_.selectLevel = [](SceneObject* object, RenderView*) { return object; };
        functions_.testBounds = [](SceneObject*, SceneObject* object, RenderView*) { object->visible = 1; };
        functions_.light = [](SceneObject*, SceneObject* object, RenderView*) { static_cast<Cube*>(object)->light(); };
        functions_.prepareVertices = [](SceneObject*, SceneObject* object, RenderView*) {
            static_cast<Cube*>(object)->prepare();
        };
        class_.functions = &functions_;
        faceTest_.test = [](SceneFace* face) { return i32(static_cast<Face*>(face)->isSeen); };
    }

    // A face that knows whether it looks towards the eye.
    struct Face : SceneFace {
        bool isSeen;
    };
    std::array<Face, sides> faceRecords{};

private:
    Vector turned(const Vector& v) const
    {
        const double z = cosine_ * v.z - sine_ * v.x;
        return {cosine_ * v.x + sine_ * v.z, 0.8 * v.y + 0.6 * z, 0.8 * z - 0.6 * v.y};
    }

    void turnOn()
    {
        const double before = cosine_;
        cosine_ = 0.8 * cosine_ - 0.6 * sine_;
        sine_ = 0.8 * sine_ + 0.6 * before;
    }

    void turnNormals()
    {
        for (std::size_t side = 0; side < sides; ++side) normals_[side] = turned(cubeSides[side].normal);
    }

    // The light comes from the upper left, from where the eye is.
    void light()
    {
        for (std::size_t i = 0; i < 4 * sides; ++i) {
            const Vector& normal = normals_[i / 4];
            const double facing = (3 * normal.y - 2 * normal.x - 6 * normal.z) / 7;
            context_.shades[i].intensity = f32(facing > 0 ? 50 + 150 * facing : 50);
        }
    }

    void prepare()
    {
        for (std::size_t side = 0; side < sides; ++side) {
            const auto& [normal, right, up] = cubeSides[side];
            // Counter-clockwise for somebody who looks at the side, from the upper left corner.
            const Vector corners[4] = {normal + -1 * right + up, normal + -1 * right + -1 * up,
                                       normal + right + -1 * up, normal + right + up};
            for (std::size_t corner = 0; corner < 4; ++corner) {
                const Vector place = turned(corners[corner]);
                context_.camera[4 * side + corner] = {f32(place.x), f32(place.y), f32(place.z + 3)};
                context_.outcodes[4 * side + corner] = outcodeAll; // as the whole cube is in view
            }
            const CameraVertex& first = context_.camera[4 * side];
            Face& face = faceRecords[side];
            face.normalX = f32(normals_[side].x);
            face.normalY = f32(normals_[side].y);
            face.normalZ = f32(normals_[side].z);
            face.isSeen = face.normalX * first.x + face.normalY * first.y + face.normalZ * first.z < 0;
        }
    }

    Context& context_;
    MaterialNode node_;
    ObjectFunctions functions_{};
    ObjectClass class_{};
    FaceTest faceTest_{};
    std::array<SceneFace*, sides> facePointers_{};
    std::array<Vector, sides> normals_{};
    i32 indices_[sides][4];
    double cosine_ = 1, sine_ = 0;
};

// Draws into the square that begins at column `left`, with a view of 90 degrees.
void drawAt(const Renderer& renderer, int left, SceneObject& object, u16* frameBuffer)
{
    CameraFunctions functions{};
    functions.prepare = [](SceneCamera*, RenderView*) {};
    SceneCamera camera{};
    camera.functions = &functions;

    const f32 half = size / 2, centre = f32(left) + half;
    const ViewProjection projection = {f32(left + size), size,     centre,        half, half, half,
                                       1 / half,         1 / half, centre / half, 1};
    RenderView view{};
    view.firstObject = &object;
    view.camera = &camera;
    view.left = f32(left);
    view.nearZ = 0.5f;
    view.farZ = 100;
    view.pitch = width;
    view.projection = &projection;
    renderer.render(&view, frameBuffer, 0, frameClear);
}

bool writePicture(const std::vector<u16>& pixels, const char* name)
{
    std::FILE* const file = std::fopen(name, "wb");
    if (!file) return false;
    std::fprintf(file, "P6 %d %d 255\n", width, size);
    for (const u16 pixel : pixels) {
        for (const int channel : {(pixel >> 11) * 255 / 31, (pixel >> 5 & 63) * 255 / 63, (pixel & 31) * 255 / 31})
            std::putc(channel, file);
    }
    return std::fclose(file) == 0;
}

int complain(const char* sentence, const char* name)
{
    std::fprintf(stderr, "turning_cube_loaded: '%s' %s\n", name, sentence);
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) return std::fprintf(stderr, "usage: turning_cube_loaded LIBRARY FILE.ppm\n"), 2;
    Renderer renderer;
    if (!renderer.load(argv[1])) return complain("is not the renderer", argv[1]);

    Context context;
    renderer.initRender(&context);
    Material material;
    if (!renderer.addMaterial(&material) || !renderer.setMaterialRenderState(&material, stateLit)) return 1;
    Cube cube(context, material);
    for (SceneFace& face : cube.faceRecords)
        if (!renderer.addFace(&face)) return 1;

    std::vector<u16> frameBuffer(width * size);
    for (int picture = 0; picture < pictures; ++picture) drawAt(renderer, picture * size, cube, frameBuffer.data());

    for (SceneFace& face : cube.faceRecords) renderer.releaseFace(&face);
    renderer.releaseMaterial(&material);
    return writePicture(frameBuffer, argv[2]) ? 0 : complain("cannot be written", argv[2]);
}
