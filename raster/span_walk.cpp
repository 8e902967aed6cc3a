#include "raster/span_walk.h"

namespace kardeno {

constinit DrawnRectangle drawnRectangle = {};

} // namespace kardeno
