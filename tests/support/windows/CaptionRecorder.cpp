#include "support/windows/CaptionRecorder.h"

#include "platform/Text.h"
#include "render/IBitMap2D.h"
#include "render/IRenderer2D.h"
#include "shell/server/CaptionIcons.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace orvane::tests {

namespace {

CaptionRecorder sRecorder;

void Note(const char* name) {
    sRecorder.calls.push_back(std::string(name) + "()");
}

template <typename First, typename... Others>
void Note(const char* name, const First& first, const Others&... others) {
    std::ostringstream text;
    text << name << '(' << first;
    ((text << ' ' << others), ...);
    text << ')';
    sRecorder.calls.push_back(text.str());
}

std::string Four(const double values[4]) {
    std::ostringstream text;
    text << values[0] << ' ' << values[1] << ' ' << values[2] << ' ' << values[3];
    return text.str();
}

const char* NameOfIcon(const char* const rows[]) {
    if (rows == shell::kCloseBoxRows) return "close";
    if (rows == shell::kMaximizeBoxRows) return "maximize";
    return rows == shell::kRestoreBoxRows ? "restore" : "unknown";
}

class Icon final : public render::IBitMap2D {
public:
    explicit Icon(const char* name)
        : mName(name) {
        ++sRecorder.icons;
    }

    ~Icon() override {
        --sRecorder.icons;
        if (sRecorder.targets == 0) Note("icon outlived its target");
    }

    void GetSize(double out[2]) override {
        out[0] = 25;
        out[1] = 18;
    }

    const char* const mName;
};

class Format final : public render::ITextFormat {
public:
    Format() { ++sRecorder.formats; }

    ~Format() override { --sRecorder.formats; }

    bool SetTextAlignment(std::uint32_t alignment) override {
        Note("SetTextAlignment", alignment);
        return true;
    }

    void* GetNativeFormat() override { return nullptr; }

    bool SetEllipsisTrimming() override {
        Note("SetEllipsisTrimming");
        return true;
    }
};

class Canvas final : public render::IRenderer2D {
public:
    Canvas() { ++sRecorder.targets; }

    ~Canvas() override { --sRecorder.targets; }

    void Resize(std::uint32_t width, std::uint32_t height) override { Note("Resize", width, height); }

    void SetStrokeColor(double, double, double, double) override { Note("SetStrokeColor"); }

    void SetFillColor(double red, double green, double blue, double alpha) override {
        Note("SetFillColor", red, green, blue, alpha);
    }

    void DrawLines(const double[], int, float) override { Note("DrawLines"); }

    void StrokeRectangle(const double[4]) override { Note("StrokeRectangle"); }

    void FillRectangle(const double rect[4]) override { Note("FillRectangle", Four(rect)); }

    void FillEllipse(const double[4]) override { Note("FillEllipse"); }

    void StrokeEllipse(const double[4]) override { Note("StrokeEllipse"); }

    void ReadPixels(render::BitmapProcessingFunctor&) override { Note("ReadPixels"); }

    void BeginDraw() override { Note("BeginDraw"); }

    bool EndDraw() override {
        Note("EndDraw");
        return sRecorder.losePicture;
    }

    void DrawText(const char16_t* text, std::uint32_t length, render::ITextFormat* format,
                  const double rect[4]) override {
        Note(format ? "DrawText" : "DrawText without a format", platform::Utf8FromUtf16({ text, length }),
             Four(rect));
    }

    render::IBitMap2D* CreateBitmapFromPackedRows(const char* const rows[], std::uint64_t rowCount) override {
        const char* name = NameOfIcon(rows);
        Note("CreateBitmapFromPackedRows", name, rowCount);
        const auto& refused = sRecorder.refusedIcons;
        return std::find(refused.begin(), refused.end(), name) == refused.end() ? new Icon(name) : nullptr;
    }

    render::IBitMap2D* CreateBitmapFromImageData(const void*, std::uint32_t) override {
        Note("CreateBitmapFromImageData");
        return nullptr;
    }

    void DrawBitmap(render::IBitMap2D* bitmap, float opacity, const double rect[4]) override {
        Note("DrawBitmap", static_cast<Icon*>(bitmap)->mName, opacity, Four(rect));
    }
};

std::unique_ptr<render::IRenderer2D> CreateRenderTarget(std::uint32_t width, std::uint32_t height,
                                                        HWND window, std::uint32_t* status) {
    constexpr std::uint32_t kNoRenderTarget = 5;
    Note("CreateRenderTarget", width, height);
    sRecorder.window = window;
    *status = sRecorder.refuseTarget ? kNoRenderTarget : shell::kRenderTargetMade;
    return sRecorder.refuseTarget ? nullptr : std::make_unique<Canvas>();
}

std::unique_ptr<render::ITextFormat> CreateTextFormat(float size) {
    Note("CreateTextFormat", size);
    return sRecorder.refuseTextFormat ? nullptr : std::make_unique<Format>();
}

} // namespace

CaptionRecorder& RecordedCaption() {
    return sRecorder;
}

void ResetCaptionRecorder() {
    sRecorder = {};
}

constinit const shell::CaptionCalls kRecordedCaptionCalls = { &CreateRenderTarget, &CreateTextFormat };

} // namespace orvane::tests
