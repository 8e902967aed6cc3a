#include "sample_host/models/json_entry.h"

#include "sample_host/host/failure.h"
#include "sample_host/host/nearest_word.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace sample_host {

namespace {

// What stands there, in short.
std::string inShort(const Json& value)
{
    constexpr std::size_t longest = 40;
    const std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
    return text.size() <= longest ? text : text.substr(0, longest) + "...";
}

std::string inWords(double number)
{
    std::ostringstream text;
    text << number;
    return text.str();
}

std::string listed(const std::vector<std::string>& words)
{
    std::string list;
    for (std::size_t i = 0; i < words.size(); ++i)
        list += (i == 0 ? "" : i + 1 < words.size() ? ", " : " or ") + words[i];
    return list;
}

} // namespace

Json readJson(const std::string& file)
{
    std::ifstream stream;
    std::error_code ignored;
    if (std::filesystem::is_regular_file(file, ignored)) stream.open(file, std::ios::binary);
    if (!stream.is_open()) fail("the scene '" + file + "' cannot be read: it is not there or not a file");
    try {
        return Json::parse(stream);
    } catch (const Json::parse_error& error) {
        // "[json.exception.parse_error.101] parse error at line 1, column 2: ..."
        std::string sentence = error.what();
        if (const std::size_t begin = sentence.find("] "); begin != std::string::npos) sentence.erase(0, begin + 2);
        fail("the scene '" + file + "' cannot be read: " + sentence);
    }
}

void JsonEntry::failHere(const std::string& sentence) const
{
    fail("'" + *file_ + "', " + (key_.empty() ? "" : key_ + ": ") + sentence);
}

void JsonEntry::refuse(const std::string& expected) const
{
    failHere("expected is " + expected + ", not " + inShort(*value_));
}

void JsonEntry::mustBeObjectOf(std::initializer_list<const char*> keys) const
{
    if (!value_->is_object()) refuse("an object with keys in braces");
    const std::vector<std::string> known(keys.begin(), keys.end());
    for (const auto& [key, value] : value_->items()) {
        if (std::find(known.begin(), known.end(), key) != known.end()) continue;
        const std::string meant = suggestion(key, known);
        failHere("there is no key '" + key + "' here" + (meant.empty() ? "; expected are " + listed(known) : meant));
    }
}

JsonEntry JsonEntry::at(const std::string& key) const
{
    const std::string path = key_.empty() ? key : key_ + "." + key;
    if (!value_->is_object()) refuse("an object with keys in braces");
    const auto found = value_->find(key);
    if (found == value_->end()) failHere("the key '" + key + "' is missing");
    return {*file_, *found, path};
}

std::vector<JsonEntry> JsonEntry::list() const
{
    if (!value_->is_array()) refuse("a list in brackets");
    std::vector<JsonEntry> entries;
    for (std::size_t i = 0; i < value_->size(); ++i)
        entries.emplace_back(*file_, (*value_)[i], key_ + "[" + std::to_string(i) + "]");
    return entries;
}

std::vector<std::pair<std::string, JsonEntry>> JsonEntry::members() const
{
    if (!value_->is_object()) refuse("an object with names in braces");
    std::vector<std::pair<std::string, JsonEntry>> entries;
    for (const auto& [key, value] : value_->items()) entries.emplace_back(key, at(key));
    return entries;
}

std::pair<std::string, JsonEntry> JsonEntry::onlyMember(std::initializer_list<const char*> keys) const
{
    mustBeObjectOf(keys);
    if (value_->size() != 1) refuse("an object of one key: " + listed({keys.begin(), keys.end()}));
    return members()[0];
}

double JsonEntry::number(double least, double most) const
{
    const double value = value_->is_number() ? value_->get<double>() : least - 1;
    if (!(value >= least && value <= most)) refuse("a number from " + inWords(least) + " to " + inWords(most));
    return value;
}

double JsonEntry::number() const
{
    constexpr double largest = 1e6;
    return number(-largest, largest);
}

int JsonEntry::whole(int least, int most) const
{
    if (!value_->is_number_integer() || value_->get<double>() < least || value_->get<double>() > most)
        refuse("a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    return value_->get<int>();
}

bool JsonEntry::flag() const
{
    if (!value_->is_boolean()) refuse("true or false");
    return value_->get<bool>();
}

std::string JsonEntry::text() const
{
    if (!value_->is_string()) refuse("a text in quotes");
    return value_->get<std::string>();
}

Vector JsonEntry::vector() const
{
    if (!value_->is_array() || value_->size() != 3) refuse("a list of three numbers");
    const std::vector<JsonEntry> parts = list();
    return {parts[0].number(), parts[1].number(), parts[2].number()};
}

Colour JsonEntry::colour() const
{
    if (!value_->is_array() || value_->size() != 3) refuse("red, green and blue from 0 to 255 in a list");
    const std::vector<JsonEntry> parts = list();
    const auto channel = [&](std::size_t i) { return std::uint8_t(parts[i].whole(0, 255)); };
    return {channel(0), channel(1), channel(2)};
}

std::size_t JsonEntry::oneOf(const std::vector<std::string>& names, const std::string& what) const
{
    const std::string name = text();
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) {
        const std::string meant = suggestion(name, names);
        std::string known = names.empty() ? "; there are none" : "; expected are " + listed(names);
        if (names.size() > 20) known = "; expected is one of " + std::to_string(names.size());
        failHere("there is no " + what + " '" + name + "'" + (meant.empty() ? known : meant));
    }
    return std::size_t(found - names.begin());
}

} // namespace sample_host
