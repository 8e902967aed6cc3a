#include "sample_host/reading/json_file.h"

#include "sample_host/host/nearest_word.h"

#include <algorithm>
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

// Takes what the parser finds in a text, and keeps it or the first fault. The library's own ways to do so tell a fault
// by an exception or not at all.
struct Taker {
    Json top;
    std::string problem;

    bool null() { return take(nullptr); }
    bool boolean(bool value) { return take(value); }
    bool number_integer(Json::number_integer_t value) { return take(value); }
    bool number_unsigned(Json::number_unsigned_t value) { return take(value); }
    bool number_float(Json::number_float_t value, const Json::string_t&) { return take(value); }
    bool string(Json::string_t& value) { return take(std::move(value)); }
    bool binary(Json::binary_t&) { return false; } // no text has any
    bool start_object(std::size_t) { return open(Json::value_t::object); }
    bool start_array(std::size_t) { return open(Json::value_t::array); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool key(Json::string_t& name)
    {
        key_ = std::move(name);
        return true;
    }
    bool parse_error(std::size_t, const std::string&, const Json::exception& error)
    {
        // "[json.exception.parse_error.101] parse error at line 1, column 2: ..."
        problem = error.what();
        if (const std::size_t begin = problem.find("] "); begin != std::string::npos) problem.erase(0, begin + 2);
        return false;
    }

private:
    Json& place()
    {
        if (open_.empty()) return top;
        Json& parent = *open_.back();
        return parent.is_array() ? parent.emplace_back() : parent[key_];
    }
    bool take(Json value)
    {
        place() = std::move(value);
        return true;
    }
    bool open(Json::value_t kind)
    {
        Json& opened = place();
        opened = Json(kind);
        open_.push_back(&opened);
        return true;
    }
    bool close()
    {
        open_.pop_back();
        return true;
    }

    std::vector<Json*> open_; // objects and arrays around the current place; only the innermost one grows
    std::string key_;
};

const Json nothing;

} // namespace

JsonFile::JsonFile(std::string name, std::string_view text) : name_(std::move(name))
{
    Taker taker;
    if (Json::sax_parse(text, &taker))
        top_ = std::move(taker.top);
    else
        problem_ = "the scene '" + name_ + "' cannot be read: " + taker.problem;
}

JsonEntry JsonFile::top()
{
    return {*this, top_};
}

void JsonFile::fail(const std::string& sentence)
{
    if (problem_.empty()) problem_ = sentence;
}

void JsonEntry::failHere(const std::string& sentence) const
{
    file_->fail("'" + file_->name() + "', " + (key_.empty() ? "" : key_ + ": ") + sentence);
}

void JsonEntry::refuse(const std::string& expected) const
{
    failHere("expected is " + expected + ", not " + inShort(*value_));
}

void JsonEntry::mustBeObjectOf(std::initializer_list<const char*> keys) const
{
    if (!value_->is_object()) return refuse("an object with keys in braces");
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
    if (!value_->is_object()) {
        refuse("an object with keys in braces");
        return {*file_, nothing, path};
    }
    const auto found = value_->find(key);
    if (found != value_->end()) return {*file_, *found, path};
    failHere("the key '" + key + "' is missing");
    return {*file_, nothing, path};
}

std::vector<JsonEntry> JsonEntry::list() const
{
    std::vector<JsonEntry> entries;
    if (!value_->is_array()) {
        refuse("a list in brackets");
        return entries;
    }
    for (std::size_t i = 0; i < value_->size(); ++i)
        entries.emplace_back(*file_, (*value_)[i], key_ + "[" + std::to_string(i) + "]");
    return entries;
}

std::vector<JsonEntry> JsonEntry::listOf(std::size_t count, const std::string& expected) const
{
    if (value_->is_array() && value_->size() == count) return list();
    refuse(expected);
    return std::vector<JsonEntry>(count, JsonEntry(*file_, nothing, key_));
}

std::vector<std::pair<std::string, JsonEntry>> JsonEntry::members() const
{
    std::vector<std::pair<std::string, JsonEntry>> entries;
    if (!value_->is_object()) {
        refuse("an object with names in braces");
        return entries;
    }
    for (const auto& [key, value] : value_->items()) entries.emplace_back(key, at(key));
    return entries;
}

std::pair<std::string, JsonEntry> JsonEntry::onlyMember(std::initializer_list<const char*> keys) const
{
    mustBeObjectOf(keys);
    if (value_->is_object() && value_->size() == 1) return members()[0];
    refuse("an object of one key: " + listed({keys.begin(), keys.end()}));
    return {"", JsonEntry(*file_, nothing, key_)};
}

double JsonEntry::number(double least, double most) const
{
    const double value = value_->is_number() ? value_->get<double>() : least - 1;
    if (value >= least && value <= most) return value;
    refuse("a number from " + inWords(least) + " to " + inWords(most));
    return std::clamp(0.0, least, most);
}

double JsonEntry::number() const
{
    constexpr double largest = 1e6;
    return number(-largest, largest);
}

int JsonEntry::whole(int least, int most) const
{
    if (value_->is_number_integer() && value_->get<double>() >= least && value_->get<double>() <= most)
        return value_->get<int>();
    refuse("a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    return std::max(std::min(0, most), least);
}

bool JsonEntry::flag() const
{
    if (value_->is_boolean()) return value_->get<bool>();
    refuse("true or false");
    return false;
}

std::string JsonEntry::text() const
{
    if (value_->is_string()) return value_->get<std::string>();
    refuse("a text in quotes");
    return "";
}

Vector JsonEntry::vector() const
{
    const std::vector<JsonEntry> parts = listOf(3, "a list of three numbers");
    return {parts[0].number(), parts[1].number(), parts[2].number()};
}

Colour JsonEntry::colour() const
{
    const std::vector<JsonEntry> parts = listOf(3, "red, green and blue from 0 to 255 in a list");
    const auto channel = [&](std::size_t i) { return std::uint8_t(parts[i].whole(0, 255)); };
    return {channel(0), channel(1), channel(2)};
}

std::size_t JsonEntry::oneOf(const std::vector<std::string>& names, const std::string& what) const
{
    const std::string name = text();
    const auto found = std::find(names.begin(), names.end(), name);
    if (found != names.end()) return std::size_t(found - names.begin());
    const std::string meant = suggestion(name, names);
    std::string known = names.empty() ? "; there are none" : "; expected are " + listed(names);
    if (names.size() > 20) known = "; expected is one of " + std::to_string(names.size());
    failHere("there is no " + what + " '" + name + "'" + (meant.empty() ? known : meant));
    return 0;
}

} // namespace sample_host
