// Tells the host's author what is wrong: one sentence for each thing, the first time that it is seen.
//
// Sentences go to standard error, and on Windows to the debugger too. Environment variables change that; they are read
// at the first call and at each initialisation:
//
//   KARDENO_CHECKED_FILE=NAME    to the end of this file instead of standard error
//   KARDENO_CHECKED_LEVEL=LEVEL  errors; warnings: errors too, which is the default; hints: all
//   KARDENO_CHECKED_MOST=N       no more than this many sentences of one mistake (10)
//   KARDENO_CHECKED_STOP=1       the process is aborted after the first sentence
#pragma once

#include "checked/mistakes.h"
#include "kardeno_soft/host_records.h"

namespace kardeno::checked {

// Where a mistake is. What is 0 is not spoken of.
struct Place {
    const char* call = nullptr; // the function of the library
    const RenderView* view = nullptr;
    const SceneObject* object = nullptr;
    const SceneObject* drawn = nullptr; // what selectLevel chose for the object
    const SceneFace* face = nullptr;
    i32 faceIndex = -1;
    const SceneMaterial* material = nullptr;
    i32 materialNumber = -1;      // how many were added before it
    const void* record = nullptr; // any other record
    const void* about = nullptr;  // what is told of once, if it is none of the above; not spoken of
};

// Tells of a mistake at a place, unless it was told before. `detail` and what follows are the pattern and the values of
// printf for what stands in brackets.
[[gnu::format(printf, 3, 4)]] void tell(Mistake mistake, const Place& place, const char* detail, ...);
void tell(Mistake mistake, const Place& place);

// Whether sentences of this level are told at all. What only leads to hints need not be computed otherwise.
bool isTold(Level level);

// Reads the environment variables.
void readSettings();

// Takes the sentences in place of the file, for tests; 0: nobody does.
using Listener = void (*)(Mistake mistake, const char* sentence);
void setListener(Listener listener);

// Forgets what was told. A record at the address of one that is gone would otherwise not be spoken of.
void forgetSentences();

} // namespace kardeno::checked
