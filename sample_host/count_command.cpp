#include "sample_host/count_command.h"

#include "sample_host/counts_in_words.h"

#include <ostream>

namespace sample_host {

void sayCounts(const RendererTable& renderer, const Subject& subject, const Options& options, const Progress& progress,
               std::ostream& out)
{
    FrameBuffer frame(options.format, options.width, options.height), counted = frame, drawnInside = frame;
    FrameCounts counts;
    std::string name;
    // One engine at a time: either renderer serves the context that it was given last.
    {
        Engine engine(renderer, options.format);
        const std::unique_ptr<Scene> scene = buildSubject(engine, subject, options.mode, progress);
        scene->draw(frame, 0);
        counts = countFrame(*scene, counted, 0);
        name = scene->name;
    }
    std::optional<inspector::FrameSummary> inside;
    {
        Engine engine(inspector::watchedRenderer(), options.format);
        const std::unique_ptr<Scene> scene = buildSubject(engine, subject, options.mode, progress);
        inside = inspector::drawAndCount(*scene, drawnInside, 0);
    }
    if (drawnInside.pixels != frame.pixels) inside.reset();
    out << (options.asJson ? countsAsJson(counts, inside) : countsAsText(name, counts, inside));
}

} // namespace sample_host
