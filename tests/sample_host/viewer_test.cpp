// The viewer under a hand that is made up.
#include "sample_host/viewer.h"
#include "tests/sample_host/linked_renderer.h"

#include <doctest/doctest.h>

#include <deque>
#include <memory>
#include <stdexcept>

using namespace sample_host;

namespace {

using Kind = WindowEvent::Kind;
using Key = WindowEvent::Key;

Options smallOptions()
{
    Options options;
    options.width = 160;
    options.height = 120;
    return options;
}

struct Hand {
    Subject subject;
    Viewer viewer{linkedRendererOfTheTests(), subject, smallOptions()};

    void press(Key key) { viewer.handle({.kind = Kind::key, .key = key}); }
    void press(char letter) { viewer.handle({.kind = Kind::letter, .letter = letter}); }
    void click(int x, int y)
    {
        viewer.handle({.kind = Kind::press, .x = x, .y = y});
        viewer.handle({.kind = Kind::release, .x = x, .y = y});
    }
    void drag(int fromX, int toX)
    {
        viewer.handle({.kind = Kind::press, .x = fromX, .y = 60});
        viewer.handle({.kind = Kind::drag, .x = toX, .y = 60});
        viewer.handle({.kind = Kind::release, .x = toX, .y = 60});
    }
    std::vector<u16> pixels(double seconds = 0) { return viewer.draw(seconds).pixels; }
    bool titleHas(const char* words) const { return viewer.title().find(words) != std::string::npos; }
};

// Gives the events that it was made with, one for each frame, and counts what is shown.
struct MadeUpWindow : Window {
    std::deque<WindowEvent> events;
    int shown = 0, fullScreens = 0;
    std::string titleShown;
    bool given = false;

    std::optional<WindowEvent> nextEvent() override
    {
        given = !given;
        if (!given || events.empty()) return std::nullopt;
        const WindowEvent event = events.front();
        events.pop_front();
        return event;
    }
    void show(const FrameBuffer&) override { ++shown; }
    void setTitle(const std::string& title) override { titleShown = title; }
    void switchFullScreen() override { ++fullScreens; }
    void wait(int) override {}
};

} // namespace

TEST_CASE("the scene moves as time goes by, and the space bar stops it")
{
    Hand hand;
    const auto first = hand.pixels(), later = hand.pixels(1);
    CHECK((first != later));
    hand.press(' ');
    CHECK((hand.pixels(1) == later));
    hand.press(' ');
    CHECK((hand.pixels(1) != later));
    CHECK(hand.titleHas("room: lit, 160x120 in 5-6-5, "));
}

TEST_CASE("dragging and the arrow keys turn the camera, and back again")
{
    // One hand at a time: the renderer serves the host that was there last.
    auto hand = std::make_unique<Hand>();
    hand->press(' ');
    const auto before = hand->pixels();
    hand->press(Key::left);
    CHECK((hand->pixels() != before));
    hand->press(Key::right);
    hand->press(Key::up);
    CHECK((hand->pixels() != before));
    for (int i = 0; i < 100; ++i) hand->press(Key::up); // never over the pole
    CHECK((hand->pixels() != before));
    hand.reset();

    Hand other;
    other.press(' ');
    other.drag(80, 120);
    CHECK((other.pixels() != before));
}

TEST_CASE("the wheel and plus and minus bring the camera nearer and farther")
{
    Hand hand;
    hand.press(' ');
    const auto before = hand.pixels();
    hand.viewer.handle({.kind = Kind::wheel, .steps = 2});
    const auto nearer = hand.pixels();
    CHECK((nearer != before));
    hand.press('-');
    hand.press('-');
    hand.press('+');
    CHECK((hand.pixels() != nearer));
    hand.viewer.handle({.kind = Kind::wheel, .steps = 1000}); // never through the target
    CHECK(hand.pixels().size() == before.size());
}

TEST_CASE("a click says what is there and marks it, and a drag picks nothing")
{
    {
        Hand hand;
        hand.press(' ');
        const auto before = hand.pixels();
        hand.drag(80, 81); // no farther than a hand trembles
        CHECK(hand.titleHas(" - '"));
        CHECK(hand.titleHas("material '"));
        CHECK((hand.pixels() != before));
    }
    Hand other;
    other.drag(80, 120);
    CHECK(!other.titleHas(" - "));
    other.click(500, 500); // outside
    CHECK(!other.titleHas(" - "));
}

TEST_CASE("keys choose how the scene is drawn, from the same place, and tab goes through the scenes")
{
    Hand hand;
    hand.press(' ');
    const auto lit = hand.pixels();
    hand.press('0');
    CHECK(hand.titleHas("unlit, 16-bit maps"));
    CHECK((hand.pixels() != lit));
    hand.press('t');
    CHECK(hand.titleHas("unlit, 256 colours"));
    hand.press('f');
    CHECK(hand.titleHas("5-5-5"));
    hand.press('f');
    hand.press('t');
    hand.press('1');
    CHECK((hand.pixels() == lit));
    hand.press(Key::tab);
    CHECK(hand.titleHas("robots: "));
    hand.press(Key::tab);
    CHECK(hand.titleHas("particles: "));
    hand.press(Key::tab);
    CHECK(hand.titleHas("room: "));
}

TEST_CASE("keys go through shading modes, transparency and sizes of textures, and back to those of the scene")
{
    struct Choice {
        char key;
        std::vector<const char*> titles;
    };
    const Choice choices[]{{'s', {"lit, plain, 160x120", "lit, keyed, 160x120", "lit, added, 160x120"}},
                           {'h', {"lit, opaque, 160x120", "lit, half transparent, 160x120"}},
                           {'x',
                            {"lit, textures up to 128, ", "lit, textures up to 64, ", "lit, textures up to 32, ",
                             "lit, textures up to 16, ", "lit, textures up to 4, "}}};
    Hand hand;
    hand.press(' ');
    const auto before = hand.pixels();
    for (const Choice& choice : choices) {
        CAPTURE(choice.key);
        for (const char* title : choice.titles) {
            hand.press(choice.key);
            CHECK(hand.titleHas(title));
        }
        CHECK((hand.pixels() != before));
        hand.press(choice.key);
        CHECK(hand.titleHas("room: lit, 160x120"));
        CHECK((hand.pixels() == before));
    }
    hand.press('3');
    CHECK(hand.titleHas("flat colours"));
    CHECK((hand.pixels() != before));
}

TEST_CASE("keys move the near and the far plane, which never change places, and r puts all choices back")
{
    Hand hand;
    hand.press(' ');
    const auto before = hand.pixels();
    hand.press('k');
    CHECK(hand.titleHas("near plane 0.125,")); // a quarter more than the room's
    hand.press('j');
    CHECK(!hand.titleHas("near plane"));
    hand.press('i');
    CHECK(hand.titleHas("far plane 37.5,"));
    for (int i = 0; i < 60; ++i) hand.press('k');
    hand.pixels();
    CHECK(hand.titleHas("near plane 100, far plane 101,")); // as far as it goes
    CHECK((hand.pixels() != before));
    hand.press('s');
    hand.press('l');
    hand.press('r');
    CHECK(hand.titleHas("room: lit, 160x120"));
    CHECK((hand.pixels() == before));
}

TEST_CASE("l goes through the levels of detail, which a scene of robots shows, and back to that by the distance")
{
    Hand hand;
    hand.press(Key::tab);
    hand.press(' ');
    const auto before = hand.pixels();
    for (const char* level : {"level 0", "level 1", "level 2"}) {
        hand.press('l');
        CHECK(hand.titleHas(level));
    }
    CHECK((hand.pixels() != before));
    hand.press('t'); // what is built anew has the same level
    CHECK(hand.titleHas("level 2"));
    hand.press('t');
    hand.press('l');
    CHECK(!hand.titleHas("level"));
    CHECK((hand.pixels() == before));
}

TEST_CASE("c lets the camera go round, and F1 shows the keys in the picture")
{
    Hand hand;
    hand.press(' ');
    const auto before = hand.pixels();
    hand.press('c');
    CHECK((hand.pixels(1) != before));
    const auto turned = hand.pixels();
    hand.press('c');
    CHECK((hand.pixels(1) == turned));
    hand.press(Key::help);
    CHECK((hand.pixels() != turned));
    hand.press(Key::help);
    CHECK((hand.pixels() == turned));
}

TEST_CASE("the frame takes the window's size, within what a frame may have")
{
    Hand hand;
    hand.viewer.handle({.kind = Kind::resize, .x = 333, .y = 77});
    CHECK(hand.viewer.draw(0).width == 333);
    CHECK(hand.viewer.draw(0).height == 77);
    hand.viewer.handle({.kind = Kind::resize, .x = 1, .y = 100000});
    CHECK(hand.viewer.draw(0).width == 16);
    CHECK(hand.viewer.draw(0).height == 4096);
}

TEST_CASE("a window shows frames until it is closed, by its cross, by q or by Escape")
{
    for (const WindowEvent& end : {WindowEvent{.kind = Kind::close}, WindowEvent{.kind = Kind::letter, .letter = 'q'},
                                   WindowEvent{.kind = Kind::key, .key = Key::escape}}) {
        Hand hand;
        MadeUpWindow window;
        window.events = {{.kind = Kind::key, .key = Key::fullScreen}, {.kind = Kind::letter, .letter = 'x'}, end};
        showInWindow(hand.viewer, window);
        CHECK(window.events.empty());
        CHECK(window.shown == 3);
        CHECK(window.fullScreens == 1);
        CHECK(window.titleShown.starts_with("room: "));
    }
}
