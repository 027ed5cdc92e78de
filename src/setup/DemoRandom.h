#pragma once
// The demo's random numbers: splitmix64 with a fixed seed, and our own
// normal and range functions, so that the same year comes out on every
// platform and standard library (std:: distributions differ between them).
#include <QtGlobal>

#include <cmath>
#include <numbers>

namespace setup::demo {

class Random {
public:
    explicit Random(quint64 seed) : state_(seed) {}

    quint64 next()
    {
        quint64 z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    // 0 <= result < n
    int below(int n) { return int(next() % quint64(n)); }
    // lo <= result <= hi
    int between(int lo, int hi) { return lo + below(hi - lo + 1); }
    // [0, 1)
    double unit() { return double(next() >> 11) * 0x1.0p-53; }
    bool chance(double p) { return unit() < p; }
    double normal(double mean, double sd)
    {
        // Box-Muller; 1 - unit() keeps the logarithm away from zero.
        const double u = 1.0 - unit();
        const double v = unit();
        return mean + sd * std::sqrt(-2.0 * std::log(u)) * std::cos(2.0 * std::numbers::pi * v);
    }

private:
    quint64 state_;
};

} // namespace setup::demo
