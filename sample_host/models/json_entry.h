// A JSON file as it is read: each entry knows where it stands, so that what is wrong with it can be told.
#pragma once

#include "sample_host/host/vector_maths.h"
#include "sample_host/pictures/image.h"

#include <nlohmann/json.hpp>

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace sample_host {

// Entries stay in the order in which the file has them.
using Json = nlohmann::ordered_json;

// Throws with a sentence that names the file and, in a file that is no JSON, line and column.
Json readJson(const std::string& file);

// All that is read throws with a sentence that names the file, the key and what is expected there.
class JsonEntry {
public:
    JsonEntry(const std::string& file, const Json& value, std::string key = "")
        : file_(&file), value_(&value), key_(std::move(key))
    {
    }

    [[noreturn]] void refuse(const std::string& expected) const; // "expected is", and then that
    [[noreturn]] void failHere(const std::string& sentence) const;

    // An object, with no keys but these.
    void mustBeObjectOf(std::initializer_list<const char*> keys) const;
    bool has(const char* key) const { return value_->contains(key); }
    JsonEntry at(const std::string& key) const;
    std::vector<JsonEntry> list() const;                            // of an array
    std::vector<std::pair<std::string, JsonEntry>> members() const; // of an object
    std::pair<std::string, JsonEntry> onlyMember(std::initializer_list<const char*> keys) const;

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

    // The place of this text among the names; `what` they are names of.
    std::size_t oneOf(const std::vector<std::string>& names, const std::string& what) const;

private:
    const std::string* file_;
    const Json* value_;
    std::string key_;
};

} // namespace sample_host
