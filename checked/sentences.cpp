#include "checked/sentences.h"

#include "checked/address_table.h"
#include "checked/system.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

namespace kardeno::checked {

namespace {

struct Settings {
    bool wereRead = false;
    Level lowest = Level::warning;
    u32 most = 10;
    bool stops = false;
    char file[1024] = {};
};
constinit Settings settings;
constinit Listener listens = nullptr;
constinit bool isTelling = false; // keeps a second thread out

// The things of which each mistake was told.
constinit AddressTable told[static_cast<u32>(Mistake::count)];

// A text that grows up to its room; what does not fit is cut off.
struct Text {
    char characters[1600];
    u32 length = 0;

    [[gnu::format(printf, 2, 3)]] void add(const char* pattern, ...)
    {
        va_list values;
        va_start(values, pattern);
        addList(pattern, values);
        va_end(values);
    }

    [[gnu::format(printf, 2, 0)]] void addList(const char* pattern, va_list values)
    {
        formatText(characters + length, static_cast<u32>(sizeof characters) - length, pattern, values);
        length += static_cast<u32>(strlen(characters + length));
    }

    // Systems write %p differently.
    void addAddress(const void* address)
    {
        const uintptr_t number = reinterpret_cast<uintptr_t>(address);
        add("at 0x");
        i32 shift = 0;
        while (shift + 4 < static_cast<i32>(8 * sizeof number) && number >> (shift + 4)) shift += 4;
        for (; shift >= 0; shift -= 4) add("%x", static_cast<u32>(number >> shift & 15));
    }
};

constexpr i32 deepest = 64;
constexpr i32 mostSteps = 1 << 20; // ends the search in a tree that has no end

// The way from the view to an object: its root, the child of the root, and so on, each counted from 0.
struct Way {
    i32 steps[deepest];
    i32 count = 0;
};

bool findAmong(const SceneObject* object, bool areRoots, const SceneObject* wanted, Way& way, i32& stepsLeft)
{
    if (way.count == deepest) return false;
    i32& place = way.steps[way.count++];
    for (place = 0; object; ++place) {
        if (--stepsLeft < 0) return false;
        if (object == wanted || findAmong(object->firstChild, false, wanted, way, stepsLeft)) return true;
        object = areRoots ? object->nextRoot : object->nextSibling;
    }
    --way.count;
    return false;
}

void addObject(Text& text, const RenderView* view, const SceneObject* object)
{
    Way way;
    i32 stepsLeft = mostSteps;
    text.add("object ");
    if (view && findAmong(view->firstObject, true, object, way, stepsLeft)) {
        for (i32 i = 0; i < way.count; ++i) text.add(i ? ".%d" : "%d", way.steps[i]);
        text.add(" ");
    }
    text.addAddress(object);
}

void addPlace(Text& text, const Place& place)
{
    if (place.call) text.add(" in %s", place.call);
    text.add(": ");
    if (place.object) {
        addObject(text, place.view, place.object);
        if (place.drawn && place.drawn != place.object) {
            text.add(", drawn as the one ");
            text.addAddress(place.drawn);
        }
        text.add(", ");
    }
    if (place.face) {
        text.add("face ");
        if (place.faceIndex >= 0) text.add("%d ", place.faceIndex);
        text.addAddress(place.face);
        text.add(", ");
    } else if (place.faceIndex >= 0) {
        text.add("face %d, ", place.faceIndex);
    }
    if (place.material) {
        text.add("material ");
        if (place.materialNumber >= 0) text.add("%d ", place.materialNumber);
        text.addAddress(place.material);
        text.add(", ");
    }
    if (place.record && !place.object && !place.face && !place.material) {
        text.add("record ");
        text.addAddress(place.record);
        text.add(", ");
    }
    // The comma before the sentence becomes a colon.
    if (text.length >= 2 && text.characters[text.length - 2] == ',') text.characters[text.length - 2] = ':';
}

// The thing that is spoken of once.
const void* thingOf(Mistake mistake, const Place& place)
{
    if (place.about) return place.about;
    if (place.face) return place.face;
    if (place.material) return place.material;
    if (place.object) return place.object;
    if (place.record) return place.record;
    if (place.call) return place.call;
    return &wordsOf(mistake);
}

void deliver(Mistake mistake, const char* sentence)
{
    if (listens) return listens(mistake, sentence);
    FILE* const file = settings.file[0] ? fopen(settings.file, "a") : nullptr;
    fputs(sentence, file ? file : stderr);
    if (file)
        fclose(file);
    else
        fflush(stderr);
    showInDebugger(sentence);
    if (settings.stops) abort();
}

void tellList(Mistake mistake, const Place& place, const char* detail, va_list values)
{
    const MistakeWords& words = wordsOf(mistake);
    if (!isTold(words.level)) return;
    AddressTable& toldOf = told[static_cast<u32>(mistake)];
    if (toldOf.count > settings.most) return;
    const u32 before = toldOf.count;
    if (!toldOf.findOrAdd(thingOf(mistake, place)) || toldOf.count == before) return;

    constexpr const char* levels[] = {"error", "warning", "hint"};
    Text text;
    text.add("kardeno_soft_checked: ");
    if (toldOf.count > settings.most) {
        text.add("more of [%s] are not told\n", words.name);
        return deliver(mistake, text.characters);
    }
    text.add("%s", levels[static_cast<u32>(words.level)]);
    addPlace(text, place);
    text.add("%s", words.what);
    if (detail) {
        text.add(" (");
        text.addList(detail, values);
        text.add(")");
    }
    text.add(". %s [%s]\n", words.remedy, words.name);
    deliver(mistake, text.characters);
}

} // namespace

void tell(Mistake mistake, const Place& place, const char* detail, ...)
{
    va_list values;
    va_start(values, detail);
    while (__atomic_test_and_set(&isTelling, __ATOMIC_ACQUIRE)) continue;
    tellList(mistake, place, detail, values);
    __atomic_clear(&isTelling, __ATOMIC_RELEASE);
    va_end(values);
}

void tell(Mistake mistake, const Place& place)
{
    tell(mistake, place, nullptr);
}

bool isTold(Level level)
{
    if (!settings.wereRead) readSettings();
    return level <= settings.lowest;
}

void readSettings()
{
    settings = {};
    settings.wereRead = true;
    char value[16];
    if (readVariable("KARDENO_CHECKED_LEVEL", value, sizeof value)) {
        if (strcmp(value, "errors") == 0) settings.lowest = Level::error;
        if (strcmp(value, "hints") == 0) settings.lowest = Level::hint;
    }
    if (readVariable("KARDENO_CHECKED_MOST", value, sizeof value)) settings.most = static_cast<u32>(atoi(value));
    settings.stops = readVariable("KARDENO_CHECKED_STOP", value, sizeof value) && strcmp(value, "0") != 0;
    readVariable("KARDENO_CHECKED_FILE", settings.file, sizeof settings.file);
}

void setListener(Listener listener)
{
    listens = listener;
}

void forgetSentences()
{
    for (AddressTable& table : told) table.clear();
}

} // namespace kardeno::checked
