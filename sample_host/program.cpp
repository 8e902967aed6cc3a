#include "sample_host/program.h"

#include "kardeno_soft/version.h"
#include "sample_host/count_command.h"
#include "sample_host/host/host_memory.h"
#include "sample_host/host/renderer_file.h"
#include "sample_host/picture_commands.h"
#include "sample_host/progress_bar.h"
#include "sample_host/scenes/scenes.h"
#include "sample_host/viewer.h"

#include <filesystem>
#include <optional>
#include <ostream>

namespace sample_host {

namespace {

// One engine at a time: there is one renderer, and it serves the context that it was given last.
void drawGallery(const RendererTable& renderer, const Options& options)
{
    for (const PixelFormat format : {PixelFormat::rgb565, PixelFormat::rgb555}) {
        Engine engine(renderer, format);
        writeGallerySheet(engine, options);
    }
    for (const SceneEntry& entry : ownScenes) {
        Engine engine(renderer, options.format);
        writeScene(*entry.build(engine, options.mode), options);
    }
}

void openViewer(const RendererTable& renderer, const Subject& subject, const Options& options, std::ostream& out)
{
    const std::unique_ptr<Window> window = openWindow("sample_host", options.width, options.height);
    out << Viewer::help << std::flush;
    Viewer viewer(renderer, subject, options);
    showInWindow(viewer, *window);
}

void run(const Options& options, const std::string& library, std::ostream& out, std::ostream& errors)
{
    if (options.command == Command::help) {
        out << usage << "\nIn the window:\n" << Viewer::help;
        return;
    }
    if (options.command == Command::version) {
        out << "sample_host " KARDENO_VERSION "\n";
        return;
    }
    ProgressBar bar(errors, errorsGoToTerminal(), secondsNow);
    const Progress progress = [&](const char* task, double part) { bar.show(task, part); };
    // What a program is to read stands alone.
    std::ostream& remarks = options.asJson ? errors : out;
    const Subject subject = readSubject(options, remarks, progress);
    out.flush(); // before what the commands say

    const HostMemory memory; // outlives the renderer
    const RendererFile renderer(options.libraryFile.empty() ? library
                                                            : std::filesystem::absolute(options.libraryFile).string());
    if (options.command == Command::gallery) return drawGallery(renderer.table(), options);

    if (options.command == Command::window) return openViewer(renderer.table(), subject, options, out);

    if (options.command == Command::stats) return sayCounts(renderer.table(), subject, options, progress, out);

    Engine engine(renderer.table(), options.format);
    const std::unique_ptr<Scene> scene = buildSubject(engine, subject, options.mode, progress);
    if (options.command == Command::pick)
        writePick(*scene, options);
    else
        writeScene(*scene, options, progress);
}

} // namespace

int runProgram(std::span<const char* const> arguments, const std::string& library, std::ostream& out,
               std::ostream& errors)
{
    try {
        run(readOptions(arguments), library, out, errors);
        return 0;
    } catch (const std::bad_alloc&) {
        errors << "sample_host: there is not enough memory\n";
    } catch (const std::exception& error) {
        errors << "sample_host: " << error.what() << "\n";
    }
    return 1;
}

} // namespace sample_host
