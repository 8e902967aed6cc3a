// Allegro 4's polygons, in a bitmap in memory.
//
//   --bits 16|8       pixels of 5-6-5, or of 8 bits with tables for light and blending
//   --hidden zbuffer|sorted   hidden surfaces by its z-buffer, or by drawing from back to front
//
// See-through triangles are drawn in the order of the file, from back to front. Their polygons have no light, and those
// of 8 bits have no sum of their own.
#include "benches/peers/peer_program.h"
#include "benches/peers/screen_polygons.h"

#include <allegro.h>

#include <algorithm>
#include <memory>

namespace benches {

namespace {

class Allegro4 : public Subject {
public:
    Allegro4(const SceneFile& scene, const PeerOptions& options)
        : scene_(scene), variant_(options.variant), bits_(options.own.at("bits") == "8" ? 8 : 16),
          usesZBuffer_(options.own.at("hidden") == "zbuffer"), polygons_(scene, options.width, options.height)
    {
        set_color_depth(bits_);
        _rgb_r_shift_16 = 11;
        _rgb_g_shift_16 = 5;
        _rgb_b_shift_16 = 0;
        if (bits_ == 8) makeTables();
        frame_ = create_bitmap(options.width, options.height);
        makeTexture();
        zBuffer_ = create_zbuffer(frame_);
        set_zbuffer(zBuffer_);
        for (const FileTriangle& triangle : scene.triangles)
            flatColours_.push_back(makecol_depth(bits_, triangle.red, triangle.green, triangle.blue));
    }

    int frameCount() const override { return int(scene_.frames.size()); }
    std::span<const kardeno::u16> pixels() const override { return {}; }

    void draw(int frame) override
    {
        const int opaque = opaqueType(), seeThrough = variant_.isTextured() ? POLYTYPE_PTEX_TRANS : opaque;
        clear_bitmap(frame_);
        if (usesZBuffer_) clear_zbuffer(zBuffer_, 0.f);
        setBlending(false);
        drawing_mode(DRAW_MODE_SOLID, nullptr, 0, 0);
        opaqueFaces_.clear();
        seeThroughFaces_.clear();
        polygons_.forEachFace(std::size_t(frame), [&](const ScreenFace& face) {
            if (face.triangle >= scene_.opaqueTriangles)
                seeThroughFaces_.push_back(face);
            else if (usesZBuffer_)
                fill(face, opaque | POLYTYPE_ZBUF);
            else
                opaqueFaces_.push_back(face);
        });
        drawSorted(opaque);
        if (seeThroughFaces_.empty()) return;
        setBlending(true);
        if (variant_.surfaces == Surfaces::flat) drawing_mode(DRAW_MODE_TRANS, nullptr, 0, 0);
        for (const ScreenFace& face : seeThroughFaces_) fill(face, seeThrough);
    }

private:
    int opaqueType() const
    {
        switch (variant_.surfaces) {
        case Surfaces::texture: return POLYTYPE_PTEX;
        case Surfaces::litTexture: return POLYTYPE_PTEX_LIT;
        case Surfaces::gouraud: return bits_ == 8 ? POLYTYPE_GCOL : POLYTYPE_GRGB;
        case Surfaces::flat: return POLYTYPE_FLAT;
        }
        return POLYTYPE_FLAT;
    }

    void makeTables()
    {
        PALETTE palette;
        for (int i = 0; i < 256; ++i) {
            const std::uint8_t* const colour = scene_.palette[i];
            palette[i] = {std::uint8_t(colour[0] >> 2), std::uint8_t(colour[1] >> 2), std::uint8_t(colour[2] >> 2), 0};
        }
        create_rgb_table(&colourTable_, palette, nullptr);
        rgb_map = &colourTable_;
        create_light_table(&lightTable_, palette, 0, 0, 0, nullptr);
        create_trans_table(&blendTable_, palette, 128, 128, 128, nullptr);
        color_map = &lightTable_;
    }

    void makeTexture()
    {
        texture_ = create_bitmap(256, 256);
        for (int i = 0; i < 256 * 256; ++i) {
            const int index = scene_.texels[i];
            const std::uint8_t* const colour = scene_.palette[index];
            putpixel(texture_, i & 255, i >> 8, bits_ == 8 ? index : makecol16(colour[0], colour[1], colour[2]));
        }
    }

    void setBlending(bool seeThrough)
    {
        if (bits_ == 8)
            color_map = seeThrough ? &blendTable_ : &lightTable_;
        else if (seeThrough && variant_.addsSeeThrough)
            set_add_blender(0, 0, 0, 255);
        else
            set_trans_blender(0, 0, 0, 128);
    }

    int cornerColour(const ScreenFace& face, float light) const
    {
        switch (variant_.surfaces) {
        case Surfaces::texture: return 0;
        case Surfaces::litTexture: return int(light * 255);
        case Surfaces::flat: return flatColours_[face.triangle];
        case Surfaces::gouraud: break;
        }
        if (bits_ == 8) return int(light * 15);
        const auto channel = [&](int i) { return int(light * float(gouraudColour[i])); };
        return channel(0) << 16 | channel(1) << 8 | channel(2);
    }

    void fill(const ScreenFace& face, int type)
    {
        V3D_f corners[8], *pointers[8];
        for (int k = 0; k < face.corners; ++k) {
            const ScreenCorner& from = face.corner[k];
            corners[k] = {from.x, from.y, from.depth, from.u * 256, from.v * 256, cornerColour(face, from.light)};
            pointers[k] = &corners[k];
        }
        polygon3d_f(frame_, type, texture_, face.corners, pointers);
    }

    void drawSorted(int type)
    {
        order_.resize(opaqueFaces_.size());
        for (std::size_t i = 0; i < order_.size(); ++i) order_[i] = i;
        std::sort(order_.begin(), order_.end(),
                  [&](std::size_t a, std::size_t b) { return opaqueFaces_[a].depth > opaqueFaces_[b].depth; });
        for (const std::size_t i : order_) fill(opaqueFaces_[i], type);
    }

    const SceneFile& scene_;
    const Variant variant_;
    const int bits_;
    const bool usesZBuffer_;
    ScreenPolygons polygons_;
    std::vector<ScreenFace> opaqueFaces_, seeThroughFaces_;
    std::vector<std::size_t> order_;
    std::vector<int> flatColours_;
    BITMAP *frame_ = nullptr, *texture_ = nullptr; // these live until the program ends
    ZBUFFER* zBuffer_ = nullptr;
    RGB_MAP colourTable_;
    COLOR_MAP lightTable_, blendTable_;
};

} // namespace

} // namespace benches

int main(int count, char** arguments)
{
    using namespace benches;
    const PeerOptions options = readPeerOptions(count, arguments);
    const auto scene = std::make_unique<SceneFile>();
    readScene(options, *scene);
    if (install_allegro(SYSTEM_NONE, &errno, nullptr)) {
        std::fprintf(stderr, "%s\n", allegro_error);
        return 1;
    }
    const auto subject = std::make_unique<Allegro4>(*scene, options);
    print(timeFrames(*subject, options.run));
}
END_OF_MAIN()
