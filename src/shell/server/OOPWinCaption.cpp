// The window server's caption strip: its render target and icons, its title, its painting.
#include "shell/server/OOPWinPipeServer.h"

#include "platform/LogLine.h"
#include "render/IBitMap2D.h"
#include "render/IRenderer2D.h"
#include "shell/server/CaptionIcons.h"
#include "shell/server/WindowGeometry.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <iterator>

namespace orvane::shell {

using platform::LogLine;

namespace {

constexpr std::size_t kTitleUnits = 2048; // with the terminating zero
constexpr int kShownTitleUnits = 256;     // with the terminating zero
constexpr float kTitleSize = 12;          // device-independent pixels
constexpr int kTitleInset = 8;            // left and top of the title
constexpr wchar_t kTitleSeparator[] = L" - ";

static_assert(std::size(kCloseBoxRows) == 72 && std::size(kMaximizeBoxRows) == 72 &&
              std::size(kRestoreBoxRows) == 72);

// Appends the units of a track's text at `offset` of the record up to a zero unit, as far as they fit.
// KEEP: a text that fills its block has no zero unit of its own, so the copy reads on into the next field.
// The title's end comes before the record's, and a title so long is cut on the strip anyway. Pinned by
// OOPWinPipeServer.ATitleOf255UnitsRunsOnIntoTheNextField.
void AppendText(wchar_t (&title)[kTitleUnits], const records::TrackParamObj& track, std::size_t offset) {
    const auto* from = reinterpret_cast<const std::uint8_t*>(&track) + offset;
    for (std::size_t at = std::wcslen(title); at < kTitleUnits - 1; ++at, from += sizeof(wchar_t)) {
        std::memcpy(&title[at], from, sizeof(wchar_t));
        if (title[at] == 0) break;
    }
}

constexpr std::size_t kNameUnits =
    offsetof(records::TrackParamObj, mTrackName) + offsetof(records::StringBlock, units);
constexpr std::size_t kArtistUnits =
    offsetof(records::TrackParamObj, mTrackArtist) + offsetof(records::StringBlock, units);
static_assert(kNameUnits < kArtistUnits &&
              kArtistUnits + kTitleUnits * sizeof(wchar_t) <= sizeof(records::TrackParamObj));

} // namespace

void OOPWinPipeServer::CreateRenderTargetAndIcons() {
    RECT client = {};
    GetClientRect(mOOPWind, &client);
    ReleaseRenderTargetAndIcons();

    std::uint32_t status = 0;
    auto target = mCaptionCalls.createRenderTarget(std::uint32_t(client.right), std::uint32_t(client.bottom),
                                                   mOOPWind, &status);
    if (status != kRenderTargetMade) {
        LogLine("Could not create an HWND render target for the OOP window\n");
        return;
    }
    const auto makeIcon = [&target](const char* const(&rows)[72], const char* failureLine) {
        std::unique_ptr<render::IBitMap2D> icon(target->CreateBitmapFromPackedRows(rows, std::size(rows)));
        if (!icon) LogLine(failureLine);
        return icon;
    };
    auto closeBox = makeIcon(kCloseBoxRows, "Could not create the close box icon.\n");
    auto maximizeBox = makeIcon(kMaximizeBoxRows, "Could not create the maximize box icon.\n");
    auto restoreBox = makeIcon(kRestoreBoxRows, "Could not create the restore box icon.\n");

    // What another thread made meanwhile is swapped out, and goes behind the lock: the icons first.
    const platform::OwnedLock lock(mCaptionLock);
    mRenderTarget.swap(target);
    mCloseBoxIcon.swap(closeBox);
    mMaximizeBoxIcon.swap(maximizeBox);
    mRestoreBoxIcon.swap(restoreBox);
}

void OOPWinPipeServer::ReleaseRenderTargetAndIcons() {
    std::unique_ptr<render::IRenderer2D> target; // outlives what was made on it
    std::unique_ptr<render::IBitMap2D> icons[3];
    {
        const platform::OwnedLock lock(mCaptionLock);
        icons[0] = std::move(mCloseBoxIcon);
        icons[1] = std::move(mMaximizeBoxIcon);
        icons[2] = std::move(mRestoreBoxIcon);
        target = std::move(mRenderTarget);
    }
    // What was taken out goes here, behind the lock: the target may have to speak to its window.
}

void OOPWinPipeServer::UpdateWindowTitle() {
    if (!mOOPWind) return;
    wchar_t title[kTitleUnits] = {};
    if (const records::TrackParamRef track = mTrackParamData) {
        AppendText(title, *track, kNameUnits);
        std::wcsncat(title, kTitleSeparator, kTitleUnits - 1 - std::wcslen(title));
        AppendText(title, *track, kArtistUnits);
    } else if (const plugins::VisualPlugIn* plugin = mCurrentPlugin) {
        const auto name = plugin->DisplayName().View();
        std::copy(name.begin(), name.end(), title);
    } else {
        return;
    }
    SetWindowTextW(mOOPWind, title);
    InvalidateStrip();
}

void OOPWinPipeServer::InvalidateStrip() {
    RECT strip = {};
    if (!GetClientRect(mOOPWind, &strip)) return;
    strip.bottom = strip.top + kCaptionHeight;
    InvalidateRect(mOOPWind, &strip, TRUE);
}

void OOPWinPipeServer::ResizeRenderTarget(std::uint32_t width, std::uint32_t height) {
    const platform::OwnedLock lock(mPluginLock);
    {
        // KEEP: the size is the proxy window's, not that of the window that the target draws on. The strip
        // lies within both, and the difference is the border. Pinned by
        // OOPWinPipeServer.TheRenderTargetKeepsTheProxysSize.
        const platform::OwnedLock captionLock(mCaptionLock);
        if (mRenderTarget) mRenderTarget->Resize(width, height);
    }
    if (mCurrentPlugin) mCurrentPlugin->Reshape();
}

bool OOPWinPipeServer::HasRenderTarget() {
    const platform::OwnedLock lock(mCaptionLock);
    return mRenderTarget != nullptr;
}

void OOPWinPipeServer::PaintCaption(HWND window, const RECT& clientRect) {
    if (mIsFullScreen) return;
    if (!HasRenderTarget()) CreateRenderTargetAndIcons();
    bool lost = false;
    {
        const platform::OwnedLock lock(mCaptionLock);
        if (!mRenderTarget) return;
        mRenderTarget->BeginDraw();
        DrawCaption(window, clientRect);
        lost = mRenderTarget->EndDraw();
    }
    if (lost) ReleaseRenderTargetAndIcons(); // the next paint makes them again
}

void OOPWinPipeServer::DrawCaption(HWND window, const RECT& clientRect) {
    const double strip[4] = { double(clientRect.left), double(clientRect.top),
                              double(clientRect.right - clientRect.left), kCaptionHeight };
    mRenderTarget->SetFillColor(0, 0, 0, 1);
    mRenderTarget->FillRectangle(strip);

    const auto drawIcon = [&](render::IBitMap2D* icon, int inset) {
        if (!icon) return;
        double size[2] = {};
        icon->GetSize(size);
        const double place[4] = { double(clientRect.right) - size[0] - inset, kIconTop, size[0], size[1] };
        mRenderTarget->DrawBitmap(icon, 1, place);
    };
    drawIcon(mCloseBoxIcon.get(), kCloseIconInset);
    drawIcon(IsZoomed(window) ? mRestoreBoxIcon.get() : mMaximizeBoxIcon.get(), kZoomIconInset);
    DrawTitle(window, clientRect);
}

void OOPWinPipeServer::DrawTitle(HWND window, const RECT& clientRect) {
    wchar_t title[kShownTitleUnits] = {};
    const int length = GetWindowTextW(window, title, kShownTitleUnits);
    if (length == 0) {
        LogLine("no text to draw");
        return;
    }
    const auto format = mCaptionCalls.createTextFormat(kTitleSize);
    if (!format) return;
    mRenderTarget->SetFillColor(1, 1, 1, 1);
    format->SetTextAlignment(render::kTextAlignmentCentred);
    format->SetEllipsisTrimming();
    const double place[4] = { kTitleInset, kTitleInset,
                              double(clientRect.right - clientRect.left - kTitleInset), kCaptionHeight };
    mRenderTarget->DrawText(reinterpret_cast<const char16_t*>(title), std::uint32_t(length), format.get(),
                            place);
}

} // namespace orvane::shell
