// What is timed: something that draws frames.
#pragma once

#include "kardeno_soft/types.h"

#include <span>

namespace benches {

class Subject {
public:
    virtual ~Subject() = default;
    virtual int frameCount() const = 0;
    // The timed work of a frame: when it returns, all pixels of the frame are in memory.
    virtual void draw(int frame) = 0;
    virtual std::span<const kardeno::u16> pixels() const = 0;
};

} // namespace benches
