// routines_bench times the inner routines of the fillers, each alone, and prints one line of JSON for each: nanoseconds
// a pixel for each form at each length, or 0 where a form does not draw such spans. ./bench calls it.
//
//   routines_bench [--rounds N] [NAME]...    only routines whose name begins so
#include "benches/routines/span_timing.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace kardeno::benches {

namespace {

constexpr i32 lengths[] = {1, 2, 4, 8, 16, 64, 640};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// A bare loop draws whole blocks only.
bool draws(const Form& form, i32 length)
{
    return std::strcmp(form.name, "bare") != 0 || length % 8 == 0;
}

// The forms of a routine take turns in each round. A form that does not draw such spans has the time 0.
std::vector<double> timesOf(SpanTiming& timing, const Routine& routine, i32 length, int rounds)
{
    std::vector<std::vector<double>> times(routine.forms.size());
    for (int round = 0; round < rounds; ++round) {
        for (size_t form = 0; form < times.size(); ++form) {
            const Form& timed = routine.forms[form];
            times[form].push_back(draws(timed, length) ? timing.time(timed.routine) : 0);
        }
    }
    std::vector<double> medians;
    for (const std::vector<double>& ofForm : times) medians.push_back(median(ofForm));
    return medians;
}

void print(const Routine& routine, const std::vector<std::vector<double>>& timesOfLength, bool samePixels)
{
    std::printf("{\"routine\": \"%s\", \"map\": \"%s\", \"format\": \"%s\", \"same pixels\": %s, \"forms\": [",
                routine.name.c_str(), routine.map, routine.format, samePixels ? "true" : "false");
    for (size_t form = 0; form < routine.forms.size(); ++form) {
        std::printf("%s{\"form\": \"%s\", \"times\": [", form ? ", " : "", routine.forms[form].name);
        for (size_t i = 0; i < timesOfLength.size(); ++i) std::printf("%s%.4f", i ? ", " : "", timesOfLength[i][form]);
        std::printf("]}");
    }
    std::printf("]}\n");
    std::fflush(stdout);
}

void time(SpanTiming& timing, const Routine& routine, int rounds)
{
    std::vector<std::vector<double>> timesOfLength;
    bool samePixels = true;
    for (const i32 length : lengths) {
        timing.choose(routine, length);
        const u32 pixels = timing.pixelsOf(routine.forms[0].routine);
        for (const Form& form : routine.forms)
            if (std::strcmp(form.name, "packed") == 0 && timing.pixelsOf(form.routine) != pixels) samePixels = false;
        timesOfLength.push_back(timesOf(timing, routine, length, rounds));
    }
    print(routine, timesOfLength, samePixels);
}

} // namespace

} // namespace kardeno::benches

int main(int count, char** arguments)
{
    using namespace kardeno::benches;
    int rounds = 9;
    std::vector<std::string_view> names;
    for (int i = 1; i < count; ++i) {
        if (std::strcmp(arguments[i], "--rounds") == 0 && i + 1 < count)
            rounds = std::max(1, std::atoi(arguments[++i]));
        else
            names.push_back(arguments[i]);
    }
    SpanTiming timing;
    for (const Routine& routine : allRoutines()) {
        const auto isMeant = [&](std::string_view name) { return routine.name.starts_with(name); };
        if (names.empty() || std::any_of(names.begin(), names.end(), isMeant)) time(timing, routine, rounds);
    }
}
