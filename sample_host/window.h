// A window of the desktop: what it tells, and what it shows. There is one source file for each way to have one, of
// which a build takes one: window_sdl.cpp, window_win32.cpp, or window_none.cpp where there is neither.
#pragma once

#include "sample_host/host/scene.h"

#include <memory>
#include <optional>

namespace sample_host {

struct WindowEvent {
    enum class Kind {
        close,  // the window is to go
        letter, // a key that stands for a letter or another sign: `letter`
        key,    // another key: `key`
        press,  // the left button goes down at a pixel, is moved while it is down, and goes up
        drag,
        release,
        wheel,  // by that many steps away from the user: `steps`
        resize, // to that many pixels
    };
    enum class Key { none, left, right, up, down, escape, tab, help, fullScreen };

    Kind kind = Kind::close;
    char letter = 0; // in lower case
    Key key = Key::none;
    int x = 0, y = 0; // a pixel, or a size
    int steps = 0;
};

class Window {
public:
    virtual ~Window() = default;

    // What has happened since, one thing at a time; none when that was all.
    virtual std::optional<WindowEvent> nextEvent() = 0;
    virtual void show(const FrameBuffer& frame) = 0;
    virtual void setTitle(const std::string& title) = 0;
    // From the desktop to the whole screen and back.
    virtual void switchFullScreen() = 0;
    virtual void wait(int milliseconds) = 0;
};

// Throws with a sentence when there is no display, or when this build has no windows.
std::unique_ptr<Window> openWindow(const std::string& title, int width, int height);

} // namespace sample_host
