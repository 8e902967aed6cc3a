// The files that another file names. Who reads a text does not know where they lie: a program opens them beside the
// text, and a page has them in memory.
#pragma once

#include "sample_host/host/model.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace sample_host {

// A model, or a sentence on why there is none.
struct ModelReading {
    std::optional<Model> model;
    std::string problem;
};

// Likewise an image, whose sides are powers of two from 8 to 256.
struct ImageReading {
    std::shared_ptr<const Image> image;
    std::string problem;
};

struct NamedFiles {
    std::function<ModelReading(const std::string& name)> model;
    std::function<ImageReading(const std::string& name)> image;
};

} // namespace sample_host
