// Hears what the checked library says, in place of standard error.
#pragma once

#include "checked/sentences.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace kardeno::tests {

struct Names : std::vector<std::string> {
    using std::vector<std::string>::vector;
};
std::ostream& operator<<(std::ostream& out, const Names& names);

// Hears all levels of sentences for as long as it lives. What was told before is forgotten at the beginning.
class Hearing {
public:
    Hearing();
    ~Hearing();
    Hearing(const Hearing&) = delete;
    Hearing& operator=(const Hearing&) = delete;

    std::vector<std::string> sentences() const; // so far, without the line's end
    Names names() const;                        // the mistakes that they name
    void forget();                              // those that were heard
};

// The names of the mistakes that are told of while something is done.
Names heardIn(const std::function<void()>& something);

// Sets an environment variable and has the library read all of them.
void setVariable(const std::string& name, const std::string& value);

} // namespace kardeno::tests
