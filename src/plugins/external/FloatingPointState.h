// The processor's floating-point control state, kept across a call into foreign code.
//
// A module may turn on flush-to-zero, another rounding or trapping exceptions for its own arithmetic and
// never turn them off. Every call into one stands behind this guard, so that the built-in visualizers go on
// computing the same frames.
#pragma once

#include <cstdint>

#include <xmmintrin.h>

namespace orvane::plugins {

// Saves MXCSR and the x87 control word, and puts both back when it goes.
class FloatingPointState {
public:
    FloatingPointState()
        : mMxcsr(_mm_getcsr()) {
        __asm__ volatile("fnstcw %0" : "=m"(mX87Control));
    }

    // Exceptions that are still pending in the x87 unit are dropped first: loading a control word that lets
    // one through would raise it here.
    ~FloatingPointState() {
        __asm__ volatile("fnclex\n\tfldcw %0" : : "m"(mX87Control));
        _mm_setcsr(mMxcsr);
    }

    FloatingPointState(const FloatingPointState&) = delete;
    FloatingPointState& operator=(const FloatingPointState&) = delete;

private:
    std::uint32_t mMxcsr;
    std::uint16_t mX87Control = 0;
};

} // namespace orvane::plugins
