// A scene under the user's hand: what the events of a window do to it. Knows nothing of how there is a window.
#pragma once

#include "sample_host/pictures/marks.h"
#include "sample_host/subject.h"
#include "sample_host/window.h"

namespace sample_host {

class Viewer {
public:
    // Shows the subject first and can go on to the scenes of our own.
    Viewer(const RendererTable& renderer, const Subject& subject, const Options& options);

    void handle(const WindowEvent& event);

    // The frame after that many seconds more of the scene's movement.
    const FrameBuffer& draw(double seconds);

    // The scene, how it is drawn, what was chosen, the time that a frame takes, and what was picked.
    std::string title() const;

    bool wantsToClose() const { return wantsToClose_; }
    // True once for each time that the user asked for it.
    bool takeFullScreenWish();

    static const char* const help; // which keys do what

private:
    void build();
    void buildAgain();
    void pressLetter(char letter);
    void pressKey(WindowEvent::Key key);
    void orbit(double turns, double rise);
    void approach(double factor);
    void pickAt(int x, int y);
    void movePlanes(double nearFactor, double farFactor);
    void placePlanes();
    void startAgain();
    void paintOver();

    const RendererTable& renderer_;
    std::vector<const Subject*> subjects_;
    std::vector<Subject> ownSubjects_;
    std::size_t subject_ = 0;
    PixelFormat format_;
    const MaterialMode firstMode_; // as the options say
    MaterialMode mode_;
    FrameBuffer frame_;
    // In this order: the scene goes before its engine.
    std::unique_ptr<Engine> engine_;
    std::unique_ptr<Scene> scene_;

    bool isMoving_ = true, wantsToClose_ = false, wantsFullScreen_ = false;
    bool circles_ = false, showsHelp_ = false;
    int level_ = -1;                        // of detail; -1: by the distance
    double nearFactor_ = 1, farFactor_ = 1; // by which the planes are moved from where the scene has them
    double ownNear_ = 0, ownFar_ = 0;
    double phase_ = 0;
    double frameMilliseconds_ = 0; // a mean in which later frames count more
    bool isDown_ = false, isDragged_ = false;
    Pixel last_{}, pressed_{};
    Pick pick_{};
    std::string picked_; // in words
};

// Shows the viewer's frames, sixty a second at most, until the user closes the window.
void showInWindow(Viewer& viewer, Window& window);

} // namespace sample_host
