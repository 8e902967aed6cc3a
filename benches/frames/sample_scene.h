// The scenes and models of the sample host as something to time: lights that are computed, levels of detail, groups,
// billboards, several textures.
#pragma once

#include "benches/frames/subject.h"
#include "sample_host/host/scene.h"

#include <memory>
#include <string>

namespace benches {

class SampleScene : public Subject {
public:
    // Takes the name of a scene of the sample host or, where there are files, the file of a model.
    SampleScene(const sample_host::RendererTable& renderer, const std::string& name, int width, int height);

    int frameCount() const override { return 36; }
    void draw(int frame) override { scene_->draw(frame_, double(frame) / frameCount()); }
    std::span<const kardeno::u16> pixels() const override { return frame_.pixels; }

private:
    sample_host::Engine engine_;
    std::unique_ptr<sample_host::Scene> scene_;
    sample_host::FrameBuffer frame_;
};

} // namespace benches
