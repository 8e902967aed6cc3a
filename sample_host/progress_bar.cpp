#include "sample_host/progress_bar.h"

#include <algorithm>
#include <chrono>
#include <ostream>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace sample_host {

ProgressBar::ProgressBar(std::ostream& out, bool isTerminal, Clock clock)
    : out_(out), isTerminal_(isTerminal), clock_(std::move(clock)), next_(clock_() + 1)
{
}

void ProgressBar::takeBack()
{
    if (shown_ > 0) out_ << '\r' << std::string(shown_, ' ') << '\r' << std::flush;
    shown_ = 0;
}

void ProgressBar::show(const char* task, double part)
{
    if (!isTerminal_) return;
    if (part >= 1) return takeBack();
    const double now = clock_();
    if (now < next_) return;
    next_ = now + 0.1;
    constexpr int cells = 40;
    const int done = int(std::max(part, 0.0) * cells);
    std::string line = std::string(task) + " [" + std::string(std::size_t(done), '#')
                       + std::string(std::size_t(cells - done), '.') + "] "
                       + std::to_string(int(std::max(part, 0.0) * 100)) + " %";
    const std::size_t written = line.size();
    if (written < shown_) line.append(shown_ - written, ' ');
    shown_ = std::max(written, shown_);
    out_ << '\r' << line << std::flush;
}

double secondsNow()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool errorsGoToTerminal()
{
#ifdef _WIN32
    return _isatty(2) != 0;
#else
    return isatty(2) != 0;
#endif
}

} // namespace sample_host
