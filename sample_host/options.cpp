#include "sample_host/options.h"

#include "sample_host/host/failure.h"
#include "sample_host/host/nearest_word.h"
#include "sample_host/scenes/scenes.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>

namespace sample_host {

const char* const usage =
    R"(usage: sample_host [COMMAND] [MODEL | --scene SCENE] [option]...

Draws a scene through the renderer and writes what it drew as PNG files.

  MODEL                   a model with its materials and images, of an OBJ, glTF 2.0 or
                          GLB file; without a model or scene, the model that
                          tools/fetch_models fetches, or else the room
  --scene NAME            room: a lit room with a window and cones of light
                          robots: groups with parts and levels of detail
                          particles: a fountain between fires
  --scene FILE            a scene that a JSON file describes (docs/scene_files.md)
  --room                  the same as --scene room

commands, which may stand before or behind the model:
  draw                    draws the scene; so does a line without a command
  pick X Y                says what lies under that pixel: the object, the number of
                          its face, the depth, the group of the model, the material and
                          the row of the render-mode table; marks it in the picture
  stats [--json]          counts what happens in one frame, from the objects to the
                          pixels, and what happens inside of the renderer: faces
                          tested and cut, edges, spans, depths compared; as text or
                          as JSON. The option --stats means the same
  window                  shows the scene in a window: drag turns it, a click picks,
                          and the keys below choose how it is drawn
  gallery                 the contact sheets of the render modes, in both pixel
                          formats, and a picture of each of the scenes

options, in any place:
  --frames N              with more than 1: a turntable of N frames, an animated PNG
  --size WxH              of the pictures (640x480); not of the contact sheets
  --format 565|555        of the frame buffer's pixels (565)
  --state 0|1|2           render state of the materials: 0 unlit, 1 or 2 lit (1)
  --texture true|palette  maps of unlit materials: 16-bit, or of 256 colours (true);
                          lit ones always have 256 colours
  --library FILE          the renderer (beside the program)
  --out DIR               where the pictures go (pictures)
  -h, --help              this text
  --version               the version
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

std::vector<std::string> sceneNames()
{
    std::vector<std::string> names;
    for (const SceneEntry& entry : ownScenes) names.push_back(entry.name);
    return names;
}

// What stands behind --scene: one of our own, or a file, whose name has an ending or a folder.
void takeScene(const std::string& scene, Options& options)
{
    options.sceneName.clear();
    options.sceneFile.clear();
    const bool isFile = !sceneNamed(scene) && scene.find_first_of("./\\") != std::string::npos;
    (isFile ? options.sceneFile : options.sceneName) = scene;
}

// What is not there, or does not go together.
void check(const Options& options)
{
    if (!options.sceneName.empty() && !sceneNamed(options.sceneName))
        refuse("there is no scene '" + options.sceneName + "'" + suggestion(options.sceneName, sceneNames()));
    const bool hasScene = !options.sceneName.empty() || !options.sceneFile.empty();
    if (hasScene && !options.modelFile.empty()) refuse("a model or a scene, not both");
    if (options.command == Command::gallery && (hasScene || !options.modelFile.empty()))
        refuse("the gallery takes no model and no scene");
    if (options.asJson && options.command != Command::stats) refuse("only the counts of stats are told as JSON");
    if (options.command != Command::draw && options.frames > 1) refuse("only a scene can be a turntable");
    if (options.command == Command::pick && (options.pickX >= options.width || options.pickY >= options.height))
        refuse("the pixel to pick lies outside the picture");
}

// The parser of the command line, with its options bound to those of one call.
class Parser {
public:
    explicit Parser(Options& options) : options_(options)
    {
        // Everything may stand behind a command too, and what is left over gets a sentence of our own.
        app_.set_help_flag();
        app_.allow_windows_style_options(false);
        app_.fallthrough();
        app_.allow_extras();
        app_.add_option("MODEL", models_);
        bindOptions();
        bindCommands();
    }

    void parse(std::span<const char* const> arguments)
    {
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
        try {
            app_.parse(std::move(reversed));
        } catch (const CLI::ArgumentMismatch& error) {
            const std::string sentence = error.what(); // begins with the option and a colon
            refuse(sentence.substr(0, sentence.find(':')) + " needs a value");
        } catch (const CLI::Error& error) {
            refuse(error.what());
        }
        refuseLeftOver();
        if (app_.count("--room") > 0 && app_.count("--scene") > 0) refuse("one scene at a time: --room is one itself");
        takeCommand();
        takeModel();
    }

private:
    template <class Take>
    void bind(const std::string& name, Take take)
    {
        app_.add_option_function<std::string>(name, take)->take_last();
    }

    void bindOptions()
    {
        Options& options = options_;
        app_.add_flag_callback("--room", [&] { takeScene("room", options); });
        app_.add_flag_callback("--stats", [&] { options.command = Command::stats; });
        app_.add_flag("--json", options.asJson);
        bind("--scene", [&](const std::string& scene) { takeScene(scene, options); });
        bind("--library", [&](const std::string& file) { options.libraryFile = file; });
        bind("--out", [&](const std::string& folder) { options.outFolder = folder; });
        bind("--frames", [&](const std::string& text) { options.frames = number(text, 1, 1000, "--frames"); });
        bind("--state", [&](const std::string& text) { options.mode.renderState = number(text, 0, 2, "--state"); });
        bind("--format", [&](const std::string& text) {
            options.format = choice(text, "565", "555", "--format") ? PixelFormat::rgb555 : PixelFormat::rgb565;
        });
        bind("--texture", [&](const std::string& text) {
            options.mode.textures =
                choice(text, "true", "palette", "--texture") ? TextureKind::palettised : TextureKind::trueColour;
        });
        bind("--size", [&](const std::string& text) { readSize(text, options); });
    }

    void bindCommands()
    {
        for (const CommandWord& word : commandWords) {
            CLI::App* command = app_.add_subcommand(word.word);
            if (word.command != Command::pick) continue;
            command->add_option("X", pickX_);
            command->add_option("Y", pickY_);
        }
    }

    void refuseLeftOver()
    {
        const std::vector<std::string> leftOver = app_.remaining(true);
        if (leftOver.empty()) return;
        const std::string& first = leftOver[0];
        if (app_.got_subcommand("pick") && pickY_.empty()) number(first, 0, 4095, "pick");
        std::vector<std::string> known{"--help", "--version"};
        for (const CLI::Option* option : app_.get_options())
            if (!option->get_lnames().empty()) known.push_back("--" + option->get_lnames()[0]);
        const std::string name = first.substr(0, first.find('='));
        refuse("there is no option " + name + suggestion(name, known));
    }

    void takeCommand()
    {
        const std::vector<CLI::App*> commands = app_.get_subcommands();
        if (!commands.empty() && options_.command == Command::stats && commands[0]->get_name() != "stats")
            refuse("one command at a time: '--stats' is one itself");
        if (commands.size() > 1) refuse("one command at a time: '" + commands[1]->get_name() + "' is the second");
        if (commands.empty()) return;
        for (const CommandWord& word : commandWords)
            if (commands[0]->get_name() == word.word) options_.command = word.command;
        if (options_.command != Command::pick) return;
        if (pickY_.empty()) refuse("pick needs a value for X and one for Y");
        options_.pickX = number(pickX_, 0, 4095, "pick");
        options_.pickY = number(pickY_, 0, 4095, "pick");
    }

    void takeModel()
    {
        if (models_.empty()) return;
        // A file has an ending; a word that has none and looks like a command was meant as one.
        std::vector<std::string> words;
        for (const CommandWord& word : commandWords) words.push_back(word.word);
        const std::string& model = models_[0];
        if (model.find_first_of("./\\") == std::string::npos && !nearestWord(model, words).empty())
            refuse("there is no command '" + model + "'" + suggestion(model, words));
        if (models_.size() > 1) refuse("one model at a time: '" + models_[1] + "' is the second");
        options_.modelFile = model;
    }

    struct CommandWord {
        const char* word;
        Command command;
    };
    static constexpr CommandWord commandWords[]{{"draw", Command::draw},
                                                {"pick", Command::pick},
                                                {"stats", Command::stats},
                                                {"window", Command::window},
                                                {"gallery", Command::gallery}};

    Options& options_;
    CLI::App app_;
    std::vector<std::string> models_;
    std::string pickX_, pickY_;
};

} // namespace

Options readOptions(std::span<const char* const> arguments)
{
    const auto contain = [&](std::string_view wanted) {
        return std::any_of(arguments.begin(), arguments.end(),
                           [&](std::string_view argument) { return argument == wanted; });
    };
    if (contain("-h") || contain("--help")) return {.command = Command::help};
    if (contain("--version")) return {.command = Command::version};

    Options options;
    Parser(options).parse(arguments);
    check(options);
    return options;
}

} // namespace sample_host
