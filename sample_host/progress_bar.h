// A line that tells how far a long task has come.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

namespace sample_host {

class ProgressBar {
public:
    // Seconds since any time.
    using Clock = std::function<double()>;

    // Writes nothing during the first second, and from then on ten times a second at most. With `isTerminal` false it
    // writes nothing at all, because only a terminal can take a line back.
    ProgressBar(std::ostream& out, bool isTerminal, Clock clock);
    ~ProgressBar() { takeBack(); }
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    // With the whole, 1, the line is taken back.
    void show(const char* task, double part);

private:
    void takeBack();

    std::ostream& out_;
    bool isTerminal_;
    Clock clock_;
    double next_;
    std::size_t shown_ = 0; // letters of the line that stands there
};

double secondsNow();
bool errorsGoToTerminal();

} // namespace sample_host
