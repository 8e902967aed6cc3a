/* The smallest complete host: a lit, textured cube that turns, drawn four times side by side.

       turning_cube FILE.ppm

   The program is linked with the library. turning_cube.cpp draws the same picture with a library that is loaded at run
   time, and turning_cube.py does so from another language. */
#include <kardeno_soft/kardeno_soft.h>

#include <stdio.h>
#include <stdlib.h>

enum { size = 160, pictures = 4, width = pictures * size, sides = 6, vertices = 4 * sides, texels = 64 };

/* What the renderer reads and writes of each vertex. Every side of the cube has four vertices of its own. */
static KardenoCameraVertex cameraVertices[vertices];
static KardenoScreenVertex screenVertices[vertices];
static KardenoVertexShade vertexShades[vertices];
static uint32_t vertexOutcodes[vertices], vertexStamps[vertices];

/* The sides: the direction that a side looks in, and what is right and up for somebody who looks at it. */
static const double axes[sides][3][3] = {
    {{0, 0, -1}, {1, 0, 0}, {0, 1, 0}},  {{1, 0, 0}, {0, 0, 1}, {0, 1, 0}}, {{0, 0, 1}, {-1, 0, 0}, {0, 1, 0}},
    {{-1, 0, 0}, {0, 0, -1}, {0, 1, 0}}, {{0, 1, 0}, {1, 0, 0}, {0, 0, 1}}, {{0, -1, 0}, {1, 0, 0}, {0, 0, -1}},
};
/* The corners of a side: counter-clockwise for somebody who looks at it, from the upper left one. */
static const double cornerRight[4] = {-1, -1, 1, 1}, cornerUp[4] = {1, -1, -1, 1};
static const KardenoTexCoord texCoords[4] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};

static KardenoSceneFace faces[sides], *faceList[sides];
static int32_t vertexIndices[sides][4];
static double normals[sides][3], cosine = 1, sine = 0;
static uint16_t frameBuffer[width * size];

/* Turns a direction with the cube and tilts it so that the top is seen. X is right, Y up, and Z away from the eye. */
static void turn(const double in[3], double out[3])
{
    const double z = cosine * in[2] - sine * in[0];
    out[0] = cosine * in[0] + sine * in[2];
    out[1] = 0.8 * in[1] + 0.6 * z;
    out[2] = 0.8 * z - 0.6 * in[1];
}

/* What the renderer asks of its host, in the order in which it asks. The eye stays where it is, there is one cube and
   no simpler one for far away, and it is always seen. */

static void KARDENO_CALL prepareCamera(KardenoSceneCamera* eye, KardenoRenderView* view) {}

static void KARDENO_CALL update(KardenoSceneObject* cube)
{
    const double before = cosine;
    cosine = 0.8 * cosine - 0.6 * sine; /* a turn of 37 degrees */
    sine = 0.8 * sine + 0.6 * before;
}

static void KARDENO_CALL transform(KardenoSceneObject* cube, KardenoRenderView* view)
{
    for (int side = 0; side < sides; ++side) turn(axes[side][0], normals[side]);
}

static KardenoSceneObject* KARDENO_CALL selectLevel(KardenoSceneObject* cube, KardenoRenderView* view)
{
    return cube;
}

static void KARDENO_CALL testBounds(KardenoSceneObject* drawn, KardenoSceneObject* cube, KardenoRenderView* view)
{
    cube->visible = 1;
}

/* The light comes from the upper left, from where the eye is. */
static void KARDENO_CALL light(KardenoSceneObject* drawn, KardenoSceneObject* cube, KardenoRenderView* view)
{
    for (int i = 0; i < vertices; ++i) {
        const double* normal = normals[i / 4];
        const double facing = (3 * normal[1] - 2 * normal[0] - 6 * normal[2]) / 7;
        vertexShades[i].intensity = (float)(facing > 0 ? 50 + 150 * facing : 50);
    }
}

static void KARDENO_CALL prepareVertices(KardenoSceneObject* drawn, KardenoSceneObject* cube, KardenoRenderView* view)
{
    for (int i = 0; i < vertices; ++i) {
        const double(*axis)[3] = axes[i / 4], right = cornerRight[i % 4], up = cornerUp[i % 4];
        double place[3], seen[3];
        for (int k = 0; k < 3; ++k) place[k] = axis[0][k] + right * axis[1][k] + up * axis[2][k];
        turn(place, seen);
        cameraVertices[i] = (KardenoCameraVertex){(float)seen[0], (float)seen[1], (float)(seen[2] + 3)};
        vertexOutcodes[i] = kardenoOutcodeAll; /* as the whole cube is in view */
    }
    for (int side = 0; side < sides; ++side) {
        faces[side].normalX = (float)normals[side][0];
        faces[side].normalY = (float)normals[side][1];
        faces[side].normalZ = (float)normals[side][2];
    }
}

/* A side is seen when it looks towards the eye. */
static int32_t KARDENO_CALL testFace(KardenoSceneFace* face)
{
    const KardenoCameraVertex* corner = &cameraVertices[face->vertexIndices[0]];
    return face->normalX * corner->x + face->normalY * corner->y + face->normalZ * corner->z < 0;
}

/* clang-format off */
static void* KARDENO_CALL allocate(uint32_t count, uint32_t bytes) { return calloc(count, bytes); }
static void* KARDENO_CALL reallocate(void* block, uint32_t bytes) { return realloc(block, bytes); }
static void KARDENO_CALL release(void* block) { free(block); }

/* The records, from the smallest to those that point at them. What is not named is 0. */
static KardenoHostContext context = {
    .cameraVertices = cameraVertices, .screenVertices = screenVertices, .vertexShades = vertexShades,
    .vertexOutcodes = vertexOutcodes, .vertexStamps = vertexStamps,
    .alloc = allocate, .realloc = reallocate, .free = release, .bitsPerPixel = kardenoBitsPerPixel565,
};
static const KardenoCameraFunctions cameraFunctions = {.prepare = prepareCamera};
static KardenoSceneCamera camera = {.functions = &cameraFunctions};

/* A chequered texture of palette indices: two colours, which the light brightens. */
static struct {
    KardenoTextureImage head;
    uint8_t texels[texels * texels];
} image = {.head = {.bitsPerTexel = kardenoBitsPerTexelPalettised, .indexMask = texels * texels - 1, .rowShift = 6,
                    .width = texels, .height = texels}};
static const uint8_t palette[256 * 4] = {60, 90, 230, 0, 150, 220, 250, 0}; /* blue, green, red, unused */
static KardenoTextureMap textureMap = {.image = &image.head, .palette = palette};
static KardenoMaterialFlags materialFlags;
static KardenoSceneMaterial material = {
    .specularColour = {255, 255, 255, 0, 0xffff}, .shininess = 50, .specularLevel = 40,
    .tintColour = {255, 255, 255, 0, 0xffff}, .textureMap = &textureMap, .materialFlags = &materialFlags,
};
static KardenoMaterialNode materials = {.material = &material};

static const KardenoFaceTest faceTest = {.test = testFace};
static const KardenoObjectFunctions objectFunctions = {
    .update = update, .transform = transform, .selectLevel = selectLevel, .testBounds = testBounds, .light = light,
    .prepareVertices = prepareVertices,
};
static KardenoObjectClass objectClass = {.functions = &objectFunctions};
static const int32_t noGroup = 0;
static KardenoSceneObject cubeObject = {
    .faceCount = sides, .faces = faceList, .materials = &materials, .groupFlag = &noGroup, .objectClass = &objectClass,
};

static int addEverything(void)
{
    Kardeno_Init_Render_Dll(&context);
    for (int i = 0; i < texels * texels; ++i) image.texels[i] = (uint8_t)((i / 8 + i / texels / 8) & 1);
    if (!Kardeno_Add_Material_Dll(&material)) return 0;
    if (!Kardeno_Set_Material_Render_State_Dll(&material, kardenoStateLit)) return 0;
    for (int i = 0; i < vertices; ++i) vertexIndices[i / 4][i % 4] = i;
    for (int side = 0; side < sides; ++side) {
        faceList[side] = &faces[side];
        faces[side] = (KardenoSceneFace){
            .vertexCount = 4, .vertexIndices = vertexIndices[side], .texCoords = texCoords,
            .material = &material, .faceTest = &faceTest,
        };
        if (!Kardeno_Add_Face_Dll(&faces[side])) return 0;
    }
    return 1;
}

/* Draws into the square that begins at column `left`, with a view of 90 degrees. */
static void drawAt(int left)
{
    const float half = size / 2, centreX = left + half;
    const KardenoViewProjection projection = {
        .right = left + size, .bottom = size, .centreX = centreX, .centreY = half, .scaleX = half, .scaleY = half,
        .invScaleX = 1 / half, .invScaleY = 1 / half, .centreXOverScaleX = centreX / half, .centreYOverScaleY = 1,
    };
    KardenoRenderView view = {
        .firstObject = &cubeObject, .camera = &camera, .left = left, .nearZ = 0.5f, .farZ = 100, .pitch = width,
        .projection = &projection,
    };
    Kardeno_Render_Dll(&view, frameBuffer, 0, kardenoFrameClear);
}
/* clang-format on */

static int writePicture(const char* name)
{
    FILE* file = fopen(name, "wb");
    if (!file) return 0;
    fprintf(file, "P6 %d %d 255\n", width, size);
    for (const uint16_t* pixel = frameBuffer; pixel < frameBuffer + width * size; ++pixel)
        fprintf(file, "%c%c%c", (*pixel >> 11) * 255 / 31, (*pixel >> 5 & 63) * 255 / 63, (*pixel & 31) * 255 / 31);
    return fclose(file) == 0;
}

int main(int argc, char** argv)
{
    if (argc != 2) return fprintf(stderr, "usage: turning_cube FILE.ppm\n"), 2;
    if (!addEverything()) return fprintf(stderr, "turning_cube: there is no memory\n"), 1;
    for (int picture = 0; picture < pictures; ++picture) drawAt(picture * size);
    for (int side = 0; side < sides; ++side) Kardeno_Release_Face_Dll(&faces[side]);
    Kardeno_Release_Material_Dll(&material);
    if (!writePicture(argv[1])) return fprintf(stderr, "turning_cube: '%s' cannot be written\n", argv[1]), 1;
    return 0;
}
