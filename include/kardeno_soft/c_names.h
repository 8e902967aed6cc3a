/* Gives the names of the records and constants their C form, up to c_names_end.h: KardenoRenderView for
   RenderView. A host's own names and macros stay what they are. tools/write_c_names makes this list from the other
   headers. */

#if !defined(__cplusplus) && !defined(KARDENO_SHORT_NAMES)

#pragma push_macro("u8")
#undef u8
#define u8 uint8_t

#pragma push_macro("u16")
#undef u16
#define u16 uint16_t

#pragma push_macro("u32")
#undef u32
#define u32 uint32_t

#pragma push_macro("i32")
#undef i32
#define i32 int32_t

#pragma push_macro("f32")
#undef f32
#define f32 float

#pragma push_macro("CheckedSizes")
#undef CheckedSizes
#define CheckedSizes KardenoCheckedSizes

#pragma push_macro("checkedSizesMark")
#undef checkedSizesMark
#define checkedSizesMark kardenoCheckedSizesMark

#pragma push_macro("Functions")
#undef Functions
#define Functions KardenoFunctions

#pragma push_macro("HostContext")
#undef HostContext
#define HostContext KardenoHostContext

#pragma push_macro("RenderView")
#undef RenderView
#define RenderView KardenoRenderView

#pragma push_macro("ViewProjection")
#undef ViewProjection
#define ViewProjection KardenoViewProjection

#pragma push_macro("SceneCamera")
#undef SceneCamera
#define SceneCamera KardenoSceneCamera

#pragma push_macro("CameraFunctions")
#undef CameraFunctions
#define CameraFunctions KardenoCameraFunctions

#pragma push_macro("SceneObject")
#undef SceneObject
#define SceneObject KardenoSceneObject

#pragma push_macro("ObjectClass")
#undef ObjectClass
#define ObjectClass KardenoObjectClass

#pragma push_macro("ObjectFunctions")
#undef ObjectFunctions
#define ObjectFunctions KardenoObjectFunctions

#pragma push_macro("SceneFace")
#undef SceneFace
#define SceneFace KardenoSceneFace

#pragma push_macro("FaceTest")
#undef FaceTest
#define FaceTest KardenoFaceTest

#pragma push_macro("SceneMaterial")
#undef SceneMaterial
#define SceneMaterial KardenoSceneMaterial

#pragma push_macro("MaterialNode")
#undef MaterialNode
#define MaterialNode KardenoMaterialNode

#pragma push_macro("MaterialColour")
#undef MaterialColour
#define MaterialColour KardenoMaterialColour

#pragma push_macro("MaterialPrivate")
#undef MaterialPrivate
#define MaterialPrivate KardenoMaterialPrivate

#pragma push_macro("MaterialFlags")
#undef MaterialFlags
#define MaterialFlags KardenoMaterialFlags

#pragma push_macro("TextureMap")
#undef TextureMap
#define TextureMap KardenoTextureMap

#pragma push_macro("TextureImage")
#undef TextureImage
#define TextureImage KardenoTextureImage

#pragma push_macro("CameraVertex")
#undef CameraVertex
#define CameraVertex KardenoCameraVertex

#pragma push_macro("ScreenVertex")
#undef ScreenVertex
#define ScreenVertex KardenoScreenVertex

#pragma push_macro("VertexShade")
#undef VertexShade
#define VertexShade KardenoVertexShade

#pragma push_macro("TexCoord")
#undef TexCoord
#define TexCoord KardenoTexCoord

#pragma push_macro("outcodeNear")
#undef outcodeNear
#define outcodeNear kardenoOutcodeNear

#pragma push_macro("outcodeFar")
#undef outcodeFar
#define outcodeFar kardenoOutcodeFar

#pragma push_macro("outcodeLeft")
#undef outcodeLeft
#define outcodeLeft kardenoOutcodeLeft

#pragma push_macro("outcodeRight")
#undef outcodeRight
#define outcodeRight kardenoOutcodeRight

#pragma push_macro("outcodeTop")
#undef outcodeTop
#define outcodeTop kardenoOutcodeTop

#pragma push_macro("outcodeBottom")
#undef outcodeBottom
#define outcodeBottom kardenoOutcodeBottom

#pragma push_macro("outcodeAll")
#undef outcodeAll
#define outcodeAll kardenoOutcodeAll

#pragma push_macro("bitsPerPixel555")
#undef bitsPerPixel555
#define bitsPerPixel555 kardenoBitsPerPixel555

#pragma push_macro("bitsPerPixel565")
#undef bitsPerPixel565
#define bitsPerPixel565 kardenoBitsPerPixel565

#pragma push_macro("fewestFaceCorners")
#undef fewestFaceCorners
#define fewestFaceCorners kardenoFewestFaceCorners

#pragma push_macro("mostFaceCorners")
#undef mostFaceCorners
#define mostFaceCorners kardenoMostFaceCorners

#pragma push_macro("transparencyNone")
#undef transparencyNone
#define transparencyNone kardenoTransparencyNone

#pragma push_macro("transparencyHalf")
#undef transparencyHalf
#define transparencyHalf kardenoTransparencyHalf

#pragma push_macro("shadingPlain")
#undef shadingPlain
#define shadingPlain kardenoShadingPlain

#pragma push_macro("shadingColourKey")
#undef shadingColourKey
#define shadingColourKey kardenoShadingColourKey

#pragma push_macro("shadingAdditive")
#undef shadingAdditive
#define shadingAdditive kardenoShadingAdditive

#pragma push_macro("shadingBillboardOverAll")
#undef shadingBillboardOverAll
#define shadingBillboardOverAll kardenoShadingBillboardOverAll

#pragma push_macro("shadingBillboard")
#undef shadingBillboard
#define shadingBillboard kardenoShadingBillboard

#pragma push_macro("bitsPerTexelPalettised")
#undef bitsPerTexelPalettised
#define bitsPerTexelPalettised kardenoBitsPerTexelPalettised

#pragma push_macro("bitsPerTexelPixels")
#undef bitsPerTexelPixels
#define bitsPerTexelPixels kardenoBitsPerTexelPixels

#pragma push_macro("frameClear")
#undef frameClear
#define frameClear kardenoFrameClear

#pragma push_macro("ScreenPolygon")
#undef ScreenPolygon
#define ScreenPolygon KardenoScreenPolygon

#pragma push_macro("RenderMode")
#undef RenderMode
#define RenderMode KardenoRenderMode

#pragma push_macro("ClipperFamily")
#undef ClipperFamily
#define ClipperFamily KardenoClipperFamily

#pragma push_macro("RenderModeRow")
#undef RenderModeRow
#define RenderModeRow KardenoRenderModeRow

#pragma push_macro("EmitRoutine")
#undef EmitRoutine
#define EmitRoutine KardenoEmitRoutine

#pragma push_macro("ClipRoutine")
#undef ClipRoutine
#define ClipRoutine KardenoClipRoutine

#pragma push_macro("FillRoutine")
#undef FillRoutine
#define FillRoutine KardenoFillRoutine

#pragma push_macro("RampEntry")
#undef RampEntry
#define RampEntry KardenoRampEntry

#pragma push_macro("stateUnlit")
#undef stateUnlit
#define stateUnlit kardenoStateUnlit

#pragma push_macro("stateLit")
#undef stateLit
#define stateLit kardenoStateLit

#pragma push_macro("stateLitToo")
#undef stateLitToo
#define stateLitToo kardenoStateLitToo

#pragma push_macro("stateFallback")
#undef stateFallback
#define stateFallback kardenoStateFallback

#pragma push_macro("flagTextured")
#undef flagTextured
#define flagTextured kardenoFlagTextured

#pragma push_macro("flagShade1")
#undef flagShade1
#define flagShade1 kardenoFlagShade1

#pragma push_macro("flagHalfTransparent")
#undef flagHalfTransparent
#define flagHalfTransparent kardenoFlagHalfTransparent

#pragma push_macro("flagOtherTransparency")
#undef flagOtherTransparency
#define flagOtherTransparency kardenoFlagOtherTransparency

#pragma push_macro("flagShade2")
#undef flagShade2
#define flagShade2 kardenoFlagShade2

#pragma push_macro("flagShade10")
#undef flagShade10
#define flagShade10 kardenoFlagShade10

#pragma push_macro("flagShade11")
#undef flagShade11
#define flagShade11 kardenoFlagShade11

#pragma push_macro("rowFallbackFlat")
#undef rowFallbackFlat
#define rowFallbackFlat kardenoRowFallbackFlat

#pragma push_macro("rowFallbackBlend")
#undef rowFallbackBlend
#define rowFallbackBlend kardenoRowFallbackBlend

#pragma push_macro("rowUnlitPlain")
#undef rowUnlitPlain
#define rowUnlitPlain kardenoRowUnlitPlain

#pragma push_macro("rowUnlitTextured")
#undef rowUnlitTextured
#define rowUnlitTextured kardenoRowUnlitTextured

#pragma push_macro("rowUnlitTexturedShade1")
#undef rowUnlitTexturedShade1
#define rowUnlitTexturedShade1 kardenoRowUnlitTexturedShade1

#pragma push_macro("rowUnlitTranslucent")
#undef rowUnlitTranslucent
#define rowUnlitTranslucent kardenoRowUnlitTranslucent

#pragma push_macro("rowUnlitTexturedTranslucent")
#undef rowUnlitTexturedTranslucent
#define rowUnlitTexturedTranslucent kardenoRowUnlitTexturedTranslucent

#pragma push_macro("rowUnlitTexturedShade2")
#undef rowUnlitTexturedShade2
#define rowUnlitTexturedShade2 kardenoRowUnlitTexturedShade2

#pragma push_macro("rowUnlitTexturedShade10")
#undef rowUnlitTexturedShade10
#define rowUnlitTexturedShade10 kardenoRowUnlitTexturedShade10

#pragma push_macro("rowUnlitTexturedShade11")
#undef rowUnlitTexturedShade11
#define rowUnlitTexturedShade11 kardenoRowUnlitTexturedShade11

#pragma push_macro("rowUnlitPalettised")
#undef rowUnlitPalettised
#define rowUnlitPalettised kardenoRowUnlitPalettised

#pragma push_macro("rowLitPlain")
#undef rowLitPlain
#define rowLitPlain kardenoRowLitPlain

#pragma push_macro("rowLitTextured")
#undef rowLitTextured
#define rowLitTextured kardenoRowLitTextured

#pragma push_macro("rowLitTexturedShade1")
#undef rowLitTexturedShade1
#define rowLitTexturedShade1 kardenoRowLitTexturedShade1

#pragma push_macro("rowLitTranslucent")
#undef rowLitTranslucent
#define rowLitTranslucent kardenoRowLitTranslucent

#pragma push_macro("rowLitTexturedTranslucent")
#undef rowLitTexturedTranslucent
#define rowLitTexturedTranslucent kardenoRowLitTexturedTranslucent

#pragma push_macro("rowLitTexturedShade1Translucent")
#undef rowLitTexturedShade1Translucent
#define rowLitTexturedShade1Translucent kardenoRowLitTexturedShade1Translucent

#pragma push_macro("rowLitTexturedShade2")
#undef rowLitTexturedShade2
#define rowLitTexturedShade2 kardenoRowLitTexturedShade2

#pragma push_macro("rowSpareA")
#undef rowSpareA
#define rowSpareA kardenoRowSpareA

#pragma push_macro("rowSpareB")
#undef rowSpareB
#define rowSpareB kardenoRowSpareB

#pragma push_macro("renderModeRowCount")
#undef renderModeRowCount
#define renderModeRowCount kardenoRenderModeRowCount

#endif
