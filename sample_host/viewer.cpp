#include "sample_host/viewer.h"

#include "sample_host/host/projected_outline.h"
#include "sample_host/pick_in_words.h"
#include "sample_host/pictures/marks.h"
#include "sample_host/scenes/scenes.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <utility>

namespace sample_host {

namespace {

constexpr double secondsOfRound = 12; // while the phase goes from 0 to 1
constexpr double turnsPerPixel = 0.0015;
constexpr double stepOfKey = 0.02;  // in turns
constexpr double stepOfWheel = 0.9; // of the distance
constexpr int clickReach = 3;       // a press that is moved no farther is a click
constexpr int leastSide = 16, mostSide = 4096;

} // namespace

const char* const Viewer::help =
    R"(drag or arrow keys   turn the camera        wheel, + and -   nearer, farther
click                pick what is there     tab              the next scene
space                movement on and off    0, 1, 2          render state
t                    kind of textures       f                5-6-5 or 5-5-5
F11                  full screen            q or Esc         close
)";

Viewer::Viewer(const RendererTable& renderer, const Subject& subject, const Options& options)
    : renderer_(renderer), format_(options.format), mode_(options.mode),
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
void Viewer::pressLetter(char letter)
{
    const auto buildAgain = [&] {
        const Camera& camera = scene_->camera;
        const double turn = camera.startTurn, distance = camera.distance, height = camera.height;
        build();
        scene_->camera.startTurn = turn;
        scene_->camera.distance = distance;
        scene_->camera.height = height;
    };
    switch (letter) {
    case 'q': wantsToClose_ = true; break;
    case ' ': isMoving_ = !isMoving_; break;
    case '+':
    case '=': approach(stepOfWheel); break;
    case '-': approach(1 / stepOfWheel); break;
    case '0':
    case '1':
    case '2':
        mode_.renderState = letter - '0';
        buildAgain();
        break;
    case 't':
        mode_.textures = mode_.textures == TextureKind::trueColour ? TextureKind::palettised : TextureKind::trueColour;
        buildAgain();
        break;
    case 'f':
        format_ = format_ == PixelFormat::rgb565 ? PixelFormat::rgb555 : PixelFormat::rgb565;
        buildAgain();
        break;
    default: break;
    }
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
    case Key::fullScreen: wantsFullScreen_ = true; break;
    case Key::tab:
        subject_ = (subject_ + 1) % subjects_.size();
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
    const double wanted = std::clamp(radius * factor, 2 * camera.nearZ, 0.9 * camera.farZ);
    camera.distance *= wanted / radius;
    camera.height *= wanted / radius;
}

const FrameBuffer& Viewer::draw(double seconds)
{
    if (isMoving_) phase_ += seconds / secondsOfRound;
    phase_ -= std::floor(phase_);
    const double milliseconds = scene_->draw(frame_, phase_);
    frameMilliseconds_ = frameMilliseconds_ == 0 ? milliseconds : 0.9 * frameMilliseconds_ + 0.1 * milliseconds;
    markPick();
    return frame_;
}

void Viewer::pickAt(int x, int y)
{
    if (x < 0 || y < 0 || x >= frame_.width || y >= frame_.height) return;
    pick_ = scene_->pick(frame_, phase_, x, y);
    picked_ = pickInWords(pick_);
}

// The outline of the face that was picked, wherever it has moved to since.
void Viewer::markPick()
{
    if (!pick_.object) return;
    const View view(scene_->camera, frame_.width, frame_.height, frame_.pitch);
    Image image = frame_.image();
    drawOutline(image, projectedOutline(pick_.object->outline(pick_.face), view));
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
    const char* maps = mode_.renderState != 0                      ? "lit"
                       : mode_.textures == TextureKind::palettised ? "unlit, 256 colours"
                                                                   : "unlit, 16-bit maps";
    return scene_->name + ": " + maps + ", " + size + (picked_.empty() ? "" : " - " + picked_);
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
