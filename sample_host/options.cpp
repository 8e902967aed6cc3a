#include "sample_host/options.h"

#include "sample_host/host/failure.h"
#include "sample_host/scenes/scenes.h"

#include <algorithm>
#include <charconv>

namespace sample_host {

const char* const usage =
    R"(usage: sample_host [MODEL.obj | --scene NAME | --room] [pick X Y] [option]...
       sample_host gallery [option]...

Draws a scene through the renderer and writes what it drew as PNG files.

  MODEL.obj               a model with its materials and images; without a model or
                          scene, the model that tools/fetch_models fetches, or else
                          the room
  --scene NAME            room: a lit room with a window and cones of light
                          robots: groups with parts and levels of detail
                          particles: a fountain between fires
  --room                  the same as --scene room
  pick X Y                says what lies under that pixel: the object, the number of
                          its face and the depth; marks it in the picture
  gallery                 the contact sheets of the render modes, in both pixel
                          formats, and a picture of each of the scenes
  --frames N              with more than 1: a turntable of N frames, an animated PNG
  --size WxH              of the pictures (640x480); not of the contact sheets
  --format 565|555        of the frame buffer's pixels (565)
  --state 0|1|2           render state of the materials: 0 unlit, 1 or 2 lit (1)
  --texture true|palette  maps of unlit materials: 16-bit, or of 256 colours (true);
                          lit ones always have 256 colours
  --library FILE          the renderer (beside the program)
  --out DIR               where the pictures go (pictures)
  -h, --help              this text
)";

namespace {

[[noreturn]] void refuse(const std::string& sentence)
{
    fail(sentence + " (--help lists what can be asked for)");
}

// A whole number within its bounds, and nothing behind it.
int number(std::string_view text, int least, int most, const std::string& option)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || value < least || value > most) {
        refuse(option + " takes a number from " + std::to_string(least) + " to " + std::to_string(most) + ", not '"
               + std::string(text) + "'");
    }
    return value;
}

// Which of two words it is: false for the first.
bool choice(const std::string& text, const char* first, const char* second, const std::string& option)
{
    if (text != first && text != second) refuse(option + " is " + first + " or " + second + ", not '" + text + "'");
    return text == second;
}

// A width, an x and a height.
void readSize(const std::string& size, Options& options)
{
    const std::size_t cross = size.find('x');
    if (cross == std::string::npos) refuse("--size is a width, an x and a height, not '" + size + "'");
    options.width = number(std::string_view(size).substr(0, cross), 16, 4096, "--size");
    options.height = number(std::string_view(size).substr(cross + 1), 16, 4096, "--size");
}

// What is not there, or does not go together.
void check(const Options& options)
{
    if (!options.sceneName.empty() && !sceneNamed(options.sceneName))
        refuse("there is no scene '" + options.sceneName + "'");
    if (!options.sceneName.empty() && !options.modelFile.empty()) refuse("a model or a scene, not both");
    if (options.command == Command::gallery && (!options.sceneName.empty() || !options.modelFile.empty()))
        refuse("the gallery takes no model and no scene");
    if (options.command != Command::draw && options.frames > 1) refuse("only a scene can be a turntable");
    if (options.command == Command::pick && (options.pickX >= options.width || options.pickY >= options.height))
        refuse("the pixel to pick lies outside the picture");
}

} // namespace

Options readOptions(std::span<const char* const> arguments)
{
    const auto asksForHelp = [](std::string_view argument) { return argument == "-h" || argument == "--help"; };
    if (std::any_of(arguments.begin(), arguments.end(), asksForHelp)) return {.command = Command::help};

    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string option = arguments[i];
        const auto value = [&]() -> std::string {
            if (i + 1 == arguments.size()) refuse(option + " needs a value");
            return arguments[++i];
        };
        const auto command = [&](Command wanted) {
            if (options.command != Command::draw) refuse("one command at a time: '" + option + "' is the second");
            options.command = wanted;
        };
        if (option == "gallery")
            command(Command::gallery);
        else if (option == "pick") {
            command(Command::pick);
            options.pickX = number(value(), 0, 4095, option);
            options.pickY = number(value(), 0, 4095, option);
        } else if (option == "--room")
            options.sceneName = "room";
        else if (option == "--scene")
            options.sceneName = value();
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
        else if (option == "--size")
            readSize(value(), options);
        else if (option.starts_with("-"))
            refuse("there is no option " + option);
        else if (!options.modelFile.empty())
            refuse("one model at a time: '" + option + "' is the second");
        else
            options.modelFile = option;
    }
    check(options);
    return options;
}

} // namespace sample_host
