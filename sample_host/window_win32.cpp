// A window by GDI, for Windows of 32 and of 64 bits.
#include "sample_host/window.h"

#include "sample_host/host/failure.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#include <windowsx.h>

#include <deque>

namespace sample_host {

namespace {

constexpr const char* className = "kardeno_sample_host";
constexpr DWORD windowedStyle = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
constexpr DWORD fullScreenStyle = WS_POPUP | WS_VISIBLE;

WindowEvent::Key keyOf(WPARAM code)
{
    using Key = WindowEvent::Key;
    switch (code) {
    case VK_LEFT: return Key::left;
    case VK_RIGHT: return Key::right;
    case VK_UP: return Key::up;
    case VK_DOWN: return Key::down;
    case VK_ESCAPE: return Key::escape;
    case VK_TAB: return Key::tab;
    case VK_F1: return Key::help;
    case VK_F11: return Key::fullScreen;
    default: return Key::none;
    }
}

// The head of a picture of 16-bit pixels, as GDI wants it.
struct PictureHead {
    BITMAPINFOHEADER header{};
    DWORD masks[3]; // of red, green and blue
};

class GdiWindow : public Window {
public:
    GdiWindow(const std::string& title, int width, int height)
    {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = receive;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
        windowClass.lpszClassName = className;
        RegisterClassA(&windowClass);
        RECT place{0, 0, width, height};
        AdjustWindowRect(&place, windowedStyle, FALSE);
        window_ = CreateWindowExA(0, className, title.c_str(), windowedStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                                  place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                                  windowClass.hInstance, this);
        if (!window_) fail("no window can be opened; expected is a desktop");
        SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~GdiWindow() override
    {
        SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
    }
    GdiWindow(const GdiWindow&) = delete;
    GdiWindow& operator=(const GdiWindow&) = delete;

    std::optional<WindowEvent> nextEvent() override
    {
        MSG message;
        while (events_.empty() && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        if (events_.empty()) return std::nullopt;
        const WindowEvent event = events_.front();
        events_.pop_front();
        return event;
    }

    void show(const FrameBuffer& frame) override
    {
        PictureHead head;
        head.header.biSize = sizeof head.header;
        head.header.biWidth = frame.pitch;
        head.header.biHeight = -frame.height; // rows from top to bottom
        head.header.biPlanes = 1;
        head.header.biBitCount = 16;
        head.header.biCompression = BI_BITFIELDS;
        const bool is565 = frame.format == PixelFormat::rgb565;
        head.masks[0] = is565 ? 0xf800 : 0x7c00;
        head.masks[1] = is565 ? 0x07e0 : 0x03e0;
        head.masks[2] = 0x001f;
        RECT inner;
        GetClientRect(window_, &inner);
        const HDC device = GetDC(window_);
        StretchDIBits(device, 0, 0, inner.right, inner.bottom, 0, 0, frame.width, frame.height, frame.pixels.data(),
                      reinterpret_cast<const BITMAPINFO*>(&head), DIB_RGB_COLORS, SRCCOPY);
        ReleaseDC(window_, device);
    }

    void setTitle(const std::string& title) override { SetWindowTextA(window_, title.c_str()); }

    void switchFullScreen() override
    {
        isFull_ = !isFull_;
        if (isFull_) {
            GetWindowRect(window_, &before_);
            SetWindowLongPtrA(window_, GWL_STYLE, fullScreenStyle);
            SetWindowPos(window_, HWND_TOP, 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN),
                         SWP_FRAMECHANGED);
        } else {
            SetWindowLongPtrA(window_, GWL_STYLE, windowedStyle);
            SetWindowPos(window_, HWND_TOP, before_.left, before_.top, before_.right - before_.left,
                         before_.bottom - before_.top, SWP_FRAMECHANGED);
        }
    }

    void wait(int milliseconds) override { Sleep(DWORD(milliseconds)); }

private:
    static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM word, LPARAM value)
    {
        auto* own = reinterpret_cast<GdiWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        if (own && own->take(message, word, value)) return 0;
        return DefWindowProcA(window, message, word, value);
    }

    // True when that was all that there is to do.
    bool take(UINT message, WPARAM word, LPARAM value)
    {
        using Kind = WindowEvent::Kind;
        const int x = GET_X_LPARAM(value), y = GET_Y_LPARAM(value);
        switch (message) {
        case WM_CLOSE: events_.push_back({.kind = Kind::close}); return true;
        case WM_KEYDOWN:
            if (keyOf(word) == WindowEvent::Key::none) return false; // a letter comes as one
            events_.push_back({.kind = Kind::key, .key = keyOf(word)});
            return true;
        case WM_CHAR:
            if (word >= ' ' && word < 127)
                events_.push_back(
                    {.kind = Kind::letter, .letter = char(word >= 'A' && word <= 'Z' ? word + 32 : word)});
            return true;
        case WM_LBUTTONDOWN:
            SetCapture(window_);
            events_.push_back({.kind = Kind::press, .x = x, .y = y});
            return true;
        case WM_LBUTTONUP:
            ReleaseCapture();
            events_.push_back({.kind = Kind::release, .x = x, .y = y});
            return true;
        case WM_MOUSEMOVE:
            if (word & MK_LBUTTON) events_.push_back({.kind = Kind::drag, .x = x, .y = y});
            return true;
        case WM_MOUSEWHEEL:
            events_.push_back({.kind = Kind::wheel, .steps = GET_WHEEL_DELTA_WPARAM(word) > 0 ? 1 : -1});
            return true;
        case WM_SIZE:
            if (word != SIZE_MINIMIZED) events_.push_back({.kind = Kind::resize, .x = x, .y = y});
            return true;
        case WM_ERASEBKGND: return true;
        default: return false;
        }
    }

    HWND window_ = nullptr;
    RECT before_{};
    bool isFull_ = false;
    std::deque<WindowEvent> events_;
};

} // namespace

std::unique_ptr<Window> openWindow(const std::string& title, int width, int height)
{
    return std::make_unique<GdiWindow>(title, width, height);
}

} // namespace sample_host
