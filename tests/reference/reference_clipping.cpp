#include "tests/reference/reference_clipping.h"

#include "tests/reference/reference_arithmetic.h"

namespace kardeno::reference {

namespace {

using Attribute = f32 Corner::*;

Attribute testedBy(Plane plane)
{
    switch (plane) {
    case Plane::nearPlane:
    case Plane::farPlane: return &Corner::viewZ;
    case Plane::right:
    case Plane::left: return &Corner::screenX;
    default: return &Corner::screenY;
    }
}

f32 boundOf(Plane plane, const RenderView& view)
{
    switch (plane) {
    case Plane::nearPlane: return view.nearZ;
    case Plane::farPlane: return view.farZ;
    case Plane::right: return view.projection->right;
    case Plane::left: return view.left;
    case Plane::bottom: return view.projection->bottom;
    default: return view.top;
    }
}

std::vector<Attribute> interpolatedBy(Plane plane, const Format& format)
{
    std::vector<Attribute> attributes;
    switch (plane) {
    case Plane::nearPlane:
    case Plane::farPlane: attributes = {&Corner::viewX, &Corner::viewY}; break;
    case Plane::right:
    case Plane::left: attributes = {&Corner::screenY, &Corner::invDepth}; break;
    default: attributes = {&Corner::screenX, &Corner::invDepth}; break;
    }
    if (format.texture) attributes.insert(attributes.end(), {&Corner::texU, &Corner::texV});
    if (format.colours) attributes.insert(attributes.end(), {&Corner::red, &Corner::green, &Corner::blue});
    if (format.intensity) attributes.push_back(&Corner::intensity);
    return attributes;
}

// The outcode of a corner that lies on the plane: only what a later clipper looks at.
u32 outcodeOnPlane(Plane plane, const Corner& corner, const Corner& outside, const RenderView& view)
{
    u32 outcode = 0;
    switch (plane) {
    case Plane::nearPlane:
    case Plane::farPlane: {
        const f32 k = boundOf(plane, view);
        if (plane == Plane::nearPlane) outcode |= outside.outcode & outcodeFar;
        if (corner.viewX >= -k) outcode |= outcodeLeft;
        if (corner.viewX <= k) outcode |= outcodeRight;
        if (corner.viewY <= k) outcode |= outcodeTop;
        if (corner.viewY >= -k) outcode |= outcodeBottom;
        break;
    }
    case Plane::right:
    case Plane::left:
        if (plane == Plane::right) outcode |= outcodeLeft;
        if (corner.screenY >= view.top) outcode |= outcodeTop;
        if (corner.screenY <= view.projection->bottom) outcode |= outcodeBottom;
        break;
    case Plane::bottom: outcode = outcodeTop; break;
    case Plane::top: break;
    }
    return outcode;
}

// Always from the outside corner towards the inside one, so that faces that share the side are cut at the same point.
Corner intersection(const Corner& outside, const Corner& inside, Plane plane, const std::vector<Attribute>& attributes,
                    const RenderView& view)
{
    const Attribute tested = testedBy(plane);
    const f32 bound = boundOf(plane, view);
    const f32 distance = single(static_cast<f64>(bound) - static_cast<f64>(outside.*tested));
    const f32 inverse = single(1.0 / (static_cast<f64>(inside.*tested) - static_cast<f64>(outside.*tested)));

    Corner corner;
    for (const Attribute attribute : attributes) {
        const f64 from = outside.*attribute;
        const f64 to = inside.*attribute;
        corner.*attribute = single((to - from) * distance * inverse + from);
    }
    corner.*tested = bound;
    corner.outcode = outcodeOnPlane(plane, corner, outside, view);
    return corner;
}

} // namespace

u32 outcodeBit(Plane plane)
{
    switch (plane) {
    case Plane::nearPlane: return outcodeNear;
    case Plane::farPlane: return outcodeFar;
    case Plane::right: return outcodeRight;
    case Plane::left: return outcodeLeft;
    case Plane::bottom: return outcodeBottom;
    default: return outcodeTop;
    }
}

bool clip(Polygon& polygon, Plane plane, const Format& format, const RenderView& view)
{
    const std::vector<Attribute> attributes = interpolatedBy(plane, format);
    const u32 bit = outcodeBit(plane);
    std::vector<Corner> result;
    const size_t count = polygon.corners.size();
    for (size_t i = 0; i < count; ++i) {
        const Corner& a = polygon.corners[i];
        const Corner& b = polygon.corners[(i + 1) % count];
        const bool aInside = a.outcode & bit;
        const bool bInside = b.outcode & bit;
        if (aInside && !bInside) result.push_back(intersection(b, a, plane, attributes, view));
        if (!aInside && bInside) result.push_back(intersection(a, b, plane, attributes, view));
        if (bInside) result.push_back(b);
    }
    polygon.corners = result;
    return result.size() >= fewestCorners && result.size() <= mostCorners;
}

bool clipToScreen(Polygon& polygon, u32 outcodes, const Format& format, const RenderView& view)
{
    for (const Plane plane : {Plane::right, Plane::left, Plane::bottom, Plane::top}) {
        if (!(outcodes & outcodeBit(plane)) && !clip(polygon, plane, format, view)) return false;
    }
    return true;
}

} // namespace kardeno::reference
