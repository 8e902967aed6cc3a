// A window by SDL2.
#include "sample_host/window.h"

#include "sample_host/host/failure.h"

#define SDL_MAIN_HANDLED
#include <SDL2/SDL.h>

namespace sample_host {

namespace {

WindowEvent::Key keyOf(SDL_Keycode code)
{
    using Key = WindowEvent::Key;
    switch (code) {
    case SDLK_LEFT: return Key::left;
    case SDLK_RIGHT: return Key::right;
    case SDLK_UP: return Key::up;
    case SDLK_DOWN: return Key::down;
    case SDLK_ESCAPE: return Key::escape;
    case SDLK_TAB: return Key::tab;
    case SDLK_F1: return Key::help;
    case SDLK_F11: return Key::fullScreen;
    default: return Key::none;
    }
}

class SdlWindow : public Window {
public:
    SdlWindow(const std::string& title, int width, int height)
    {
        SDL_SetMainReady();
        // Ctrl+C goes on ending the program.
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        if (!namesDisplay()) refuse("there is no display");
        if (SDL_Init(SDL_INIT_VIDEO) != 0) refuse();
        if (isBlind()) {
            SDL_Quit();
            refuse("there is no display");
        }
        window_ = SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, width, height,
                                   SDL_WINDOW_RESIZABLE);
        if (window_) renderer_ = SDL_CreateRenderer(window_, -1, 0);
        if (renderer_) return;
        const std::string why = SDL_GetError();
        close();
        refuse(why);
    }
    ~SdlWindow() override { close(); }
    SdlWindow(const SdlWindow&) = delete;
    SdlWindow& operator=(const SdlWindow&) = delete;

    std::optional<WindowEvent> nextEvent() override
    {
        using Kind = WindowEvent::Kind;
        SDL_Event event;
        while (SDL_PollEvent(&event)) {
            switch (event.type) {
            case SDL_QUIT: return WindowEvent{.kind = Kind::close};
            case SDL_KEYDOWN: {
                const SDL_Keycode code = event.key.keysym.sym;
                if (const WindowEvent::Key key = keyOf(code); key != WindowEvent::Key::none)
                    return WindowEvent{.kind = Kind::key, .key = key};
                if (code >= ' ' && code < 127) return WindowEvent{.kind = Kind::letter, .letter = char(code)};
                break;
            }
            case SDL_MOUSEBUTTONDOWN:
            case SDL_MOUSEBUTTONUP:
                if (event.button.button != SDL_BUTTON_LEFT) break;
                return WindowEvent{.kind = event.type == SDL_MOUSEBUTTONDOWN ? Kind::press : Kind::release,
                                   .x = event.button.x,
                                   .y = event.button.y};
            case SDL_MOUSEMOTION:
                if (!(event.motion.state & SDL_BUTTON_LMASK)) break;
                return WindowEvent{.kind = Kind::drag, .x = event.motion.x, .y = event.motion.y};
            case SDL_MOUSEWHEEL: return WindowEvent{.kind = Kind::wheel, .steps = event.wheel.y};
            case SDL_WINDOWEVENT:
                if (event.window.event != SDL_WINDOWEVENT_SIZE_CHANGED) break;
                return WindowEvent{.kind = Kind::resize, .x = event.window.data1, .y = event.window.data2};
            default: break;
            }
        }
        return std::nullopt;
    }

    void show(const FrameBuffer& frame) override
    {
        makeTexture(frame);
        if (!texture_) return;
        SDL_UpdateTexture(texture_, nullptr, frame.pixels.data(), frame.pitch * int(sizeof(u16)));
        SDL_RenderClear(renderer_);
        SDL_RenderCopy(renderer_, texture_, nullptr, nullptr);
        SDL_RenderPresent(renderer_);
    }

    void setTitle(const std::string& title) override { SDL_SetWindowTitle(window_, title.c_str()); }

    void switchFullScreen() override
    {
        const bool isFull = SDL_GetWindowFlags(window_) & SDL_WINDOW_FULLSCREEN_DESKTOP;
        SDL_SetWindowFullscreen(window_, isFull ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
    }

    void wait(int milliseconds) override { SDL_Delay(Uint32(milliseconds)); }

private:
    // Asked first: where none is named, libraries that SDL tries complain in words of their own.
    static bool namesDisplay()
    {
#ifdef __linux__
        return SDL_getenv("DISPLAY") || SDL_getenv("WAYLAND_DISPLAY") || SDL_getenv("SDL_VIDEODRIVER");
#else
        return true;
#endif
    }

    // Without a display that answers SDL goes on in memory alone, where nobody sees anything. Whoever asks for that by
    // name gets it.
    static bool isBlind()
    {
        const std::string driver = SDL_GetCurrentVideoDriver();
        return !SDL_getenv("SDL_VIDEODRIVER") && (driver == "offscreen" || driver == "dummy" || driver == "evdev");
    }

    [[noreturn]] static void refuse(const std::string& why = SDL_GetError())
    {
        fail("no window can be opened: " + why + "; expected is a display, as DISPLAY or WAYLAND_DISPLAY names it");
    }

    // The texture takes the frame's pixels as they are.
    void makeTexture(const FrameBuffer& frame)
    {
        if (texture_ && width_ == frame.width && height_ == frame.height && format_ == frame.format) return;
        if (texture_) SDL_DestroyTexture(texture_);
        width_ = frame.width;
        height_ = frame.height;
        format_ = frame.format;
        const Uint32 pixels = format_ == PixelFormat::rgb565 ? SDL_PIXELFORMAT_RGB565 : SDL_PIXELFORMAT_XRGB1555;
        texture_ = SDL_CreateTexture(renderer_, pixels, SDL_TEXTUREACCESS_STREAMING, width_, height_);
    }

    void close()
    {
        if (texture_) SDL_DestroyTexture(texture_);
        if (renderer_) SDL_DestroyRenderer(renderer_);
        if (window_) SDL_DestroyWindow(window_);
        SDL_Quit();
    }

    SDL_Window* window_ = nullptr;
    SDL_Renderer* renderer_ = nullptr;
    SDL_Texture* texture_ = nullptr;
    int width_ = 0, height_ = 0;
    PixelFormat format_ = PixelFormat::rgb565;
};

} // namespace

std::unique_ptr<Window> openWindow(const std::string& title, int width, int height)
{
    return std::make_unique<SdlWindow>(title, width, height);
}

} // namespace sample_host
