// A JSON file as it is read: each entry knows where it stands, so that what is wrong with it can be told.
//
// Nothing here throws. What is wrong first is kept as a sentence, and reading goes on with harmless values, so that a
// reader need not look at each step whether it succeeded. It looks at the end, and before it uses a number that was
// read as a place in a list.
#pragma once

#include "sample_host/host/vector_maths.h"
#include "sample_host/pictures/image.h"

#include <nlohmann/json.hpp>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sample_host {

// Entries stay in the order in which the file has them.
using Json = nlohmann::ordered_json;

class JsonEntry;

class JsonFile {
public:
    // The name is for sentences.
    JsonFile(std::string name, std::string_view text);
    JsonFile(const JsonFile&) = delete; // entries keep its address
    JsonFile& operator=(const JsonFile&) = delete;

    JsonEntry top();

    // The first thing that is wrong: a sentence that names the file and line and column, or the key. Empty: nothing.
    const std::string& problem() const { return problem_; }
    bool isBroken() const { return !problem_.empty(); }
    void fail(const std::string& sentence);
    const std::string& name() const { return name_; }

private:
    std::string name_, problem_;
    Json top_;
};

// All that is read of an entry keeps a sentence in the file when it is not there or of another kind, and names the key
// and what is expected there.
class JsonEntry {
public:
    JsonEntry(JsonFile& file, const Json& value, std::string key = "")
        : file_(&file), value_(&value), key_(std::move(key))
    {
    }

    void refuse(const std::string& expected) const; // "expected is", and then that
    void failHere(const std::string& sentence) const;

    // An object, with no keys but these.
    void mustBeObjectOf(std::initializer_list<const char*> keys) const;
    bool has(const char* key) const { return value_->contains(key); }
    JsonEntry at(const std::string& key) const;
    std::vector<JsonEntry> list() const; // of an array; otherwise empty
    // Of an array of so many entries, and that many in any case.
    std::vector<JsonEntry> listOf(std::size_t count, const std::string& expected) const;
    std::vector<std::pair<std::string, JsonEntry>> members() const; // of an object; otherwise empty
    // The one member of an object that has no keys but these; otherwise one without a name.
    std::pair<std::string, JsonEntry> onlyMember(std::initializer_list<const char*> keys) const;

    // Within the bounds in any case.
    double number(double least, double most) const;
    double number() const; // any that is finite
    int whole(int least, int most) const;
    bool flag() const;
    std::string text() const;
    Vector vector() const; // three numbers
    Colour colour() const; // three whole numbers from 0 to 255

    // What is read of a key if it is there, and otherwise `absent`.
    double numberOr(const char* key, double absent) const { return has(key) ? at(key).number() : absent; }
    int wholeOr(const char* key, int least, int most, int absent) const
    {
        return has(key) ? at(key).whole(least, most) : absent;
    }
    bool flagOr(const char* key, bool absent) const { return has(key) ? at(key).flag() : absent; }
    std::string textOr(const char* key, const char* absent) const { return has(key) ? at(key).text() : absent; }
    Vector vectorOr(const char* key, const Vector& absent) const { return has(key) ? at(key).vector() : absent; }
    Colour colourOr(const char* key, Colour absent) const { return has(key) ? at(key).colour() : absent; }

    // The place of this text among the names; `what` they are names of. 0 when it is none of them, even if there are no
    // names at all.
    std::size_t oneOf(const std::vector<std::string>& names, const std::string& what) const;

private:
    JsonFile* file_;
    const Json* value_;
    std::string key_;
};

} // namespace sample_host
