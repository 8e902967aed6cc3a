/* What a host may tell the checked library, kardeno_soft_checked, beyond what the renderer needs to know: how large its
   vertex arrays and its frame buffer are. A host that tells it gets a sentence instead of a crash when an index or the
   drawn rectangle lies outside.

   The record lies at the beginning of the gap behind bitsPerPixel in HostContext, where KARDENO_CHECKED_SIZES finds it:

       KardenoCheckedSizes* sizes = KARDENO_CHECKED_SIZES(&context);
       sizes->mark = kardenoCheckedSizesMark;
       sizes->markAgain = ~sizes->mark;
       sizes->vertexCount = 5000;
       sizes->framePixels = 640 * 480;

   That is 356 bytes from the beginning of the context, or 396 with 64-bit pointers. It is read at the beginning of a
   frame or a pick and after each call of prepareVertices, so it may change whenever the arrays may. Without both marks
   the gap belongs to the host as all gaps do. The plain library never looks. */
#pragma once

#include "host_records.h"

#include "c_names.h"

#ifdef __cplusplus
namespace kardeno {
#endif

KARDENO_RECORD(CheckedSizes);

/* The value of CheckedSizes.mark. */
enum {
    checkedSizesMark = 0x4b53697a /* it says that the host tells its sizes */
};

/* Sizes that a host tells the checked library, in a gap of HostContext. */
struct CheckedSizes {
    /* Host: checkedSizesMark */
    u32 mark;
    /* Host: all bits of the mark reversed */
    u32 markAgain;
    /* Host: how many elements each of the five vertex arrays has at least; 0: not told */
    u32 vertexCount;
    /* Host: how many pixels there are from the one that the frame buffer's address names to its end; 0: not told */
    u32 framePixels;
};
KARDENO_SIZE(CheckedSizes, 16, 16);
KARDENO_OFFSET(CheckedSizes, mark, 0, 0);
KARDENO_OFFSET(CheckedSizes, markAgain, 4, 4);
KARDENO_OFFSET(CheckedSizes, vertexCount, 8, 8);
KARDENO_OFFSET(CheckedSizes, framePixels, 12, 12);

/* Where the sizes lie in a HostContext. */
#if defined(__cplusplus)
#define KARDENO_CHECKED_SIZES(context)                                                                                 \
    reinterpret_cast<kardeno::CheckedSizes*>(reinterpret_cast<char*>(&(context)->bitsPerPixel) + 4)
#elif defined(KARDENO_SHORT_NAMES)
#define KARDENO_CHECKED_SIZES(context) ((CheckedSizes*)(void*)((char*)&(context)->bitsPerPixel + 4))
#else
#define KARDENO_CHECKED_SIZES(context) ((KardenoCheckedSizes*)(void*)((char*)&(context)->bitsPerPixel + 4))
#endif

#ifdef __cplusplus
} /* namespace kardeno */
#endif

#include "c_names_end.h"
