// One input is one request as the pipe would bring it, tag and all, of any length.
//
// Every parser gets it in a heap block of exactly its size, and a server gets it through the dispatcher. The
// sanitizers watch for reads and writes out of bounds; Held() watches what the protocol promises.
#include "platform/LogLine.h"
#include "platform/Text.h"
#include "records/ArtworkRecord.h"
#include "records/AudioRenderData.h"
#include "records/PulseEvents.h"
#include "records/TrackParam.h"
#include "shell/dispatch/Dispatcher.h"
#include "shell/protocol/LocalizedGroups.h"
#include "shell/protocol/PulseReply.h"
#include "shell/protocol/Requests.h"
#include "shell/protocol/SelectRequest.h"
#include "shell/protocol/TrackBlock.h"
#include "shell/wire/BufferReader.h"
#include "shell/wire/DumpDataAsHex.h"
#include "shell/wire/Flattener.h"
#include "support/BytesExchange.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

namespace {

using namespace orvane;
using namespace orvane::shell;
using Request = std::vector<std::uint8_t>;

void Held(bool promise) {
    if (!promise) __builtin_trap();
}

BufferReader ReaderOf(const Request& request) {
    return { request.data(), request.size(), 0 };
}

void ReadNumbers(const Request& request) {
    BufferReader reader = ReaderOf(request);
    std::uint8_t u8 = 0;
    std::int16_t i16 = 0;
    std::uint32_t u32 = 0;
    std::int32_t i32 = 0;
    float f32 = 0;
    std::uint64_t u64 = 0;
    while (Read(reader, u64) && Read(reader, i16) && Read(reader, f32) && Read(reader, i32) &&
           Read(reader, u32)) {}
    while (Read(reader, u8)) {}
    Held(reader.mPosition == request.size());
}

// A string that was read is put into a reply of just its size, and comes out with its bytes swapped. A few of
// them are enough: each costs time, and a request holds a dozen.
void ReadStrings(const Request& request) {
    BufferReader reader = ReaderOf(request);
    constexpr int kStrings = 12;
    for (int string = 0; string < kStrings; ++string) {
        const std::uint64_t before = reader.mPosition;
        records::StringBlock block;
        if (!ReadString(reader, block)) continue;
        Request reply(2 + 2 * std::size_t(block.count));
        Flattener flattener(reply.data(), reply.size());
        PutString(flattener, block, 255);
        Held(flattener.Length() == reply.size());
        Held(reader.mPosition - before == reply.size() + 4);
        for (std::size_t i = 0; i < reply.size(); ++i) Held(reply[i] == request[before + 4 + (i ^ 1)]);
    }
}

void ReadTrack(BufferReader& reader) {
    const records::TrackParamRef track = records::MakeTrackParam();
    const bool parsed = ParseTrackBlock(reader, *track);
    Held(reader.mPosition <= reader.mSize);
    Held(!parsed || reader.mPosition >= 16); // two keys and the two start values
    for (const auto* text : { &track->mTrackName, &track->mInfoString2, &track->mTrackArtist,
                              &track->mTrackAlbum, &track->mInfoString11 })
        Held(text->count <= records::StringBlock::kCapacity);
    Held(track->mAudioFormat.zero == 0);
}

void ReadGroups(const Request& request) {
    const LocalizedGroups groups = ParseLocalizedGroups(request);
    Held((groups.quellspire.size() + groups.zephor.size()) * 4 <= request.size()); // "<><>" at least
}

void ReadSelection(BufferReader& reader, records::StringBlock& name) {
    ReadVisualizerName(reader, name);
    SkipSelectionByte(reader);
    if (TakeTrackMarker(reader)) ReadTrack(reader);
}

// The beginning of the request, since a conversion under the sanitizers is slow and looks at one letter at a
// time.
void ConvertText(const Request& request) {
    constexpr std::size_t kConvertedBytes = 128;
    const std::string text = tests::AsText(request).substr(0, kConvertedBytes);
    if (const auto wide = platform::Utf16FromUtf8(text)) Held(platform::Utf8FromUtf16(*wide) == text);
    std::u16string units(text.size() / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i] = char16_t(request[2 * i] | request[2 * i + 1] << 8);
    Held(platform::Utf16FromUtf8(platform::Utf8FromUtf16(units)).has_value());
}

void ParseAll(const Request& request) {
    ReadNumbers(request);
    ReadStrings(request);
    ReadGroups(request);
    ConvertText(request);
    BufferReader track = ReaderOf(request), selection = ReaderOf(request);
    records::StringBlock name;
    ReadTrack(track);
    ReadSelection(selection, name);
}

// A server that takes every payload apart and has nothing behind it.
class Server final : public RequestOperations {
public:
    using RequestOperations::RequestOperations;

    bool Initialize(std::uint8_t) override { return true; }

    bool HandleUPVMMessage() override {
        const LocalizedGroups groups = ParseLocalizedGroups({ Payload(), PayloadSize() });
        Flattener flattener(Exchange().Output(), kMessageCapacity);
        PutUInt32(flattener, std::uint32_t(groups.quellspire.size() + groups.zephor.size()));
        for (const auto* list : { &groups.quellspire, &groups.zephor })
            for (const auto& entry : *list) {
                const char* end = std::find(entry.key, std::end(entry.key), '\0');
                records::StringBlock name;
                name.Assign(platform::Utf16FromUtf8({ entry.key, end }).value_or(u""));
                PutString(flattener, name, 255);
                for (const char byte : entry.value) PutUInt8(flattener, std::uint8_t(byte));
            }
        return Exchange().WriteReply(std::uint32_t(flattener.Length()));
    }

    bool PulseVisualizer() override {
        records::AudioRenderData audio = {};
        if (PayloadSize() >= pulse_request::kRenderData - kTagSize) {
            const auto size = Exchange().BytesRead() - pulse_request::kRenderData;
            std::memcpy(&audio, Exchange().Input() + pulse_request::kRenderData,
                        std::min<std::size_t>(size, sizeof(audio)));
            SetEvents(UInt32At(Exchange().Input(), pulse_request::kStamp));
        }
        std::array<std::uint8_t, kLongestPulseReply> reply;
        const std::size_t length = BuildPulseReply(reply);
        Held(length == 4 || length == 8 || length == 16);
        return Answer({ reinterpret_cast<const char*>(reply.data()), length });
    }

    bool ShowVisualizerWindowAndSelectVisualizer() override {
        BufferReader reader = { Payload(), PayloadSize(), 0 };
        records::StringBlock name;
        ReadSelection(reader, name);
        if (name.count == 0) DumpDataAsHex(Exchange().Input());
        return Answer("OK");
    }

    bool StartVisualizerPlaybackWithTrackInfo() override {
        BufferReader reader = { Payload(), PayloadSize(), 0 };
        ReadTrack(reader);
        return RequestOperations::StartVisualizerPlaybackWithTrackInfo();
    }

    bool SetArtworkVisualizer(std::uint32_t format) override {
        const auto record = records::MakeArtworkRecord(Payload(), PayloadSize(), format);
        Held(record && record->size == (format == 0 ? 0 : PayloadSize()));
        return RequestOperations::SetArtworkVisualizer(format);
    }

private:
    const std::uint8_t* Payload() { return Exchange().Input() + kTagSize; }

    std::size_t PayloadSize() { return Exchange().BytesRead() - kTagSize; }

    static void SetEvents(std::uint32_t bits) {
        records::sCloseRequested = (bits & 1) != 0;
        records::trackInfoDirty = (bits & 2) != 0;
        records::sKeyEventState = bits >> 2;
    }
};

void Dispatch(const Request& request) {
    static auto* sExchange = new tests::BytesExchange; // the server's
    static Server sServer{ std::unique_ptr<IExchange>(sExchange) };
    sExchange->mReplies.clear();
    sExchange->SetRequest(request);
    Held(DispatchRequest(sServer, *sExchange));
    Held(sExchange->mReplies.size() == 1 && !sExchange->mReplies.front().empty());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    platform::SetLogSink([](std::string_view) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kMessageCapacity) return -1; // the pipe brings no such request
    const Request request(data, data + size);
    ParseAll(request);
    Dispatch(request);
    return 0;
}
