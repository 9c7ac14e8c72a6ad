// The three factories from which everything here is made: one of each in the process, made when it is first
// needed and never released. Any thread may ask. Null if the component refuses; the next call tries again.
//
// The thread that makes the first surface has to live as long as any surface is drawn on, as both threads that
// draw do: Wine draws for all surfaces through a hidden window of that thread, and once the window is gone
// drawings get lost without an error.
#pragma once

#include "render/draw2d/Direct2D.h"

namespace orvane::render {

[[nodiscard]] ID2D1Factory* Direct2DFactory();

// Also readies the calling thread for COM, which decoders need on each thread that uses them.
[[nodiscard]] IWICImagingFactory* ImagingFactory();

[[nodiscard]] IDWriteFactory* TextFactory();

} // namespace orvane::render
