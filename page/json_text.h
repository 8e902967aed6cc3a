// The answers that scripts get as text: a small writer of JSON.
#pragma once

#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

namespace page {

class JsonText {
public:
    JsonText& beginObject() { return begin('{'); }
    JsonText& endObject() { return end('}'); }
    JsonText& beginArray() { return begin('['); }
    JsonText& endArray() { return end(']'); }

    JsonText& key(std::string_view name)
    {
        value(name);
        text_ += ':';
        needsComma_ = false;
        return *this;
    }

    JsonText& value(std::string_view string)
    {
        separate();
        text_ += '"';
        for (const char c : string) {
            if (c == '"' || c == '\\') text_ += '\\';
            if (static_cast<unsigned char>(c) >= 32) text_ += c;
        }
        text_ += '"';
        return *this;
    }
    JsonText& value(const char* string) { return value(std::string_view(string)); }
    JsonText& value(bool truth) { return literal(truth ? "true" : "false"); }
    JsonText& value(int number) { return literal(std::to_string(number)); }
    JsonText& value(double number)
    {
        if (!std::isfinite(number)) return literal("null");
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.9g", number);
        return literal(digits);
    }

    template <class Value>
    JsonText& field(std::string_view name, const Value& fieldValue)
    {
        return key(name).value(fieldValue);
    }

    const std::string& text() const { return text_; }

private:
    void separate()
    {
        if (needsComma_) text_ += ',';
        needsComma_ = true;
    }
    JsonText& literal(std::string_view literalText)
    {
        separate();
        text_ += literalText;
        return *this;
    }
    JsonText& begin(char bracket)
    {
        separate();
        text_ += bracket;
        needsComma_ = false;
        return *this;
    }
    JsonText& end(char bracket)
    {
        text_ += bracket;
        needsComma_ = true;
        return *this;
    }

    std::string text_;
    bool needsComma_ = false;
};

} // namespace page
