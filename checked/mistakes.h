// Every mistake of a host that the checked library sees: how grave it is, and the words in which it is told.
// docs/checked_library.md lists the same for readers.
#pragma once

#include "kardeno_soft/types.h"

namespace kardeno::checked {

enum class Level : u8 {
    error,   // the plain library might crash: the call, the object or the face is left out
    warning, // the picture will be wrong; the library goes on as the plain one does
    hint     // allowed, but seldom meant
};

enum class Mistake : u32 {
    beforeInitialisation,
    insideCallback,
    secondThread,
    missingRecord,
    missingResult,
    missingService,
    bitsPerPixel,
    bitsPerPixelChanged,
    missingArray,
    missingCamera,
    missingCameraFunction,
    missingProjection,
    missingFrameBuffer,
    rectangleLimits,
    emptyRectangle,
    rectangleOutsideFrame,
    pitchInBytes,
    pitchTooShort,
    pitchTwice,
    depthRange,
    projectionScale,
    projectionDerived,
    projectionAngle,
    projectionAngleUnused,
    pickPoint,
    treeRing,
    missingGroupFlag,
    missingClass,
    missingFunction,
    partOutsideGroup,
    sharedVertex,
    nothingVisible,
    missingFaces,
    missingFace,
    missingFaceTest,
    missingMaterial,
    materialListRing,
    missingLight,
    cornerCount,
    billboardCorners,
    missingIndices,
    indexOutside,
    missingTexCoords,
    texCoordNotFinite,
    texCoordBeyond,
    vertexNotFinite,
    outcodeZero,
    outcodeReversed,
    outcodeWrong,
    stampAhead,
    normalZero,
    normalThroughEye,
    normalWrong,
    notFlat,
    notConvex,
    backsShown,
    onlyBacks,
    intensityRange,
    faceNotAdded,
    faceReleased,
    faceReleasedTwice,
    faceColourReplaced,
    faceAddedAgain,
    materialNotAdded,
    materialReleased,
    materialReleasedTwice,
    materialAddedAgain,
    missingState,
    missingRow,
    missingRamp,
    shortRamp,
    missingFlagBlock,
    missingImage,
    missingPalette,
    texelBits,
    mapSize,
    mapBeyondEnd,
    mapUnmarked,
    mapOfOtherKind,
    litPixels,
    fallbackRow,
    shininessRange,
    count
};

struct MistakeWords {
    Mistake mistake;
    Level level;
    const char* name;   // one word for looking it up, which stands in brackets behind the sentence
    const char* what;   // what is wrong; goes on after where it is
    const char* remedy; // what to do
};

const MistakeWords& wordsOf(Mistake mistake);

} // namespace kardeno::checked
