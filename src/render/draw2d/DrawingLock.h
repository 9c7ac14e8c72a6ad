// One drawing operation at a time in the whole process.
//
// Surfaces share what their factory makes for all of them, a device above all. Windows guards that for the
// multi-threaded kind of the factory; Wine doesn't: it puts a surface's state on the device, draws, and puts
// the state before it back, so that two threads mix up theirs and crash. The lock is for single operations,
// never for a whole drawing, and no caller's function runs under it.
#pragma once

#include "platform/OwnedMutex.h"

namespace orvane::render {

class DrawingLock {
public:
    DrawingLock()
        : mLock(sSharedDrawing) {}

private:
    inline static platform::OwnedMutex sSharedDrawing;
    const platform::OwnedLock mLock;
};

} // namespace orvane::render
