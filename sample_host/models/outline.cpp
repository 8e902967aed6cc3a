#include "sample_host/models/outline.h"

#include <algorithm>

namespace sample_host {

namespace {

using Loop = std::vector<std::size_t>; // places in the outline
using Triangle = std::array<std::size_t, 3>;

// A triangle that is lower than this has no area: it could not be seen, and its plane would be a matter of rounding.
constexpr double leastHeight = 1e-6;

bool samePlace(const Vector& a, const Vector& b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

class Splitter {
public:
    explicit Splitter(std::span<const Vector> corners) : corners_(corners) {}

    SplitOutline split()
    {
        if (corners_.size() < 3) return {.fault = OutlineFault::tooFewCorners};
        Loop all;
        for (std::size_t i = 0; i < corners_.size(); ++i) all.push_back(i);
        for (const Loop& loop : simpleLoops(all)) triangulate(loop);

        // Of several faults the one that costs the most is told.
        if (result_.triangles.empty())
            result_.fault = OutlineFault::noArea;
        else if (crosses_)
            result_.fault = OutlineFault::crossesItself;
        else if (repeats_)
            result_.fault = OutlineFault::repeatsCorners;
        return std::move(result_);
    }

private:
    // Twice the area, as a vector that points to where the loop is seen counter-clockwise (Newell's method).
    Vector areaOf(std::span<const std::size_t> loop) const
    {
        Vector sum{};
        const Vector& first = corners_[loop[0]];
        for (std::size_t i = 1; i + 1 < loop.size(); ++i)
            sum = sum + cross(corners_[loop[i]] - first, corners_[loop[i + 1]] - first);
        return sum;
    }

    bool isFlat(const Triangle& triangle) const
    {
        double longest = 0;
        for (std::size_t i = 0; i < 3; ++i)
            longest = std::max(longest, length(corners_[triangle[i]] - corners_[triangle[(i + 1) % 3]]));
        return length(areaOf(triangle)) <= leastHeight * longest;
    }

    // Can be drawn, and is seen from the same side as the loop.
    bool fits(const Triangle& triangle, const Vector& loopArea) const
    {
        return !isFlat(triangle) && dot(areaOf(triangle), loopArea) > 0;
    }

    // The outline without repetitions, in loops that have each corner once.
    std::vector<Loop> simpleLoops(const Loop& outline)
    {
        Loop open; // the way since the last corner that was not yet left behind
        std::vector<Loop> loops;
        for (const std::size_t corner : outline) {
            const auto isHere = [&](std::size_t other) { return samePlace(corners_[corner], corners_[other]); };
            const auto before = std::find_if(open.begin(), open.end(), isHere);
            if (before != open.end()) {
                repeats_ = true;
                loops.emplace_back(before, open.end());
                open.erase(before, open.end());
            }
            open.push_back(corner);
        }
        loops.push_back(open);
        if (loops.size() == 1) return loops;

        // A hole is joined with the outline around it by a way there and back, so the whole is one outline.
        const Vector area = areaOf(outline);
        std::vector<Loop> distinct;
        for (const Loop& loop : loops) {
            if (loop.size() < 3) continue;
            if (dot(areaOf(loop), area) < 0) {
                repeats_ = false;
                return {outline};
            }
            const auto isSame = [&](const Loop& other) { return sameLoop(loop, other); };
            if (std::none_of(distinct.begin(), distinct.end(), isSame)) distinct.push_back(loop);
        }
        return distinct;
    }

    // Whether two loops have the same corners in the same order, wherever they begin.
    bool sameLoop(const Loop& a, const Loop& b) const
    {
        if (a.size() != b.size()) return false;
        for (std::size_t start = 0; start < a.size(); ++start) {
            std::size_t same = 0;
            while (same < a.size() && samePlace(corners_[a[same]], corners_[b[(start + same) % b.size()]])) ++same;
            if (same == a.size()) return true;
        }
        return false;
    }

    void triangulate(const Loop& loop)
    {
        if (loop.size() < 3) return;
        const Vector area = areaOf(loop);
        if (loop.size() == 3) {
            const Triangle triangle{loop[0], loop[1], loop[2]}; // as it is, from its own first corner
            if (fits(triangle, area)) result_.triangles.push_back(triangle);
            return;
        }
        if (loop.size() == 4 && cutQuadrilateral(loop, area)) return;
        cutEars(loop, area);
    }

    // Along the shorter diagonal, if that lies inside; else along the other one.
    bool cutQuadrilateral(const Loop& q, const Vector& area)
    {
        const double first = length(corners_[q[2]] - corners_[q[0]]), second = length(corners_[q[3]] - corners_[q[1]]);
        const std::array<Triangle, 2> ways[2]{{{{q[0], q[1], q[2]}, {q[0], q[2], q[3]}}},
                                              {{{q[0], q[1], q[3]}, {q[1], q[2], q[3]}}}};
        for (const bool other : {!(first < second), first < second}) {
            const auto& [a, b] = ways[other];
            if (!fits(a, area) || !fits(b, area)) continue;
            result_.triangles.insert(result_.triangles.end(), {a, b});
            return true;
        }
        return false;
    }

    // Ear clipping: cuts off corners whose triangle lies inside, until three are left. A corner between two others on
    // one line is left out when nothing else can be cut off.
    void cutEars(Loop loop, const Vector& area)
    {
        std::size_t at = 0, tried = 0;
        while (loop.size() >= 3 && tried < loop.size()) {
            at %= loop.size();
            if (isEar(loop, at, area)) {
                result_.triangles.push_back(around(loop, at));
                loop.erase(loop.begin() + std::ptrdiff_t(at));
                tried = 0;
                if (loop.size() < 3) return;
            } else if (++tried < loop.size())
                ++at;
            else if (leaveOutFlatCorner(loop))
                tried = 0;
        }
        crosses_ |= loop.size() >= 3;
    }

    static Triangle around(const Loop& loop, std::size_t corner)
    {
        return {loop[(corner + loop.size() - 1) % loop.size()], loop[corner], loop[(corner + 1) % loop.size()]};
    }

    bool isEar(const Loop& loop, std::size_t at, const Vector& area) const
    {
        const Triangle ear = around(loop, at);
        if (!fits(ear, area)) return false;
        return std::none_of(loop.begin(), loop.end(), [&](std::size_t other) { return covers(ear, other, area); });
    }

    // Whether a corner that is none of the triangle's lies in it or on its border.
    bool covers(const Triangle& triangle, std::size_t corner, const Vector& area) const
    {
        const Vector& p = corners_[corner];
        for (std::size_t i = 0; i < 3; ++i) {
            const Vector &a = corners_[triangle[i]], &b = corners_[triangle[(i + 1) % 3]];
            if (samePlace(p, a) || dot(cross(b - a, p - a), area) < 0) return false;
        }
        return true;
    }

    bool leaveOutFlatCorner(Loop& loop) const
    {
        for (std::size_t i = 0; i < loop.size(); ++i) {
            if (!isFlat(around(loop, i))) continue;
            loop.erase(loop.begin() + std::ptrdiff_t(i));
            return true;
        }
        return false;
    }

    std::span<const Vector> corners_;
    SplitOutline result_;
    bool repeats_ = false, crosses_ = false;
};

} // namespace

SplitOutline splitOutline(std::span<const Vector> corners)
{
    return Splitter(corners).split();
}

} // namespace sample_host
