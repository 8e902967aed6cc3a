#include "sample_host/options.h"

#include <charconv>
#include <stdexcept>

namespace sample_host {

const char* const usage =
    R"(usage: sample_host [MODEL.obj | --room] [option]...

Draws a scene through the renderer and writes what it drew as PNG files.

  MODEL.obj               a model with its materials and images; without one, the
                          model that tools/fetch_models fetches, or else the room
  --room                  a room of our own making
  --frames N              with more than 1: a turntable of N frames, an animated PNG
  --size WxH              of the pictures (640x480)
  --format 565|555        of the frame buffer's pixels (565)
  --texture true|palette  16-bit maps, or maps of 256 colours (true)
  --state 0|1|2           render state of the materials: unlit, or lit (0); maps are
                          lit with 256 colours only, else the faces are in flat colours
  --library FILE          the renderer (beside the program)
  --out DIR               where the pictures go (pictures)
  --help                  this text
)";

namespace {

[[noreturn]] void fail(const std::string& sentence)
{
    throw std::runtime_error(sentence + " (--help lists the options)");
}

// A whole number within its bounds, and nothing behind it.
int number(std::string_view text, int least, int most, const std::string& option)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || value < least || value > most) {
        fail(option + " takes a number from " + std::to_string(least) + " to " + std::to_string(most) + ", not '"
             + std::string(text) + "'");
    }
    return value;
}

// Which of two words it is: false for the first.
bool choice(const std::string& text, const char* first, const char* second, const std::string& option)
{
    if (text != first && text != second) fail(option + " is " + first + " or " + second + ", not '" + text + "'");
    return text == second;
}

} // namespace

Options readOptions(std::span<const char* const> arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string option = arguments[i];
        const auto value = [&]() -> std::string {
            if (i + 1 == arguments.size()) fail(option + " needs a value");
            return arguments[++i];
        };
        if (option == "--help")
            options.help = true;
        else if (option == "--room")
            options.room = true;
        else if (option == "--library")
            options.libraryFile = value();
        else if (option == "--out")
            options.outFolder = value();
        else if (option == "--frames")
            options.frames = number(value(), 1, 1000, option);
        else if (option == "--state")
            options.mode.renderState = number(value(), 0, 2, option);
        else if (option == "--format")
            options.format = choice(value(), "565", "555", option) ? PixelFormat::rgb555 : PixelFormat::rgb565;
        else if (option == "--texture")
            options.mode.textures =
                choice(value(), "true", "palette", option) ? TextureKind::palettised : TextureKind::trueColour;
        else if (option == "--size") {
            const std::string size = value();
            const std::size_t cross = size.find('x');
            if (cross == std::string::npos) fail("--size is a width, an x and a height, not '" + size + "'");
            options.width = number(std::string_view(size).substr(0, cross), 16, 4096, option);
            options.height = number(std::string_view(size).substr(cross + 1), 16, 4096, option);
        } else if (option.starts_with("-"))
            fail("there is no option " + option);
        else if (!options.modelFile.empty())
            fail("one model at a time: '" + option + "' is the second");
        else
            options.modelFile = option;
    }
    if (options.room && !options.modelFile.empty()) fail("a model or --room, not both");
    return options;
}

} // namespace sample_host
