#include "unit/zephor/deltafields/MemberOracle.h"

#include <bit>
#include <cmath>
#include <cstdint>

namespace orvane::tests {

namespace {

using Point = OraclePoint;
using Random = OracleRandom;

// From `low` to below `high`.
double In(Random& random, double low, double high) {
    return low + (high - low) * random.Next() / 32768.0;
}

double Sign(Random& random) {
    return random.Next() >= 16384 ? 1 : -1;
}

double Pow(double base, double exponent) {
    return std::pow(base, exponent);
}

double Triangle(double v) {
    const double f = std::abs(v) / 2 - std::floor(std::abs(v) / 2), g = 2 * f;
    return g <= 1 ? g : 2 - g;
}

void SeedByY(Random& random, double y) {
    const auto bits = std::bit_cast<std::uint32_t>(float(y));
    std::uint32_t seed = bits & 0x7FFFFFFF;
    for (std::uint32_t turns = bits & 31; turns > 0; --turns) seed = seed << 1 | seed >> 31;
    random.Seed(seed);
}

template <class F>
OracleFormula Fixed(F formula) {
    return [formula](double a, double b, Random&) { return formula(a, b); };
}

#define ORVANE_FIXED(name, isPolar, a, b, first, second)                                                     \
    OracleRow {                                                                                              \
        name, isPolar, [](Random&) {                                                                         \
            return Fixed([]([[maybe_unused]] double a, [[maybe_unused]] double b) {                          \
                return Point{ first, second };                                                               \
            });                                                                                              \
        }                                                                                                    \
    }
#define ORVANE_POLAR(name, first, second) ORVANE_FIXED(name, true, r, theta, first, second)
#define ORVANE_CARTESIAN(name, first, second) ORVANE_FIXED(name, false, x, y, first, second)

OracleFormula ScatteredFlowOut(Random&) {
    return [](double r, double theta, Random& random) {
        return Point{ r * (random.Next() * 1.5259255e-06 + 0.93), theta + 0.003 };
    };
}

OracleFormula QuantumRipple(Random& random) {
    const double n = 2 * std::floor(In(random, 2, 8)), c = In(random, 1.04, 1.44), b = In(random, 0, 0.02);
    return [=](double r, double theta, Random& each) {
        const double noise = each.Next();
        return Point{ std::sin(theta) * b * r + r * 0.97,
                      (std::sin(theta * n) + std::sin(r * 7) + 2) * noise * b * 3.051851e-05 * c + theta };
    };
}

OracleFormula FlowerPower(Random& random) {
    const double n = 2 + std::floor(In(random, 0, 10)), a = In(random, -0.01, 0.01);
    return Fixed([=](double r, double theta) {
        return Point{ std::sin(theta * n + 1.571) * a + r, std::sin(theta * n) * a + theta };
    });
}

OracleFormula SineMultiCirc(Random& random) {
    const double drawn = -0.1 + 0.2 * random.Next() / 32767.0;
    const double d = std::fmax(drawn, 0) * Sign(random), f = In(random, 5, 20);
    return Fixed([=](double r, double theta) {
        return Point{ (std::sin(r * f) * 0.05 + 0.93) * r, theta + d };
    });
}

OracleFormula Sunburnt(Random& random) {
    const double k = std::floor(In(random, 1, 3.1)) * 3.1415925;
    return Fixed([=](double r, double theta) {
        return Point{ (std::cos(theta * k) * 0.05 + 0.94) * r, theta + 0.005 };
    });
}

OracleFormula Dreamscape(Random& random) {
    const double k = std::floor(In(random, 10, 45)) * 3.1415925;
    return Fixed([=](double r, double theta) {
        return Point{ ((std::sin(theta * k) + 1) * 0.03 + 0.95) * r, theta - 0.0095 };
    });
}

OracleFormula Sphere(Random& random) {
    const double a = In(random, 0, 0.1), f = In(random, 3, 10), c = In(random, 0.9, 1.2);
    return Fixed([=](double r, double theta) {
        return Point{ ((r - c) * 0.13 + 1) * r, std::sin(r * f) * a + theta };
    });
}

OracleFormula ThetaDivergence(Random& random) {
    const double f = In(random, 2, 18), a = In(random, 0.01, 0.04), c = In(random, 0.002, 0.008);
    return Fixed([=](double r, double theta) {
        return Point{ std::fmax(r - c, 0), std::sin(r * f) * a + theta };
    });
}

OracleFormula DTSwirl(Random& random) {
    const double sign = Sign(random), e = In(random, 7, 20), s = In(random, 0.05, 0.85);
    return Fixed([=](double r, double theta) {
        const double b = 1 - r * 0.7;
        return Point{ (b * b * b * 0.006 + 0.005) * s + r,
                      (Pow(b, e) * (e * 0.03 + 0.4) - 0.02) * s * sign + theta };
    });
}

OracleFormula Contrail(Random& random) {
    const double a = In(random, 0, 6.283185307179586), d = In(random, 0.002, 0.03);
    return Fixed([=](double x, double y) { return Point{ x + std::cos(a) * d, y + std::sin(a) * d }; });
}

OracleFormula LinearSpread(Random&) {
    return [](double x, double y, Random& random) {
        const double noiseY = random.Next() * 2.4414808e-07, noiseX = random.Next() * 2.4414808e-07;
        return Point{ x * 0.93 - 0.004 + noiseX, y * 0.93 - 0.004 + noiseY };
    };
}

OracleFormula PhantomMist(Random&) {
    return [](double x, double y, Random& random) {
        const double noiseY = random.Next() * 3.051851e-07, noiseX = random.Next() * 3.051851e-07;
        return Point{ x - (y * y - 0.49) * 0.0014 - 0.005 + noiseX,
                      y - (x + 1) * 0.0014 * (x - 0.1) + 0.005 + noiseY };
    };
}

OracleFormula SolsWarp(Random& random) {
    const double a = In(random, 0.03, 0.07), b = In(random, 0.2, 0.3), c = In(random, 0.1, 0.18);
    return [=](double x, double y, Random& each) {
        const double noiseY = each.Next() * 1.5259255e-07, noiseX = each.Next() * 1.5259255e-07;
        return Point{ Pow(std::abs(x + 0.002), 0.01) * a + x - std::abs(y) * b + noiseX - 0.0025,
                      x * y * c + y + noiseY - 0.0025 };
    };
}

OracleFormula Gravity(Random&) {
    return [](double x, double y, Random& random) {
        const double noiseY = random.Next() * 3.051851e-07, noiseX = random.Next() * 3.051851e-07;
        return Point{ noiseX + x - 0.005, y - noiseY - 0.005 - (y - 1.3) * 0.04 };
    };
}

OracleFormula Flee(Random& random) {
    const double a = In(random, 0.001, 0.021);
    return [=](double x, double y, Random& each) {
        SeedByY(each, y);
        return Point{ each.Next() * a * 6.103702e-05 + x - a, y };
    };
}

OracleFormula DTChaos(Random& random) {
    const double a = In(random, 1, 11);
    return [=](double x, double y, Random& each) {
        SeedByY(each, y);
        return Point{ (0.995 - Triangle(a * y) * 0.06) * x + std::sin(y * 13) * 0.01,
                      (0.995 - Triangle(a * x) * 0.06) * y + 0.01 };
    };
}

OracleFormula TrafficFlow(Random& random) {
    const double a = In(random, 0.005, 0.035), b = a * In(random, 0.9, 1.0);
    return Fixed([=](double x, double y) {
        return Point{ a * std::sin(y * 8) + x - std::abs(b * std::sin(y * 8)),
                      a * std::cos(x * 8) + y - std::abs(b * std::cos(x * 8)) };
    });
}

OracleFormula Swirly(Random& random) {
    double a[4], f[4], p[4], q[4];
    constexpr double kSignsOfP[] = { 1, 1, -1, -1 }, kSignsOfQ[] = { 1, -1, 1, -1 };
    for (int i = 0; i < 4; ++i) {
        a[i] = In(random, 6, 8);
        a[i] *= Sign(random);
        f[i] = In(random, 1000, 2000);
        p[i] = In(random, 0, 1) * kSignsOfP[i];
        q[i] = In(random, 0, 1) * kSignsOfQ[i];
    }
    return Fixed([a1 = a[0], a2 = a[1], f1 = f[0], f2 = f[1], p1 = p[0], p2 = p[1], q1 = q[0],
                  q2 = q[1]](double x, double y) {
        const double m1 = x + p1, n1 = y + q1, s1 = a1 / ((n1 * n1 + m1 * m1) * f1 + 10);
        const double m2 = x + p2, n2 = y + q2, s2 = a2 / ((n2 * n2 + m2 * m2) * f2 + 10);
        return Point{ n2 * s2 + n1 * s1 + x, y - (m2 * s2 + m1 * s1) };
    });
}

double WeierstraussSum(double x) {
    return std::cos(x * 6) * 0.005 + std::cos(x * 12) * 0.0025 + std::cos(x * 24) * 0.00125 +
           std::cos(x * 48) * 0.000625 + std::cos(x * 96) * 0.0003125 + std::cos(x * 192) * 0.00015625;
}

const OracleRow kRows[] = {
    ORVANE_POLAR("Tripping Hard", r * 0.66, theta - 0.201),
    { "Scattered Flow out", true, ScatteredFlowOut },
    { "Quantum Ripple", true, QuantumRipple },
    { "Flower Power", true, FlowerPower },
    { "Sine Multi Circ", true, SineMultiCirc },
    ORVANE_POLAR("Simple Sine Sphere", std::sin(r * 6.2831855) * 0.02 + r, theta + 0.015),
    { "Sunburnt", true, Sunburnt },
    ORVANE_POLAR("Hip-No-Therapy", r * 0.92, theta - 0.09),
    ORVANE_POLAR("Radial Breakaway", (std::atan(0.55 - r) * 0.16 + 1) * r, theta - 0.01),
    { "Flee", false, Flee },
    { "DT - Chaos", false, DTChaos },
    ORVANE_POLAR("Dandelion Psyc", r - std::sin(theta * 19) * 0.01,
                 (std::cos(r * 41) + std::cos(r * 29)) * 0.01 + std::sin(theta * 19) * 0.004 + theta),
    { "Dreamscape", true, Dreamscape },
    ORVANE_POLAR("Gravity Ball", r*(std::log(r * 15) * 0.05 + 0.92), theta),
    { "Sphere", true, Sphere },
    ORVANE_POLAR("The MAW", r + 0.0119, theta - (r - 0.324) * 0.055 * (r + 0.279)),
    { "Theta Divergence", true, ThetaDivergence },
    ORVANE_CARTESIAN("Boxilight", std::sin(y * 12) * 0.01 + x, std::sin(x * 12) * 0.01 + y),
    { "Contrail", false, Contrail },
    { "Linear Spread", false, LinearSpread },
    ORVANE_CARTESIAN("Once Upon A Time", x - std::sin(x * 3.1415925) * 0.008 * std::cos(y * 3.1415925),
                     y - y * y * (y * 0.05)),
    { "Phantom Mist", false, PhantomMist },
    ORVANE_CARTESIAN("SOLs Base", (y * 0.13125 + 0.9187499) * x, y - (y - 1.2) * 0.03),
    { "SOLs Warp", false, SolsWarp },
    { "Traffic Flow", false, TrafficFlow },
    ORVANE_POLAR("Collapse & Turn", r * 1.01, theta + 0.021),
    ORVANE_POLAR("Constant Out", r - 0.01, theta),
    { "DT - Swirl", true, DTSwirl },
    ORVANE_POLAR("Expand & Turn", r * 0.97, theta - 0.021),
    ORVANE_POLAR("Left Turn & Flow Out", r * 0.94, theta - 0.007),
    ORVANE_POLAR("Poinsettia", r * 0.97, std::cos(Pow(r + 1, 2.2) * 10) * 0.025 + theta),
    ORVANE_POLAR("Psycho Disco Ball", r - 0.01,
                 (std::cos(r * 41) + std::cos(r * 29) + std::sin(theta * 47)) * 0.01 + theta),
    ORVANE_POLAR("Right Turn", r * 0.99, theta + 0.009),
    ORVANE_CARTESIAN("Fractal sweetness", std::tan(x + y), std::sin(y - x)),
    { "Gravity", false, Gravity },
    { "Swirly", false, Swirly },
    ORVANE_CARTESIAN("Julia Seahorse", (x * x * 2.3409 - y * y * 0.79209995 - 0.74543) * 0.6535948,
                     x * 3.0599997 * y + 0.12697752),
    ORVANE_CARTESIAN("Standard Map", x - std::sin(3.1415927 * y) / 3.1415927,
                     x - std::sin(3.1415927 * y) / 3.1415927 + y),
    ORVANE_CARTESIAN("Weierstrauss Spread", x * 0.993, y + WeierstraussSum(x)),
    ORVANE_CARTESIAN("Tunnel", std::cos(y * 0.5) * std::sin(x), std::sin(y)),
};

} // namespace

std::span<const OracleRow> MemberOracles() {
    return kRows;
}

} // namespace orvane::tests
