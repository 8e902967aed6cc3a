#include "sample_host/viewer.h"

#include "sample_host/host/projected_outline.h"
#include "sample_host/pick_in_words.h"
#include "sample_host/pictures/label.h"
#include "sample_host/pictures/marks.h"
#include "sample_host/scenes/scenes.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <sstream>
#include <utility>

namespace sample_host {

namespace {

constexpr double secondsOfRound = 12;  // while the phase goes from 0 to 1
constexpr double secondsOfCircle = 40; // of the camera
constexpr double turnsPerPixel = 0.0015;
constexpr double stepOfKey = 0.02;  // in turns
constexpr double stepOfWheel = 0.9; // of the distance
constexpr double stepOfPlane = 1.25;
constexpr int clickReach = 3; // a press that is moved no farther is a click
constexpr int leastSide = 16, mostSide = 4096;
constexpr int levels = 3; // of detail, which is as many as a scene has
constexpr int asTheSceneHasIt = RecipeChanges::asTheSceneHasIt;

// What a key chooses after the current value, and after the last one the first again.
int next(std::initializer_list<int> values, int current)
{
    const auto* found = std::find(values.begin(), values.end(), current);
    return found == values.end() || found + 1 == values.end() ? *values.begin() : found[1];
}

std::string chosenMaterials(const RecipeChanges& changes)
{
    constexpr const char* shading[]{"plain", "keyed", "added"};
    std::string words;
    if (changes.shadingMode >= 0) words += std::string(", ") + shading[changes.shadingMode];
    if (changes.transparency >= 0) words += changes.transparency == 0 ? ", opaque" : ", half transparent";
    if (changes.largestTexture > 0) words += ", textures up to " + std::to_string(changes.largestTexture);
    return words;
}

// The lines of the help in two columns of the picture, above a darkened part of it: letters have different widths.
void drawHelp(Image& image)
{
    constexpr int margin = 8, lineHeight = 12, padding = 6;
    std::istringstream lines(Viewer::help);
    constexpr std::size_t columns[]{0, 21, 44, 61}; // where the texts begin in the lines
    int widths[4]{}, count = 0;
    std::vector<std::array<std::string, 4>> table;
    for (std::string line; std::getline(lines, line); ++count) {
        std::array<std::string, 4>& row = table.emplace_back();
        for (std::size_t i = 0; i < 4; ++i) {
            if (columns[i] < line.size()) row[i] = line.substr(columns[i], i < 3 ? columns[i + 1] - columns[i] : 99);
            row[i].erase(row[i].find_last_not_of(' ') + 1);
            widths[i] = std::max(widths[i], textWidth(row[i]) + 2 * margin);
        }
    }
    const int right = margin + widths[0] + widths[1] + widths[2] + widths[3] + padding;
    const int bottom = margin + count * lineHeight + padding;
    for (int y = margin - padding; y < std::min(bottom, image.height); ++y)
        for (int x = margin - padding; x < std::min(right, image.width); ++x) {
            const Colour behind = image.colour(std::size_t(y * image.width + x));
            image.set(x, y, {u8(behind.red / 4), u8(behind.green / 4), u8(behind.blue / 4)});
        }
    for (int y = margin; const std::array<std::string, 4>& row : table) {
        for (int x = margin, i = 0; i < 4; x += widths[i++])
            drawText(image, x, y, row[std::size_t(i)], i % 2 == 0 ? Colour{255, 220, 120} : Colour{235, 235, 235});
        y += lineHeight;
    }
}

std::string inWords(double number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.3g", number);
    return text;
}

} // namespace

const char* const Viewer::help =
    R"(drag or arrow keys   turn the camera        wheel, + and -   nearer, farther
click                pick what is there     tab              the next scene
space                movement on and off    c                the camera goes round
0, 1, 2, 3           render state           f                5-6-5 or 5-5-5
s                    shading mode           h                half transparent
t                    kind of textures       x                largest texture
j and k              near plane             u and i          far plane
l                    level of detail        r                back to the start
F1                   these keys             F11              full screen
q or Esc             close
)";

Viewer::Viewer(const RendererTable& renderer, const Subject& subject, const Options& options)
    : renderer_(renderer), format_(options.format), firstMode_(options.mode), mode_(options.mode),
      frame_(options.format, options.width, options.height)
{
    const bool isOwn = !subject.model && !subject.sceneFile;
    for (const SceneEntry& entry : ownScenes)
        if (!isOwn || subject.sceneName != entry.name) ownSubjects_.push_back({.sceneName = entry.name});
    subjects_.push_back(&subject);
    for (const Subject& own : ownSubjects_) subjects_.push_back(&own);
    build();
}

// The scene is built anew, and the camera stays where the scene wants it; the user's hand turns it from there.
void Viewer::build()
{
    pick_ = {};
    picked_.clear();
    scene_.reset();
    engine_.reset(); // one at a time: the renderer serves the context that it was given last
    engine_ = std::make_unique<Engine>(renderer_, format_);
    scene_ = buildSubject(*engine_, *subjects_[subject_], mode_);
    scene_->camera.turnsPerRound = scene_->camera.sway = 0;
    ownNear_ = scene_->camera.nearZ;
    ownFar_ = scene_->camera.farZ;
    placePlanes();
    scene_->drawOnlyLevel(level_);
    frame_ = FrameBuffer(format_, frame_.width, frame_.height);
    frameMilliseconds_ = 0;
}

void Viewer::handle(const WindowEvent& event)
{
    using Kind = WindowEvent::Kind;
    switch (event.kind) {
    case Kind::close: wantsToClose_ = true; break;
    case Kind::letter: pressLetter(event.letter); break;
    case Kind::key: pressKey(event.key); break;
    case Kind::press:
        isDown_ = true;
        isDragged_ = false;
        last_ = pressed_ = {event.x, event.y};
        break;
    case Kind::drag:
        if (!isDown_) break;
        isDragged_ |= std::abs(event.x - pressed_.x) > clickReach || std::abs(event.y - pressed_.y) > clickReach;
        if (isDragged_) orbit((last_.x - event.x) * turnsPerPixel, (event.y - last_.y) * turnsPerPixel);
        last_ = {event.x, event.y};
        break;
    case Kind::release:
        if (isDown_ && !isDragged_) pickAt(event.x, event.y);
        isDown_ = false;
        break;
    case Kind::wheel: approach(std::pow(stepOfWheel, event.steps)); break;
    case Kind::resize:
        frame_ =
            FrameBuffer(format_, std::clamp(event.x, leastSide, mostSide), std::clamp(event.y, leastSide, mostSide));
        break;
    }
}

// What is drawn otherwise is drawn from the same place.
void Viewer::buildAgain()
{
    const Camera& camera = scene_->camera;
    const double turn = camera.startTurn, distance = camera.distance, height = camera.height;
    build();
    scene_->camera.startTurn = turn;
    scene_->camera.distance = distance;
    scene_->camera.height = height;
}

void Viewer::pressLetter(char letter)
{
    RecipeChanges& changes = mode_.changes;
    switch (letter) {
    case 'q': wantsToClose_ = true; return;
    case ' ': isMoving_ = !isMoving_; return;
    case 'c': circles_ = !circles_; return;
    case '+':
    case '=': return approach(stepOfWheel);
    case '-': return approach(1 / stepOfWheel);
    case 'j': return movePlanes(1 / stepOfPlane, 1);
    case 'k': return movePlanes(stepOfPlane, 1);
    case 'u': return movePlanes(1, 1 / stepOfPlane);
    case 'i': return movePlanes(1, stepOfPlane);
    case 'l':
        level_ = level_ + 1 == levels ? -1 : level_ + 1;
        scene_->drawOnlyLevel(level_);
        return;
    case 'r': return startAgain();
    case '0':
    case '1':
    case '2':
    case '3': mode_.renderState = letter - '0'; break;
    case 's': changes.shadingMode = next({asTheSceneHasIt, 0, 1, 2}, changes.shadingMode); break;
    case 'h': changes.transparency = next({asTheSceneHasIt, 0, 50}, changes.transparency); break;
    case 'x': changes.largestTexture = next({0, 128, 64, 32, 16, 4}, changes.largestTexture); break;
    case 't':
        mode_.textures = mode_.textures == TextureKind::trueColour ? TextureKind::palettised : TextureKind::trueColour;
        break;
    case 'f': format_ = format_ == PixelFormat::rgb565 ? PixelFormat::rgb555 : PixelFormat::rgb565; break;
    default: return;
    }
    buildAgain();
}

// All choices but the scene, the pixel format and the size.
void Viewer::startAgain()
{
    mode_ = firstMode_;
    level_ = -1;
    nearFactor_ = farFactor_ = 1;
    circles_ = false;
    build();
}

void Viewer::pressKey(WindowEvent::Key key)
{
    using Key = WindowEvent::Key;
    switch (key) {
    case Key::left: orbit(-stepOfKey, 0); break;
    case Key::right: orbit(stepOfKey, 0); break;
    case Key::up: orbit(0, stepOfKey); break;
    case Key::down: orbit(0, -stepOfKey); break;
    case Key::escape: wantsToClose_ = true; break;
    case Key::help: showsHelp_ = !showsHelp_; break;
    case Key::fullScreen: wantsFullScreen_ = true; break;
    case Key::tab:
        subject_ = (subject_ + 1) % subjects_.size();
        nearFactor_ = farFactor_ = 1; // scenes are of different sizes
        build();
        break;
    case Key::none: break;
    }
}

// On a sphere around the target, short of its poles.
void Viewer::orbit(double turns, double rise)
{
    Camera& camera = scene_->camera;
    camera.startTurn += turns;
    constexpr double fullTurn = 2 * std::numbers::pi, steepest = 0.24;
    const double radius = std::hypot(camera.distance, camera.height);
    const double steep = std::clamp(std::atan2(camera.height, camera.distance) / fullTurn + rise, -steepest, steepest);
    camera.distance = radius * std::cos(steep * fullTurn);
    camera.height = radius * std::sin(steep * fullTurn);
}

void Viewer::approach(double factor)
{
    Camera& camera = scene_->camera;
    const double radius = std::hypot(camera.distance, camera.height);
    const double wanted = std::clamp(radius * factor, 2 * ownNear_, 0.9 * ownFar_);
    camera.distance *= wanted / radius;
    camera.height *= wanted / radius;
}

void Viewer::movePlanes(double nearFactor, double farFactor)
{
    constexpr double farthest = 1000;
    nearFactor_ = std::clamp(nearFactor_ * nearFactor, 1 / farthest, farthest);
    farFactor_ = std::clamp(farFactor_ * farFactor, 1 / farthest, farthest);
    placePlanes();
}

// The far plane stays behind the near one.
void Viewer::placePlanes()
{
    constexpr double least = 1.01;
    Camera& camera = scene_->camera;
    camera.nearZ = ownNear_ * nearFactor_;
    camera.farZ = std::max(ownFar_ * farFactor_, camera.nearZ * least);
}

const FrameBuffer& Viewer::draw(double seconds)
{
    if (isMoving_) phase_ += seconds / secondsOfRound;
    phase_ -= std::floor(phase_);
    if (circles_) scene_->camera.startTurn += seconds / secondsOfCircle;
    const double milliseconds = scene_->draw(frame_, phase_);
    frameMilliseconds_ = frameMilliseconds_ == 0 ? milliseconds : 0.9 * frameMilliseconds_ + 0.1 * milliseconds;
    paintOver();
    return frame_;
}

void Viewer::pickAt(int x, int y)
{
    if (x < 0 || y < 0 || x >= frame_.width || y >= frame_.height) return;
    pick_ = scene_->pick(frame_, phase_, x, y);
    picked_ = pickInWords(pick_);
}

// The outline of the face that was picked, wherever it has moved to since, and the keys.
void Viewer::paintOver()
{
    if (!pick_.object && !showsHelp_) return;
    Image image = frame_.image();
    if (pick_.object) {
        const View view(scene_->camera, frame_.width, frame_.height, frame_.pitch);
        drawOutline(image, projectedOutline(pick_.object->outline(pick_.face), view));
    }
    if (showsHelp_) drawHelp(image);
    for (int y = 0; y < frame_.height; ++y)
        for (int x = 0; x < frame_.width; ++x) {
            const std::size_t place = std::size_t(y) * std::size_t(frame_.pitch) + std::size_t(x);
            frame_.pixels[place] = packedPixel(format_, image.colour(std::size_t(y * frame_.width + x)));
        }
}

std::string Viewer::title() const
{
    char size[96];
    std::snprintf(size, sizeof size, "%dx%d in %s, %.1f ms", frame_.width, frame_.height,
                  format_ == PixelFormat::rgb565 ? "5-6-5" : "5-5-5", frameMilliseconds_);
    const char* maps = mode_.renderState == 3                      ? "flat colours"
                       : mode_.renderState != 0                    ? "lit"
                       : mode_.textures == TextureKind::palettised ? "unlit, 256 colours"
                                                                   : "unlit, 16-bit maps";
    std::string chosen = chosenMaterials(mode_.changes);
    if (nearFactor_ != 1) chosen += ", near plane " + inWords(scene_->camera.nearZ);
    if (farFactor_ != 1) chosen += ", far plane " + inWords(scene_->camera.farZ);
    if (level_ >= 0) chosen += ", level " + std::to_string(level_);
    return scene_->name + ": " + maps + chosen + ", " + size + (picked_.empty() ? "" : " - " + picked_);
}

bool Viewer::takeFullScreenWish()
{
    return std::exchange(wantsFullScreen_, false);
}

void showInWindow(Viewer& viewer, Window& window)
{
    using Clock = std::chrono::steady_clock;
    using Seconds = std::chrono::duration<double>;
    constexpr double secondsPerFrame = 1.0 / 60, secondsPerTitle = 0.25;
    Clock::time_point before = Clock::now(), titleShown = before - std::chrono::seconds(1);
    while (!viewer.wantsToClose()) {
        while (const std::optional<WindowEvent> event = window.nextEvent()) viewer.handle(*event);
        if (viewer.takeFullScreenWish()) window.switchFullScreen();
        const Clock::time_point now = Clock::now();
        window.show(viewer.draw(Seconds(now - before).count()));
        before = now;
        if (Seconds(now - titleShown).count() >= secondsPerTitle) {
            window.setTitle(viewer.title());
            titleShown = now;
        }
        const double left = secondsPerFrame - Seconds(Clock::now() - now).count();
        if (left > 0) window.wait(int(1000 * left));
    }
}

} // namespace sample_host
