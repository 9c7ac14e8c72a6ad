#include "render/draw2d/Factories.h"

#include <objbase.h>

#include <mutex>

namespace orvane::render {

namespace {

// A factory kept as a plain pointer: at the end of the process its library may be gone before this program's
// variables are, so nothing releases it.
template <typename Factory>
class Shared {
public:
    template <typename Make>
    Factory* Get(Make make) {
        const std::lock_guard lock(mMaking);
        if (!mFactory && FAILED(make(&mFactory))) mFactory = nullptr;
        return mFactory;
    }

private:
    std::mutex mMaking;
    Factory* mFactory = nullptr;
};

// The multi-threaded kind of the Direct2D factory: the caption is painted on the main thread, through a
// surface on its window, while a panel's text is drawn on the service thread, into a bitmap. Each surface is
// used by one thread at a time, but both come from this one factory, and the single-threaded kind would leave
// what they share unguarded. (DrawingLock does the guarding where the component doesn't.)
Shared<ID2D1Factory> sSharedDirect2D;
Shared<IWICImagingFactory> sSharedImaging;
Shared<IDWriteFactory> sSharedText;

// COM is readied once for each thread and stays so: the two threads that draw live as long as the process.
// That a thread was readied before, in whichever way, is no failure.
void ReadyThisThreadForCom() {
    thread_local const HRESULT ready = CoInitialize(nullptr);
    static_cast<void>(ready);
}

// A reference to the system's fonts that stays. Without it, the last text format to go takes them along and the
// next one has them listed anew, some 20 ms; and Wine's component hands a thread that asks just then the list
// that another thread is deleting. A failure costs no more than that.
void KeepSystemFonts(IDWriteFactory& factory) {
    static IDWriteFontCollection* sSharedFonts = nullptr;
    static_cast<void>(factory.GetSystemFontCollection(&sSharedFonts, FALSE));
}

} // namespace

ID2D1Factory* Direct2DFactory() {
    return sSharedDirect2D.Get(
        [](ID2D1Factory** out) { return D2D1CreateFactory(D2D1_FACTORY_TYPE_MULTI_THREADED, out); });
}

IWICImagingFactory* ImagingFactory() {
    ReadyThisThreadForCom();
    return sSharedImaging.Get([](IWICImagingFactory** out) {
        return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(out));
    });
}

IDWriteFactory* TextFactory() {
    return sSharedText.Get([](IDWriteFactory** out) {
        const HRESULT made = DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                                                 reinterpret_cast<IUnknown**>(out));
        if (SUCCEEDED(made)) KeepSystemFonts(**out);
        return made;
    });
}

} // namespace orvane::render
