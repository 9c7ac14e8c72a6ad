// The platform's headers that this folder is written against, and its counted pointer.
#pragma once

#include <d3d11.h>
#include <dxgi.h>
#include <wrl/client.h>

namespace orvane::render {

using Microsoft::WRL::ComPtr;

} // namespace orvane::render
