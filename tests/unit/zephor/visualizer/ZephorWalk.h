// A walk over the classic visualizer through its plug-in: what a player and a window can do to it, by bytes.
#pragma once

#include "platform/Random.h"
#include "plugins/PlugInMemory.h"
#include "support/ChildWindow.h"
#include "support/LogCapture.h"
#include "support/SetClock.h"
#include "support/SetDpi.h"
#include "visualizer/recording/RecordingSites.h"
#include "zephor/visualizer/Z_InternalVisualPlugIn.h"

#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace orvane::tests {

class ZephorWalk {
public:
    // Seeds and clock are always the same, so the bytes decide everything.
    explicit ZephorWalk(std::span<const std::uint8_t> bytes)
        : mBytes(bytes) {
        visualizer::SitesInForce() = visualizer::RecordingSites();
        visualizer::SitesInForce().options.keepVertices = false;
        platform::SeedRand(1);
    }

    ZephorWalk(const ZephorWalk&) = delete;
    ZephorWalk& operator=(const ZephorWalk&) = delete;

    // A plug-in has no destructor, so what it owns is let go here.
    ~ZephorWalk() {
        mPlugIn->Deactivate();
        mPlugIn->ForgetParked();
        visualizer::SitesInForce() = visualizer::RecordingSites();
    }

    // Returns the frames that were shown.
    std::size_t Run() {
        Activate();
        while (!mBytes.empty()) Step();
        CountFrames();
        return mFrames;
    }

private:
    class OpenPlugIn final : public plugins::Z_InternalVisualPlugIn {
    public:
        [[nodiscard]] render::RecordingRenderer* Recorder() const {
            return mVisualizer ? static_cast<render::RecordingRenderer*>(mVisualizer->Renderer()) : nullptr;
        }

        void ForgetParked() { records::LocalizedStrings().swap(mLocalizedStrings); }

    private:
        ~OpenPlugIn() = default;
    };

    using Operation = void (ZephorWalk::*)();

    // 0 behind the end.
    std::uint8_t Next() {
        if (mBytes.empty()) return 0;
        const std::uint8_t byte = mBytes.front();
        mBytes = mBytes.subspan(1);
        return byte;
    }

    // Pulses and keys more often than the others.
    void Step() {
        static constexpr Operation kOperations[] = {
            &ZephorWalk::Pulse,  &ZephorWalk::Pulse,    &ZephorWalk::Pulse, &ZephorWalk::Pulse,
            &ZephorWalk::Pulse,  &ZephorWalk::Pulse,    &ZephorWalk::Key,   &ZephorWalk::Key,
            &ZephorWalk::Key,    &ZephorWalk::Wait,     &ZephorWalk::Wait,  &ZephorWalk::Resize,
            &ZephorWalk::Track,  &ZephorWalk::Artwork,  &ZephorWalk::Draw,  &ZephorWalk::Park,
            &ZephorWalk::Refuse, &ZephorWalk::Activate,
        };
        (this->*kOperations[Next() % std::size(kOperations)])();
        CountFrames();
    }

    void Pulse() {
        constexpr double kFrame = 1.0 / 60; // seconds
        mClock.Advance(kFrame);
        const std::uint8_t loudness = Next();
        std::vector<std::uint8_t> sound(sizeof(records::AudioRenderData));
        for (std::size_t i = 0; i < sound.size(); ++i) sound[i] = std::uint8_t(i * i + i * loudness);
        // A block may be short, and a stamp of 0 brings none.
        mPlugIn->Pulse(sound.data(), loudness % 3 == 0 ? loudness : sound.size(), loudness % 5, loudness);
    }

    void Key() {
        static constexpr char16_t kKeys[] = u"/HASQWZXCFILMORT";
        const std::uint8_t byte = Next();
        const char16_t key = byte < 64 ? kKeys[byte % 16] : char16_t(byte);
        mPlugIn->KeyInput(1, &key, 0);
    }

    void Wait() { mClock.Advance(Next() * 0.25); }

    void Resize() {
        const int width = Next(), height = Next();
        mWindow.Resize(width, height);
        mPlugIn->Reshape();
    }

    void Track() {
        const auto track = records::MakeTrackParam();
        const std::u16string name(Next(), u'n');
        track->mTrackName.Assign(name);
        mPlugIn->StartExternalVisualPlayback(track.get(), &track->mAudioFormat, Next(), 1);
    }

    void Artwork() {
        const std::vector<std::uint8_t> image(Next(), 'B');
        mPlugIn->SetArtwork(image.data(), std::uint32_t(image.size()), 14);
    }

    void Draw() { mPlugIn->Draw(); }

    void Park() {
        records::LocalizedStrings list(Next() % 10, records::MakeLocalizedString("what it does", "K"));
        mPlugIn->ParkLocalizedStrings(list);
    }

    // From now on the device refuses something, or nothing.
    void Refuse() {
        using render::Refusal;
        static constexpr Refusal kRefusals[] = { Refusal::Texture, Refusal::VertexMapping,
                                                 Refusal::TextureMapping, Refusal::RenderTarget };
        render::RecordingRenderer* recorder = mPlugIn->Recorder();
        const std::uint8_t byte = Next();
        if (recorder) recorder->Refuse(kRefusals[byte % std::size(kRefusals)], byte >= 128);
    }

    void Activate() { mPlugIn->ActivateInWindow(mWindow.Window()); }

    // And lets go of what was recorded.
    void CountFrames() {
        mLog.Clear();
        render::RecordingRenderer* recorder = mPlugIn->Recorder();
        if (!recorder) return;
        mFrames += recorder->CountOf(render::DeviceCall::Present);
        recorder->ForgetRecords();
    }

    std::span<const std::uint8_t> mBytes;
    std::size_t mFrames = 0;
    LogCapture mLog;
    SetClock mClock{ 100 };
    SetDpi mDpi{ 96 };
    ChildWindow mWindow{ 64, 48 };
    plugins::PlugInOwner<OpenPlugIn> mPlugIn = plugins::MakePlugIn<OpenPlugIn>();
};

} // namespace orvane::tests
