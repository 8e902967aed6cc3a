#include "sample_host/scenes/particle_movements.h"

#include "sample_host/pictures/painting.h"

namespace sample_host {

namespace {

// A number from 0 to 1 that looks random.
double chance(int particle, int property)
{
    return scattered(particle + 31, property) / 255.0;
}

// The part of a particle's life that is over. While the phase goes from 0 to 1 it is born again `lives` times.
double ageAt(double phase, int lives, double birth)
{
    const double age = phase * lives + birth;
    return age - std::floor(age);
}

Placement sized(const Vector& place, double size)
{
    return {{size, 0, 0}, {0, size, 0}, {0, 0, size}, place};
}

} // namespace

Movement thrown(const Fountain& fountain, int i, int count)
{
    const double turn = chance(i, 0), reach = 0.45 + 0.4 * chance(i, 1), rise = 1.1 + 0.5 * chance(i, 2);
    const double birth = double(i) / count;
    return [=](double phase) {
        const double age = ageAt(phase, 3, birth);
        const double height =
            fountain.spout + 4 * rise * age * (1 - age) - (fountain.spout - fountain.waterLevel) * age;
        const Vector place{reach * age * sineOfTurn(turn), height, reach * age * cosineOfTurn(turn)};
        return sized(place, 0.55 + 0.45 * age);
    };
}

Movement burning(const Vector& fire, int i, int count)
{
    const double turn = chance(i, 3), out = 0.13 * chance(i, 4), rise = 0.6 + 0.5 * chance(i, 5);
    const double birth = double(i) / count;
    return [=](double phase) {
        const double age = ageAt(phase, 4, birth);
        const double sway = 0.06 * age * sineOfTurn(2 * age + turn), narrowing = out * (1 - 0.6 * age);
        const Vector place{narrowing * sineOfTurn(turn) + sway, rise * age, narrowing * cosineOfTurn(turn)};
        return sized(fire + place, 1 - age * age);
    };
}

} // namespace sample_host
