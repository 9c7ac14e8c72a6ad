// The multi-threaded apartment, which the system's sound and decoding are used in.
#pragma once

#include <windows.h>

#include <objbase.h>

namespace orvane::player {

// In the apartment for as long as it lives. One for each thread.
class ComApartment {
public:
    ComApartment()
        : mEntered(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}

    ~ComApartment() {
        if (mEntered) CoUninitialize();
    }

    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

private:
    const bool mEntered;
};

} // namespace orvane::player
