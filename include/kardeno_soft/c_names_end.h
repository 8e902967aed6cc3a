/* Ends what c_names.h began. */

#if !defined(__cplusplus) && !defined(KARDENO_SHORT_NAMES)

#undef u8
#pragma pop_macro("u8")

#undef u16
#pragma pop_macro("u16")

#undef u32
#pragma pop_macro("u32")

#undef i32
#pragma pop_macro("i32")

#undef f32
#pragma pop_macro("f32")

#undef CheckedSizes
#pragma pop_macro("CheckedSizes")

#undef checkedSizesMark
#pragma pop_macro("checkedSizesMark")

#undef Functions
#pragma pop_macro("Functions")

#undef HostContext
#pragma pop_macro("HostContext")

#undef RenderView
#pragma pop_macro("RenderView")

#undef ViewProjection
#pragma pop_macro("ViewProjection")

#undef SceneCamera
#pragma pop_macro("SceneCamera")

#undef CameraFunctions
#pragma pop_macro("CameraFunctions")

#undef SceneObject
#pragma pop_macro("SceneObject")

#undef ObjectClass
#pragma pop_macro("ObjectClass")

#undef ObjectFunctions
#pragma pop_macro("ObjectFunctions")

#undef SceneFace
#pragma pop_macro("SceneFace")

#undef FaceTest
#pragma pop_macro("FaceTest")

#undef SceneMaterial
#pragma pop_macro("SceneMaterial")

#undef MaterialNode
#pragma pop_macro("MaterialNode")

#undef MaterialColour
#pragma pop_macro("MaterialColour")

#undef MaterialPrivate
#pragma pop_macro("MaterialPrivate")

#undef MaterialFlags
#pragma pop_macro("MaterialFlags")

#undef TextureMap
#pragma pop_macro("TextureMap")

#undef TextureImage
#pragma pop_macro("TextureImage")

#undef CameraVertex
#pragma pop_macro("CameraVertex")

#undef ScreenVertex
#pragma pop_macro("ScreenVertex")

#undef VertexShade
#pragma pop_macro("VertexShade")

#undef TexCoord
#pragma pop_macro("TexCoord")

#undef outcodeNear
#pragma pop_macro("outcodeNear")

#undef outcodeFar
#pragma pop_macro("outcodeFar")

#undef outcodeLeft
#pragma pop_macro("outcodeLeft")

#undef outcodeRight
#pragma pop_macro("outcodeRight")

#undef outcodeTop
#pragma pop_macro("outcodeTop")

#undef outcodeBottom
#pragma pop_macro("outcodeBottom")

#undef outcodeAll
#pragma pop_macro("outcodeAll")

#undef bitsPerPixel555
#pragma pop_macro("bitsPerPixel555")

#undef bitsPerPixel565
#pragma pop_macro("bitsPerPixel565")

#undef fewestFaceCorners
#pragma pop_macro("fewestFaceCorners")

#undef mostFaceCorners
#pragma pop_macro("mostFaceCorners")

#undef transparencyNone
#pragma pop_macro("transparencyNone")

#undef transparencyHalf
#pragma pop_macro("transparencyHalf")

#undef shadingPlain
#pragma pop_macro("shadingPlain")

#undef shadingColourKey
#pragma pop_macro("shadingColourKey")

#undef shadingAdditive
#pragma pop_macro("shadingAdditive")

#undef shadingBillboardOverAll
#pragma pop_macro("shadingBillboardOverAll")

#undef shadingBillboard
#pragma pop_macro("shadingBillboard")

#undef bitsPerTexelPalettised
#pragma pop_macro("bitsPerTexelPalettised")

#undef bitsPerTexelPixels
#pragma pop_macro("bitsPerTexelPixels")

#undef frameClear
#pragma pop_macro("frameClear")

#undef ScreenPolygon
#pragma pop_macro("ScreenPolygon")

#undef RenderMode
#pragma pop_macro("RenderMode")

#undef ClipperFamily
#pragma pop_macro("ClipperFamily")

#undef RenderModeRow
#pragma pop_macro("RenderModeRow")

#undef EmitRoutine
#pragma pop_macro("EmitRoutine")

#undef ClipRoutine
#pragma pop_macro("ClipRoutine")

#undef FillRoutine
#pragma pop_macro("FillRoutine")

#undef RampEntry
#pragma pop_macro("RampEntry")

#undef stateUnlit
#pragma pop_macro("stateUnlit")

#undef stateLit
#pragma pop_macro("stateLit")

#undef stateLitToo
#pragma pop_macro("stateLitToo")

#undef stateFallback
#pragma pop_macro("stateFallback")

#undef flagTextured
#pragma pop_macro("flagTextured")

#undef flagShade1
#pragma pop_macro("flagShade1")

#undef flagHalfTransparent
#pragma pop_macro("flagHalfTransparent")

#undef flagOtherTransparency
#pragma pop_macro("flagOtherTransparency")

#undef flagShade2
#pragma pop_macro("flagShade2")

#undef flagShade10
#pragma pop_macro("flagShade10")

#undef flagShade11
#pragma pop_macro("flagShade11")

#undef rowFallbackFlat
#pragma pop_macro("rowFallbackFlat")

#undef rowFallbackBlend
#pragma pop_macro("rowFallbackBlend")

#undef rowUnlitPlain
#pragma pop_macro("rowUnlitPlain")

#undef rowUnlitTextured
#pragma pop_macro("rowUnlitTextured")

#undef rowUnlitTexturedShade1
#pragma pop_macro("rowUnlitTexturedShade1")

#undef rowUnlitTranslucent
#pragma pop_macro("rowUnlitTranslucent")

#undef rowUnlitTexturedTranslucent
#pragma pop_macro("rowUnlitTexturedTranslucent")

#undef rowUnlitTexturedShade2
#pragma pop_macro("rowUnlitTexturedShade2")

#undef rowUnlitTexturedShade10
#pragma pop_macro("rowUnlitTexturedShade10")

#undef rowUnlitTexturedShade11
#pragma pop_macro("rowUnlitTexturedShade11")

#undef rowUnlitPalettised
#pragma pop_macro("rowUnlitPalettised")

#undef rowLitPlain
#pragma pop_macro("rowLitPlain")

#undef rowLitTextured
#pragma pop_macro("rowLitTextured")

#undef rowLitTexturedShade1
#pragma pop_macro("rowLitTexturedShade1")

#undef rowLitTranslucent
#pragma pop_macro("rowLitTranslucent")

#undef rowLitTexturedTranslucent
#pragma pop_macro("rowLitTexturedTranslucent")

#undef rowLitTexturedShade1Translucent
#pragma pop_macro("rowLitTexturedShade1Translucent")

#undef rowLitTexturedShade2
#pragma pop_macro("rowLitTexturedShade2")

#undef rowSpareA
#pragma pop_macro("rowSpareA")

#undef rowSpareB
#pragma pop_macro("rowSpareB")

#undef renderModeRowCount
#pragma pop_macro("renderModeRowCount")

#endif
