#include "benches/routines/bare_loops_sse2.h"

#include "host/pixel_format.h"
#include "host/render_modes.h"

#include <emmintrin.h>
#include <type_traits>
#include <utility>

namespace kardeno::benches {

namespace {

constexpr PixelLayout layout = pixelLayouts[rgb565];

__m128i eightTimes(u32 value)
{
    return _mm_set1_epi16(static_cast<short>(value));
}

__m128i loaded(const u16* pixels)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
}

void store(u16* pixels, __m128i values)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), values);
}

// Lane i is value + i * step.
__m128i ladder(__m128i value, __m128i step)
{
    return _mm_add_epi16(value, _mm_mullo_epi16(step, _mm_set_epi16(7, 6, 5, 4, 3, 2, 1, 0)));
}

// All eight lanes get the lower half of the 32-bit lane 0 or 1.
__m128i spreadFirst(__m128i lanes)
{
    return _mm_shuffle_epi32(_mm_shufflelo_epi16(lanes, 0x00), 0);
}

__m128i spreadSecond(__m128i lanes)
{
    return _mm_shuffle_epi32(_mm_shufflelo_epi16(lanes, 0xaa), 0);
}

// Lanes in memory, where the compiler may not see that they were in a register before.
class StoredLanes {
public:
    explicit StoredLanes(__m128i lanes)
    {
        _mm_store_si128(reinterpret_cast<__m128i*>(const_cast<u16*>(lanes_)), lanes);
    }
    int operator[](int i) const { return lanes_[i]; }

private:
    alignas(16) volatile u16 lanes_[8];
};

// Two values that are divided by depth, made exact every 8 pixels. They stay in one register from the division on, and
// the next division is begun before a block is drawn.
class Walk {
public:
    Walk(const SpanGradients& span, f32 first, f32 second, f32 firstStep8, f32 secondStep8)
        : value_(_mm_set_ps(0, 0, second, first)), step8_(_mm_set_ps(0, 0, secondStep8, firstStep8)),
          invDepth_(span.start.invDepth), invDepthStep8_(span.step8.invDepth),
          depth_(_mm_set1_pd(1.0 / span.start.invDepth)), target_(exact())
    {
        advance();
        nextBlock(span.count);
    }

    void nextBlock(i32 remaining)
    {
        at_ = target_;
        target_ = exact();
        step_ = _mm_srai_epi32(_mm_sub_epi32(target_, at_), 3);
        if (remaining > 8) advance();
    }

    __m128i firstOfEight() const { return ladder(spreadFirst(at_), spreadFirst(step_)); }
    __m128i secondOfEight() const { return ladder(spreadSecond(at_), spreadSecond(step_)); }

private:
    __m128i exact() const { return _mm_cvtpd_epi32(_mm_mul_pd(_mm_cvtps_pd(value_), depth_)); }

    void advance()
    {
        invDepth_ += invDepthStep8_;
        value_ = _mm_add_ps(value_, step8_);
        depth_ = _mm_set1_pd(1.0 / static_cast<f64>(invDepth_));
    }

    __m128 value_, step8_;
    f32 invDepth_, invDepthStep8_;
    __m128d depth_;
    __m128i target_, at_, step_;
};

// Sources of eight colours. What looks colours up hands a function a way to look up the i-th of them, where i is a
// constant: extracted() takes the indices out of a register one by one, throughMemory() stores and reads them.
struct Texture {
    const u16* texels;
    Walk walk;
    explicit Texture(const SpanGradients& span)
        : texels(reinterpret_cast<const u16*>(span.texture + 1)),
          walk(span, span.start.texU, span.start.texV, span.step8.texU, span.step8.texV)
    {
    }
    void nextBlock(i32 remaining) { walk.nextBlock(remaining); }

    __m128i indices() const
    {
        return _mm_or_si128(_mm_and_si128(walk.secondOfEight(), eightTimes(0xff00)),
                            _mm_srli_epi16(walk.firstOfEight(), 8));
    }
};

struct WideTexels : Texture {
    using Texture::Texture;

    template <class Draw>
    void extracted(Draw draw)
    {
        const __m128i index = indices();
        draw([&](auto i) { return texels[_mm_extract_epi16(index, i)]; });
    }

    template <class Draw>
    void throughMemory(Draw draw)
    {
        const StoredLanes at(indices());
        draw([&](auto i) { return texels[at[i]]; });
    }
};

// Palette indices that are looked up in the ramp at a level that is the same for all of the span, or changes along it.
template <bool lit>
struct RampTexels : Texture {
    const u16* pixelOfEntry; // the upper half of each entry
    i32 shade, shadeStep;
    explicit RampTexels(const SpanGradients& span)
        : Texture(span), pixelOfEntry(reinterpret_cast<const u16*>(span.ramp) + 1),
          shade(lit ? span.shade : (rampLevels - 1) * paletteSize), shadeStep(lit ? span.shadeStep : 0)
    {
    }

    template <class Draw>
    void extracted(Draw draw)
    {
        const __m128i index = indices(), level = levels();
        draw([&](auto i) { return colourOf(_mm_extract_epi16(level, i), _mm_extract_epi16(index, i)); });
    }

    template <class Draw>
    void throughMemory(Draw draw)
    {
        const StoredLanes at(indices()), level(levels());
        draw([&](auto i) { return colourOf(level[i], at[i]); });
    }

private:
    __m128i levels()
    {
        if constexpr (!lit) return eightTimes(static_cast<u32>(shade));
        const __m128i shades = ladder(eightTimes(static_cast<u32>(shade)), eightTimes(static_cast<u32>(shadeStep)));
        shade += 8 * shadeStep;
        return _mm_and_si128(shades, eightTimes(0x3f00));
    }

    u16 colourOf(int level, int index) const
    {
        return pixelOfEntry[2 * (level + reinterpret_cast<const u8*>(texels)[index])];
    }
};

struct Shades {
    const u16* pixelOfEntry;
    Walk walk;
    explicit Shades(const SpanGradients& span)
        : pixelOfEntry(reinterpret_cast<const u16*>(span.ramp) + 1),
          walk(span, span.start.intensity, 0, span.step8.intensity, 0)
    {
    }
    void nextBlock(i32 remaining) { walk.nextBlock(remaining); }

    template <class Draw>
    void extracted(Draw draw)
    {
        const __m128i level = _mm_and_si128(_mm_srli_epi16(walk.firstOfEight(), 8), eightTimes(rampLevels - 1));
        draw([&](auto i) { return colourOf(_mm_extract_epi16(level, i)); });
    }

private:
    u16 colourOf(int level) const { return pixelOfEntry[2 * level]; }
};

struct Channels {
    __m128i red, green, blue, redStep8, greenStep8, blueStep8;
    explicit Channels(const SpanGradients& span)
        : red(along(span.start.colourR, span.step.colourR)), green(along(span.start.colourG, span.step.colourG)),
          blue(along(span.start.colourB, span.step.colourB)), redStep8(step8(span.step.colourR)),
          greenStep8(step8(span.step.colourG)), blueStep8(step8(span.step.colourB))
    {
    }
    void nextBlock(i32) {}

    __m128i inRegister()
    {
        const __m128i pixels =
            _mm_or_si128(_mm_or_si128(_mm_and_si128(red, eightTimes(layout.red.mask())),
                                      _mm_and_si128(_mm_srli_epi16(green, 5), eightTimes(layout.green.mask()))),
                         _mm_srli_epi16(blue, 11));
        red = _mm_add_epi16(red, redStep8);
        green = _mm_add_epi16(green, greenStep8);
        blue = _mm_add_epi16(blue, blueStep8);
        return pixels;
    }

    static u32 fixed(f32 value) { return static_cast<u32>(static_cast<i32>(value * 256.0f)); }
    static __m128i along(f32 start, f32 step) { return ladder(eightTimes(fixed(start)), eightTimes(fixed(step))); }
    static __m128i step8(f32 step) { return eightTimes(8 * fixed(step)); }
};

struct OneColour {
    __m128i colour;
    explicit OneColour(const SpanGradients& span) : colour(eightTimes(span.key)) {}
    void nextBlock(i32) {}

    __m128i inRegister() const { return colour; }
};

// Blends of eight pixels.
struct Put {
    static __m128i over(__m128i, __m128i source) { return source; }
};

struct Half {
    static __m128i over(__m128i destination, __m128i source)
    {
        const __m128i mask = eightTimes(layout.blendMask());
        source = _mm_and_si128(source, mask);
        destination = _mm_and_si128(destination, mask);
        const __m128i roundedUp = _mm_avg_epu16(source, destination);
        return _mm_sub_epi16(roundedUp, _mm_and_si128(_mm_xor_si128(source, destination), eightTimes(1)));
    }
};

struct Add {
    static __m128i over(__m128i destination, __m128i source)
    {
        const __m128i mask = eightTimes(layout.blendMask());
        source = _mm_and_si128(source, mask);
        const __m128i sum = _mm_add_epi16(source, _mm_and_si128(destination, mask));
        // Red carries out of its lane: then the sum is smaller than what was added.
        const __m128i redFits = _mm_cmpeq_epi16(_mm_subs_epu16(source, sum), _mm_setzero_si128());
        const __m128i full = _mm_or_si128(full_(sum, layout.blue), full_(sum, layout.green));
        return _mm_or_si128(_mm_or_si128(sum, full), _mm_andnot_si128(redFits, eightTimes(layout.red.mask())));
    }

private:
    static __m128i full_(__m128i sum, const ChannelField& channel)
    {
        const __m128i carry = eightTimes(channel.carry());
        return _mm_and_si128(_mm_cmpeq_epi16(_mm_and_si128(sum, carry), carry), eightTimes(channel.mask()));
    }
};

template <class Source, class Draw>
void drawBlocks(const SpanGradients& span, u16* pixels, Draw draw)
{
    Source source(span);
    for (i32 count = span.count; count >= 8; pixels += 8) {
        draw(source, pixels);
        count -= 8;
        source.nextBlock(count);
    }
}

// How the eight colours meet the pixels. A copy stores each as it comes, a blend packs them first.
template <class Blend>
auto blendedInto(u16* pixels)
{
    return [pixels](auto colour) {
        [&]<int... i>(std::integer_sequence<int, i...>)
        {
            if constexpr (std::is_same_v<Blend, Put>)
                ((pixels[i] = colour(std::integral_constant<int, i>{})), ...);
            else {
                const __m128i colours = _mm_setr_epi16(static_cast<short>(colour(std::integral_constant<int, i>{}))...);
                store(pixels, Blend::over(loaded(pixels), colours));
            }
        }
        (std::make_integer_sequence<int, 8>{});
    };
}

template <class Source, class Blend>
void drawExtracted(SpanGradients* span, u16* pixels)
{
    drawBlocks<Source>(*span, pixels, [](Source& source, u16* block) { source.extracted(blendedInto<Blend>(block)); });
}

template <class Source, class Blend>
void drawThroughMemory(SpanGradients* span, u16* pixels)
{
    drawBlocks<Source>(*span, pixels,
                       [](Source& source, u16* block) { source.throughMemory(blendedInto<Blend>(block)); });
}

template <class Source, class Blend>
void drawInRegister(SpanGradients* span, u16* pixels)
{
    drawBlocks<Source>(*span, pixels, [](Source& source, u16* block) {
        store(block, Blend::over(loaded(block), source.inRegister()));
    });
}

template <class Source, class Blend>
inline constexpr BareLoop textured = {drawExtracted<Source, Blend>, drawThroughMemory<Source, Blend>};
template <class Source, class Blend>
inline constexpr BareLoop shaded = {drawExtracted<Source, Blend>, nullptr};
template <class Source, class Blend>
inline constexpr BareLoop computed = {drawInRegister<Source, Blend>, nullptr};

} // namespace

const BareLoop bareTextureCopy = textured<WideTexels, Put>;
const BareLoop bareTextureHalfBlend = textured<WideTexels, Half>;
const BareLoop bareTextureAdd = textured<WideTexels, Add>;
const BareLoop barePalettisedCopy = textured<RampTexels<false>, Put>;
const BareLoop bareLitTexture = textured<RampTexels<true>, Put>;
const BareLoop bareLitTextureHalfBlend = textured<RampTexels<true>, Half>;
const BareLoop bareLitTextureAdd = textured<RampTexels<true>, Add>;
const BareLoop bareShadedCopy = shaded<Shades, Put>;
const BareLoop bareShadedHalfBlend = shaded<Shades, Half>;
const BareLoop bareGouraudColour = computed<Channels, Put>;
const BareLoop bareOneColour = computed<OneColour, Put>;
const BareLoop bareOneColourHalfBlend = computed<OneColour, Half>;

} // namespace kardeno::benches
