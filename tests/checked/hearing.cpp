#include "tests/checked/hearing.h"

#include <cstdlib>
#include <deque>
#include <ostream>

namespace kardeno::tests {

namespace {

struct Heard {
    std::string name, sentence;
};
std::vector<Heard> heard;

void listen(checked::Mistake mistake, const char* sentence)
{
    heard.push_back({checked::wordsOf(mistake).name, sentence});
    if (!heard.back().sentence.empty()) heard.back().sentence.pop_back();
}

} // namespace

std::ostream& operator<<(std::ostream& out, const Names& names)
{
    for (const std::string& name : names) out << name << ' ';
    return out;
}

void setVariable(const std::string& name, const std::string& value)
{
    static std::deque<std::string> variables; // the environment keeps the addresses
    variables.push_back(name + "=" + value);
    putenv(variables.back().data());
    checked::readSettings();
}

Hearing::Hearing()
{
    setVariable("KARDENO_CHECKED_LEVEL", "hints");
    checked::forgetSentences();
    checked::setListener(listen);
    heard.clear();
}

Hearing::~Hearing()
{
    checked::setListener(nullptr);
}

std::vector<std::string> Hearing::sentences() const
{
    std::vector<std::string> result;
    for (const Heard& one : heard) result.push_back(one.sentence);
    return result;
}

Names Hearing::names() const
{
    Names result;
    for (const Heard& one : heard) result.push_back(one.name);
    return result;
}

void Hearing::forget()
{
    heard.clear();
}

Names heardIn(const std::function<void()>& something)
{
    const Hearing hearing;
    something();
    return hearing.names();
}

} // namespace kardeno::tests
