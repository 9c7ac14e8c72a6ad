// The headers of the three components: Direct2D, DirectWrite and the imaging component.
//
// Include this one in their stead: <windows.h> makes DrawText a macro, and a class that was declared before
// it is undone would have a differently named operation than one declared after.
#pragma once

#include <windows.h>
#ifdef DrawText
#    undef DrawText
#endif

#include <d2d1.h>
#include <dwrite.h>
#include <wincodec.h>

#include <d2d1helper.h>

#include <wrl/client.h>
