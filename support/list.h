// A list of types that is unrolled at compile time. A vertex format lists its attributes, and a clip plane lists the
// coordinates that it interpolates.
#pragma once

namespace kardeno {

template <class... Items>
struct List {
    static constexpr int size = sizeof...(Items);

    // Calls visit.template operator()<Item>() for each item, in order.
    template <class Visit>
    static constexpr void forEach([[maybe_unused]] Visit visit)
    {
        (visit.template operator()<Items>(), ...);
    }

    template <class Wanted>
    static constexpr bool contains()
    {
        return (__is_same(Items, Wanted) || ...);
    }
};

} // namespace kardeno
