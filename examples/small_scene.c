/* A host with a group of parts, a translucent pane, a billboard, and picks: what turning_cube.c leaves out.

       small_scene FILE.ppm

   It draws the scene into the file and says what lies under some pixels. */
#include <kardeno_soft/kardeno_soft.h>

#include <stdio.h>
#include <stdlib.h>

enum { width = 320, height = 240, mostThings = 8, sides = 6, glow = 32 };

static KardenoCameraVertex cameraVertices[mostThings * 4 * sides];
static KardenoScreenVertex screenVertices[mostThings * 4 * sides];
static KardenoVertexShade vertexShades[mostThings * 4 * sides];
static uint32_t vertexOutcodes[mostThings * 4 * sides], vertexStamps[mostThings * 4 * sides];
static uint16_t frameBuffer[width * height];

/* An object of this host: a box, or only its first side. The renderer's record stands first, so that a pointer to it is
   one to the thing. */
typedef struct Thing {
    KardenoSceneObject record;
    const char* name;
    double place[3], half[3]; /* in the scene: the middle, and half the size */
    int firstVertex;
    KardenoMaterialNode materials;
    KardenoSceneFace faces[sides], *faceList[sides];
    int32_t indices[sides][4];
} Thing;

/* The sides of a box: the direction that a side looks in, and what is right and up for somebody who looks at it. */
static const double axes[sides][3][3] = {
    {{0, 0, -1}, {1, 0, 0}, {0, 1, 0}},  {{1, 0, 0}, {0, 0, 1}, {0, 1, 0}}, {{0, 0, 1}, {-1, 0, 0}, {0, 1, 0}},
    {{-1, 0, 0}, {0, 0, -1}, {0, 1, 0}}, {{0, 1, 0}, {1, 0, 0}, {0, 0, 1}}, {{0, -1, 0}, {1, 0, 0}, {0, 0, -1}},
};
/* The corners of a side: counter-clockwise for somebody who looks at it, from the upper left one. */
static const double cornerRight[4] = {-1, -1, 1, 1}, cornerUp[4] = {1, -1, -1, 1};
static const KardenoTexCoord texCoords[4] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};

/* From the scene to the camera, which stands before the scene, somewhat above it, and looks a little down. The view of
   the renderer is 90 degrees wide and high; Y is stretched by what the picture is wider than high. */
static KardenoCameraVertex seen(const double place[3])
{
    const double x = 0.8 * place[0] + 0.6 * place[2], z = 0.8 * place[2] - 0.6 * place[0], y = place[1] - 1.5;
    const KardenoCameraVertex vertex = {
        (float)x,
        (float)((12 * y + 5 * (z + 4)) / 13 * width / height),
        (float)((12 * (z + 4) - 5 * y) / 13),
    };
    return vertex;
}

/* A bit for each plane that the vertex is inside of. Between the near and the far plane the other four bits are found
   on the screen, exactly as the renderer projects the vertex; elsewhere in camera space. */
static uint32_t outcode(const KardenoRenderView* view, const KardenoCameraVertex* vertex)
{
    const KardenoViewProjection* p = view->projection;
    const double x = vertex->x, y = vertex->y, z = vertex->z;
    const int isNearEnough = z <= view->farZ, isFarEnough = z >= view->nearZ;
    int isRight = x >= -z, isLeft = x <= z, isBelow = y <= z, isAbove = y >= -z;
    if (isNearEnough && isFarEnough) {
        const float inverse = (float)(1 / z);
        const float screenX = (float)(p->scaleX * x * inverse + p->centreX);
        const float screenY = (float)(p->centreY - y * p->scaleY * inverse);
        isRight = screenX >= view->left;
        isLeft = screenX <= p->right;
        isBelow = screenY >= view->top;
        isAbove = screenY <= p->bottom;
    }
    return (isFarEnough ? kardenoOutcodeNear : 0u) | (isNearEnough ? kardenoOutcodeFar : 0u)
           | (isRight ? kardenoOutcodeLeft : 0u) | (isLeft ? kardenoOutcodeRight : 0u)
           | (isBelow ? kardenoOutcodeTop : 0u) | (isAbove ? kardenoOutcodeBottom : 0u);
}

/* What the renderer asks of its host. Nothing moves here, so there is little to answer. */

static void KARDENO_CALL prepareCamera(KardenoSceneCamera* camera, KardenoRenderView* view) {}

static void KARDENO_CALL update(KardenoSceneObject* object) {}

static void KARDENO_CALL transform(KardenoSceneObject* object, KardenoRenderView* view) {}

static KardenoSceneObject* KARDENO_CALL selectLevel(KardenoSceneObject* object, KardenoRenderView* view)
{
    return object;
}

static void KARDENO_CALL testBounds(KardenoSceneObject* drawn, KardenoSceneObject* object, KardenoRenderView* view)
{
    object->visible = 1;
}

/* The light comes from above, from the left and from where the eye is. */
static void KARDENO_CALL light(KardenoSceneObject* drawn, KardenoSceneObject* object, KardenoRenderView* view)
{
    const Thing* thing = (const Thing*)drawn;
    for (int side = 0; side < drawn->faceCount; ++side) {
        const double* normal = axes[side][0];
        const double facing = (6 * normal[1] - 2 * normal[0] - 3 * normal[2]) / 7;
        for (int corner = 0; corner < 4; ++corner)
            vertexShades[thing->firstVertex + 4 * side + corner].intensity =
                (float)(facing > 0 ? 100 + 150 * facing : 100);
    }
}

static void KARDENO_CALL prepareVertices(KardenoSceneObject* drawn, KardenoSceneObject* object, KardenoRenderView* view)
{
    Thing* thing = (Thing*)drawn;
    for (int side = 0; side < drawn->faceCount; ++side) {
        KardenoCameraVertex* v = &cameraVertices[thing->firstVertex + 4 * side];
        KardenoSceneFace* face = &thing->faces[side];
        for (int corner = 0; corner < 4; ++corner) {
            double place[3];
            for (int axis = 0; axis < 3; ++axis)
                place[axis] = thing->place[axis]
                              + thing->half[axis]
                                    * (axes[side][0][axis] + cornerRight[corner] * axes[side][1][axis]
                                       + cornerUp[corner] * axes[side][2][axis]);
            v[corner] = seen(place);
            vertexOutcodes[thing->firstVertex + 4 * side + corner] = outcode(view, &v[corner]);
        }
        /* The normal belongs to the plane as the camera sees it, stretched; so it is found from the corners there. */
        const double a[3] = {(double)v[1].x - v[0].x, (double)v[1].y - v[0].y, (double)v[1].z - v[0].z};
        const double b[3] = {(double)v[2].x - v[0].x, (double)v[2].y - v[0].y, (double)v[2].z - v[0].z};
        face->normalX = (float)(a[1] * b[2] - a[2] * b[1]);
        face->normalY = (float)(a[2] * b[0] - a[0] * b[2]);
        face->normalZ = (float)(a[0] * b[1] - a[1] * b[0]);
    }
}

/* Such a normal points away from the eye when the front of the face is seen. */
static int32_t KARDENO_CALL testFace(KardenoSceneFace* face)
{
    const KardenoCameraVertex* v = &cameraVertices[face->vertexIndices[0]];
    return (double)face->normalX * v->x + (double)face->normalY * v->y + (double)face->normalZ * v->z > 0;
}

static void* KARDENO_CALL allocate(uint32_t count, uint32_t bytes)
{
    return calloc(count, bytes);
}

static void* KARDENO_CALL reallocate(void* block, uint32_t bytes)
{
    return realloc(block, bytes);
}

static void KARDENO_CALL release(void* block)
{
    free(block);
}

static KardenoHostContext context = {
    .cameraVertices = cameraVertices,
    .screenVertices = screenVertices,
    .vertexShades = vertexShades,
    .vertexOutcodes = vertexOutcodes,
    .vertexStamps = vertexStamps,
    .alloc = allocate,
    .realloc = reallocate,
    .free = release,
    .bitsPerPixel = kardenoBitsPerPixel565,
};
static const KardenoCameraFunctions cameraFunctions = {.prepare = prepareCamera};
static KardenoSceneCamera camera = {.functions = &cameraFunctions};
static const KardenoFaceTest faceTest = {.test = testFace};
static const KardenoObjectFunctions objectFunctions = {
    .update = update,
    .transform = transform,
    .selectLevel = selectLevel,
    .testBounds = testBounds,
    .light = light,
    .prepareVertices = prepareVertices,
};
static KardenoObjectClass objectClass = {.functions = &objectFunctions};
static const int32_t isGroup = 1, isNoGroup = 0;

static uint16_t packed(int red, int green, int blue)
{
    return (uint16_t)(red >> 3 << 11 | green >> 2 << 5 | blue >> 3);
}

static KardenoMaterialColour colour(int red, int green, int blue)
{
    const KardenoMaterialColour result = {(uint8_t)red, (uint8_t)green, (uint8_t)blue, 0, packed(red, green, blue)};
    return result;
}

/* A material of one colour. */
static KardenoSceneMaterial* newMaterial(int red, int green, int blue)
{
    KardenoSceneMaterial* material = calloc(1, sizeof *material);
    material->ambientColour = colour(red / 4, green / 4, blue / 4);
    material->diffuseColour = colour(red, green, blue);
    material->specularColour = material->tintColour = colour(255, 255, 255);
    material->shininess = 60;
    material->specularLevel = 30;
    material->materialFlags = calloc(1, sizeof *material->materialFlags);
    return material;
}

static KardenoSceneMaterial* added(KardenoSceneMaterial* material, int32_t state)
{
    if (Kardeno_Add_Material_Dll(material) && Kardeno_Set_Material_Render_State_Dll(material, state)) return material;
    exit(1);
}

/* A round glow of 16-bit texels, which a billboard adds to what lies behind it. */
static KardenoTextureMap* newGlow(void)
{
    static struct {
        KardenoTextureImage head;
        uint16_t texels[glow * glow];
    } image = {.head = {.bitsPerTexel = kardenoBitsPerTexelPixels,
                        .indexMask = glow * glow - 1,
                        .rowShift = 5,
                        .width = glow,
                        .height = glow}};
    static KardenoTextureMap map = {.image = &image.head};
    for (int i = 0; i < glow * glow; ++i) {
        const int x = 2 * (i % glow) + 1 - glow, y = 2 * (i / glow) + 1 - glow;
        const int bright = 255 - (x * x + y * y) * 255 / (glow * glow);
        image.texels[i] = bright > 0 ? packed(bright, bright * 3 / 4, bright / 4) : 0;
    }
    return &map;
}

static Thing things[mostThings];
static int thingCount;

/* A box, or a single side of one. */
static Thing* add(const char* name, int sideCount, KardenoSceneMaterial* material, const double place[3],
                  const double half[3])
{
    Thing* thing = &things[thingCount];
    thing->name = name;
    thing->firstVertex = 4 * sides * thingCount++;
    for (int axis = 0; axis < 3; ++axis) {
        thing->place[axis] = place[axis];
        thing->half[axis] = half[axis];
    }
    thing->materials.material = material;
    for (int side = 0; side < sideCount; ++side) {
        for (int corner = 0; corner < 4; ++corner)
            thing->indices[side][corner] = thing->firstVertex + 4 * side + corner;
        thing->faceList[side] = &thing->faces[side];
        thing->faces[side].vertexCount = 4;
        thing->faces[side].vertexIndices = thing->indices[side];
        thing->faces[side].texCoords = texCoords;
        thing->faces[side].material = material;
        thing->faces[side].faceTest = &faceTest;
        if (!Kardeno_Add_Face_Dll(&thing->faces[side])) exit(1);
    }
    thing->record.faceCount = sideCount;
    thing->record.faces = thing->faceList;
    thing->record.materials = &thing->materials;
    thing->record.groupFlag = &isNoGroup;
    thing->record.objectClass = &objectClass;
    return thing;
}

#define PLACE(x, y, z) ((const double[]){x, y, z})

static KardenoSceneObject* buildScene(void)
{
    KardenoSceneMaterial* grass = added(newMaterial(60, 110, 50), kardenoStateUnlit);
    KardenoSceneMaterial* wall = added(newMaterial(200, 170, 120), kardenoStateLit);
    KardenoSceneMaterial* roof = added(newMaterial(190, 60, 40), kardenoStateLit);

    /* Half of what lies behind shines through. */
    KardenoSceneMaterial* glass = newMaterial(80, 140, 230);
    glass->transparency = kardenoTransparencyHalf;
    added(glass, kardenoStateUnlit);

    /* A billboard is one face of four corners, which is drawn as a square that faces the eye. */
    KardenoSceneMaterial* shine = newMaterial(255, 255, 255);
    shine->textureMap = newGlow();
    shine->shadingMode = kardenoShadingBillboard;
    added(shine, kardenoStateUnlit);

    Thing* ground = add("ground", sides, grass, PLACE(0, -0.1, 0), PLACE(2.5, 0.1, 2.5));
    Thing* house = add("house", sides, wall, PLACE(0.3, 0.6, 0.5), PLACE(0.8, 0.6, 0.6));
    Thing* top = add("roof", sides, roof, PLACE(0.3, 1.35, 0.5), PLACE(0.9, 0.15, 0.7));
    Thing* chimney = add("chimney", sides, wall, PLACE(0.7, 1.75, 0.6), PLACE(0.12, 0.25, 0.12));
    Thing* pane = add("pane", 1, glass, PLACE(-0.3, 0.7, -1.1), PLACE(0.6, 0.6, 0));
    Thing* lamp = add("lamp", 1, shine, PLACE(-1.2, 1.2, 0), PLACE(0.5, 0.5, 0));

    /* The house is a group: it and its parts are culled and drawn as one. Parts may have parts. */
    house->record.groupFlag = &isGroup;
    house->record.firstChild = &top->record;
    top->record.partOfGroup = 1;
    top->record.firstChild = &chimney->record;
    chimney->record.partOfGroup = 1;

    ground->record.nextRoot = &house->record;
    house->record.nextRoot = &pane->record;
    pane->record.nextRoot = &lamp->record;
    return &ground->record;
}

static void sayWhatLiesUnder(KardenoRenderView* view, int x, int y)
{
    int32_t side;
    float z;
    const Thing* thing = (const Thing*)Kardeno_Pick_Dll(view, (float)x, (float)y, &side, &z);
    if (thing)
        printf("(%d, %d): %s, side %d, %.2f away\n", x, y, thing->name, (int)side, z);
    else
        printf("(%d, %d): nothing\n", x, y);
}

static int writePicture(const char* name)
{
    FILE* file = fopen(name, "wb");
    if (!file) return 0;
    fprintf(file, "P6 %d %d 255\n", width, height);
    for (int i = 0; i < width * height; ++i) {
        putc((frameBuffer[i] >> 11) * 255 / 31, file);
        putc((frameBuffer[i] >> 5 & 63) * 255 / 63, file);
        putc((frameBuffer[i] & 31) * 255 / 31, file);
    }
    return fclose(file) == 0;
}

int main(int argc, char** argv)
{
    static const KardenoViewProjection projection = {
        .right = width,
        .bottom = height,
        .centreX = width / 2,
        .centreY = height / 2,
        .scaleX = width / 2,
        .scaleY = height / 2,
        .invScaleX = 1.0f / (width / 2),
        .invScaleY = 1.0f / (height / 2),
        .centreXOverScaleX = 1,
        .centreYOverScaleY = 1,
    };
    KardenoRenderView view = {.camera = &camera, .nearZ = 0.5f, .farZ = 100, .pitch = width, .projection = &projection};
    if (argc != 2) return fprintf(stderr, "usage: small_scene FILE.ppm\n"), 2;

    Kardeno_Init_Render_Dll(&context);
    view.firstObject = buildScene();
    Kardeno_Render_Dll(&view, frameBuffer, 0, kardenoFrameClear);
    static const int points[][2] = {{20, 20}, {60, 140}, {170, 100}, {180, 62}, {200, 40}, {120, 100}, {124, 62}};
    for (int i = 0; i < 7; ++i) sayWhatLiesUnder(&view, points[i][0], points[i][1]);
    if (!writePicture(argv[1])) return fprintf(stderr, "small_scene: '%s' cannot be written\n", argv[1]), 1;
    return 0;
}
