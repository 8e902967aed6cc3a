/* A host without a C library, so that the vendor's headers and libraries are not needed to build it: it links the
   library through kardeno_soft.lib, draws one square and leaves 0 for its exit code when each pixel is right. */
#include <kardeno_soft/kardeno_soft.h>

__declspec(dllimport) void __stdcall ExitProcess(unsigned code);
__declspec(dllimport) void* __stdcall GetProcessHeap(void);
__declspec(dllimport) void* __stdcall HeapAlloc(void* heap, unsigned flags, size_t bytes);
__declspec(dllimport) void* __stdcall HeapReAlloc(void* heap, unsigned flags, void* block, size_t bytes);
__declspec(dllimport) int __stdcall HeapFree(void* heap, unsigned flags, void* block);

int _fltused = 1; /* that compiler asks for it wherever there is floating point */

enum { size = 8, heapZeros = 8, colour = 0x1234 };

static uint16_t frameBuffer[size * size];
static KardenoCameraVertex cameraVertices[4] = {{-1, 1, 2}, {-1, -1, 2}, {1, -1, 2}, {1, 1, 2}};
static KardenoScreenVertex screenVertices[4];
static uint32_t vertexStamps[4];
static const uint32_t vertexOutcodes[4] = {kardenoOutcodeAll, kardenoOutcodeAll, kardenoOutcodeAll, kardenoOutcodeAll};
static const int32_t vertexIndices[4] = {0, 1, 2, 3};

/* Every name of the library: the linker has to find it, and the compiler cannot know what is there. */
#define ADDRESS(field, name) (void*)name,
static void* volatile everyFunction[] = {KARDENO_FUNCTIONS(ADDRESS)};

static void KARDENO_CALL prepareCamera(KardenoSceneCamera* camera, KardenoRenderView* view)
{
    (void)camera, (void)view;
}

static void KARDENO_CALL update(KardenoSceneObject* object)
{
    (void)object;
}

static void KARDENO_CALL transform(KardenoSceneObject* object, KardenoRenderView* view)
{
    (void)object, (void)view;
}

static KardenoSceneObject* KARDENO_CALL selectLevel(KardenoSceneObject* object, KardenoRenderView* view)
{
    (void)view;
    return object;
}

static void KARDENO_CALL testBounds(KardenoSceneObject* drawn, KardenoSceneObject* object, KardenoRenderView* view)
{
    (void)drawn, (void)view;
    object->visible = 1;
}

static void KARDENO_CALL nothingToDo(KardenoSceneObject* drawn, KardenoSceneObject* object, KardenoRenderView* view)
{
    (void)drawn, (void)object, (void)view;
}

static int32_t KARDENO_CALL isSeen(KardenoSceneFace* face)
{
    (void)face;
    return 1;
}

static void* KARDENO_CALL allocate(uint32_t count, uint32_t bytes)
{
    return HeapAlloc(GetProcessHeap(), heapZeros, (size_t)count * bytes);
}

static void* KARDENO_CALL reallocate(void* block, uint32_t bytes)
{
    return block ? HeapReAlloc(GetProcessHeap(), 0, block, bytes) : HeapAlloc(GetProcessHeap(), 0, bytes);
}

static void KARDENO_CALL release(void* block)
{
    HeapFree(GetProcessHeap(), 0, block);
}

static KardenoHostContext context = {
    .cameraVertices = cameraVertices,
    .screenVertices = screenVertices,
    .vertexOutcodes = vertexOutcodes,
    .vertexStamps = vertexStamps,
    .alloc = allocate,
    .realloc = reallocate,
    .free = release,
    .bitsPerPixel = kardenoBitsPerPixel565,
};
static const KardenoCameraFunctions cameraFunctions = {.prepare = prepareCamera};
static KardenoSceneCamera camera = {.functions = &cameraFunctions};
static KardenoMaterialFlags materialFlags;
static KardenoSceneMaterial material = {.diffuseColour = {.packed = colour}, .materialFlags = &materialFlags};
static const KardenoFaceTest faceTest = {.test = isSeen};
static KardenoSceneFace face = {
    .vertexCount = 4,
    .vertexIndices = vertexIndices,
    .material = &material,
    .normalZ = -1,
    .faceTest = &faceTest,
};
static KardenoSceneFace* faces[] = {&face};
static const KardenoObjectFunctions functions = {
    .update = update,
    .transform = transform,
    .selectLevel = selectLevel,
    .testBounds = testBounds,
    .light = nothingToDo,
    .prepareVertices = nothingToDo,
};
static KardenoObjectClass objectClass = {.functions = &functions};
static const int32_t noGroup = 0;
static KardenoSceneObject square = {
    .faceCount = 1,
    .faces = faces,
    .groupFlag = &noGroup,
    .objectClass = &objectClass,
};
/* At the depth 2 the corners, from -1 to 1, lie at 2 and 6 on the screen. */
static const KardenoViewProjection projection = {
    .right = size,
    .bottom = size,
    .centreX = 4,
    .centreY = 4,
    .scaleX = 4,
    .scaleY = 4,
    .invScaleX = 0.25f,
    .invScaleY = 0.25f,
    .centreXOverScaleX = 1,
    .centreYOverScaleY = 1,
};
static KardenoRenderView view = {
    .firstObject = &square,
    .camera = &camera,
    .nearZ = 1,
    .farZ = 10,
    .pitch = size,
    .projection = &projection,
};

static unsigned run(void)
{
    for (unsigned i = 0; i < sizeof everyFunction / sizeof *everyFunction; ++i)
        if (!everyFunction[i]) return 1;
    if (Kardeno_Init_Render_Dll(&context) != 1) return 2;
    if (!Kardeno_Add_Material_Dll(&material)) return 3;
    if (!Kardeno_Set_Material_Render_State_Dll(&material, kardenoStateUnlit)) return 4;
    if (!Kardeno_Add_Face_Dll(&face)) return 5;
    Kardeno_Render_Dll(&view, frameBuffer, 0, kardenoFrameClear);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            if (frameBuffer[y * size + x] != (x >= 2 && x < 6 && y >= 2 && y < 6 ? colour : 0)) return 6;
    Kardeno_Release_Face_Dll(&face);
    Kardeno_Release_Material_Dll(&material);
    return 0;
}

void start(void)
{
    ExitProcess(run());
}
