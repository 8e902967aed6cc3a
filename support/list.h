// A list of types, unrolled at compile time: vertex formats list their attributes, planes what they carry.
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
