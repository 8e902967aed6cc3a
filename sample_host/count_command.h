// The command that counts what happens in a frame.
#pragma once

#include "sample_host/subject.h"

#include <iosfwd>

namespace sample_host {

// Counts from the host's side what the renderer does in the still. What happens inside of a renderer no host can see,
// so the still is drawn once more by the renderer that is linked with this program, which is looked into afterwards.
// Its counts are left out when its frame is another one.
void sayCounts(const RendererTable& renderer, const Subject& subject, const Options& options, const Progress& progress,
               std::ostream& out);

} // namespace sample_host
