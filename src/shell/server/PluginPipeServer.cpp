#include "shell/server/PluginPipeServer.h"

#include "platform/LogLine.h"
#include "plugins/FlattenPlugIn.h"
#include "plugins/PlugInMemory.h"
#include "plugins/external/Discovery.h"
#include "records/ArtworkRecord.h"
#include "shell/dispatch/ThreadMessages.h"
#include "shell/protocol/LocalizedGroups.h"
#include "shell/protocol/PulseReply.h"
#include "shell/protocol/Replies.h"
#include "shell/protocol/Requests.h"
#include "shell/protocol/TrackBlock.h"
#include "shell/wire/Flattener.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace orvane::shell {

using platform::LogFormat;
using platform::LogLine;
using platform::OwnedLock;
using plugins::PlugInKind;
using plugins::VisualPlugIn;

namespace {

// A 32-bit field of the request at hand; 0 if the request ends before it.
std::uint32_t RequestField(IExchange& exchange, std::uint32_t offset) {
    return exchange.BytesRead() < offset + sizeof(std::uint32_t) ? 0 : UInt32At(exchange.Input(), offset);
}

const char* NameOfPlugin(const VisualPlugIn* plugin, const char* ifSet) {
    return plugin ? ifSet : "null plugin";
}

// The four lines of a change of the current plug-in.
void LogChange(const char* operation, const VisualPlugIn* from, const VisualPlugIn* to) {
    LogFormat("%s::Setting %s to %s\n", operation, NameOfPlugin(from, "current valid plugin"),
              to ? "valid plugin" : "null");
}

// KEEP: the two built-ins are told apart: Zephor is handed its list even when it is empty, Quellspire only one
// that says something, with a line otherwise. Pinned by PluginPipeServer.AnEmptyListIsParkedWithZephorAlone.
void ParkStrings(VisualPlugIn& plugin, const LocalizedGroups& groups) {
    switch (plugin.Kind()) {
    case PlugInKind::kExternal:
        return;
    case PlugInKind::kZephor:
        plugin.ParkLocalizedStrings(groups.zephor);
        return;
    case PlugInKind::kQuellspire:
        if (groups.quellspire.empty())
            LogLine("No localized strings to park with Quellspire.\n");
        else
            plugin.ParkLocalizedStrings(groups.quellspire);
        return;
    }
}

} // namespace

PluginPipeServer::PluginPipeServer(std::span<const BuiltIn> builtIns, const PipeCalls& calls)
    : PipeServer(calls)
    , mBuiltIns(builtIns) {}

bool PluginPipeServer::Initialize(std::uint8_t messageMode) {
    RegisterBuiltInVisualizers();
    plugins::Discovery([this](auto plugin) { mPlugins.push_back(std::move(plugin)); }).Run();
    return PipeServer::Initialize(messageMode);
}

void PluginPipeServer::RegisterBuiltInVisualizers() {
    const OwnedLock lock(mPluginLock);
    LogLine("RegisterBuiltInVisualizers**********************\n");
    for (const BuiltIn& builtIn : mBuiltIns) mPlugins.push_back(builtIn.make());
}

bool PluginPipeServer::HandleUPVMMessage() {
    IExchange& exchange = Exchange();
    const auto groups =
        ParseLocalizedGroups({ exchange.Input() + kTagSize, exchange.BytesRead() - kTagSize });
    Flattener flattener(exchange.Output(), kMessageCapacity);
    PutUInt32(flattener, std::uint32_t(mPlugins.size()));
    for (const auto& plugin : mPlugins) {
        // Parked first: a built-in's display name comes from its strings, so the reply already shows it.
        ParkStrings(*plugin, groups);
        plugins::FlattenPlugIn(flattener, *plugin);
    }
    return exchange.WriteReply(std::uint32_t(flattener.Length()));
}

bool PluginPipeServer::PulseVisualizer() {
    IExchange& exchange = Exchange();
    {
        const OwnedLock lock(mPluginLock);
        if (mCurrentPlugin) {
            const std::uint32_t bytes = exchange.BytesRead();
            const std::size_t length =
                bytes < pulse_request::kRenderData ? 0 : bytes - pulse_request::kRenderData;
            mCurrentPlugin->Pulse(exchange.Input() + pulse_request::kRenderData, length,
                                  RequestField(exchange, pulse_request::kStamp),
                                  RequestField(exchange, pulse_request::kPosition));
        }
    }
    std::array<std::uint8_t, kLongestPulseReply> reply;
    const std::size_t length = BuildPulseReply(reply);
    return Answer({ reinterpret_cast<const char*>(reply.data()), length });
}

bool PluginPipeServer::KeyInputVisualizer() {
    {
        const OwnedLock lock(mPluginLock);
        if (mCurrentPlugin) {
            IExchange& exchange = Exchange();
            // The count is the player's word. It may go beyond the request, never beyond the input buffer.
            constexpr std::uint32_t kMostCharacters =
                (kMessageCapacity - key_request::kCharacters) / sizeof(char16_t);
            const std::uint32_t count =
                std::min(RequestField(exchange, key_request::kCount), kMostCharacters);
            mCurrentPlugin->KeyInput(
                count, reinterpret_cast<const char16_t*>(exchange.Input() + key_request::kCharacters),
                RequestField(exchange, key_request::kModifiers));
        } else {
            LogLine("Current plugin is null. Cannot take key input\n");
        }
    }
    return Answer(replies::kOk);
}

bool PluginPipeServer::PostToMainThread(UINT message, std::string_view failureLine, LPARAM payload) {
    if (PostThreadMessageW(MainThreadId(), message, 0, payload)) return true;
    LogLine(failureLine);
    return false;
}

bool PluginPipeServer::PostAndAnswer(UINT message, std::string_view failureLine) {
    PostToMainThread(message, failureLine);
    return Answer(replies::kOk);
}

bool PluginPipeServer::DrawVisualizer() {
    return PostAndAnswer(MESSAGE_DRAWV_VISUALIZER,
                         "Could not post MESSAGE_DRAWV_VISUALIZER to main thread.\n");
}

bool PluginPipeServer::IdleVisualizer() {
    return PostAndAnswer(MESSAGE_IDLEV_VISUALIZER,
                         "Could not post MESSAGE_IDLEV_VISUALIZER to main thread.\n");
}

bool PluginPipeServer::StopVisualizer() {
    return PostAndAnswer(MESSAGE_STOPV_VISUALIZER,
                         "Could not post MESSAGE_STOPV_VISUALIZER to main thread.\n");
}

bool PluginPipeServer::DeactivateVisualizer() {
    return PostAndAnswer(MESSAGE_DEACT_VISUALIZER,
                         "Could not post MESSAGE_DEACT_VISUALIZER to main thread.\n");
}

bool PluginPipeServer::ReshapeVisualizer() {
    if (auto words = MakeFourWords()) {
        std::memcpy(words.get(), Exchange().Input() + reshape_request::kValues, sizeof(FourWords));
        PostToMainThread(MESSAGE_SHAPE_VISUALIZER,
                         "Could not post MESSAGE_SHAPE_VISUALIZER to main thread.\n", std::move(words));
    }
    return Answer(replies::kOk);
}

bool PluginPipeServer::SetArtworkVisualizer(std::uint32_t format) {
    IExchange& exchange = Exchange();
    auto record = records::MakeArtworkRecord(exchange.Input() + artwork_request::kImage,
                                             exchange.BytesRead() - artwork_request::kImage, format);
    // Short of memory, the player isn't told.
    if (record)
        PostToMainThread(MESSAGE_ARTWK_VISUALIZER,
                         "Could not post MESSAGE_ARTWK_VISUALIZER to main thread.\n", std::move(record));
    return Answer(replies::kOk);
}

BufferReader PluginPipeServer::PayloadReader() {
    return { Exchange().Input() + kTagSize, Exchange().BytesRead() - kTagSize, 0 };
}

void PluginPipeServer::TakeTrack(BufferReader& reader) {
    auto track = records::MakeTrackParam();
    if (!track) return;
    // KEEP: a block that fails leaves the half-filled track current, where a later activation finds it: what
    // came through is better than an empty title. Pinned by PluginPipeServer.AFailedTrackStaysCurrent.
    const bool parsed = ParseTrackBlock(reader, *track);
    mTrackParamData = std::move(track);
    if (parsed)
        PostToMainThread(MESSAGE_START_VISUALIZER,
                         "Could not post MESSAGE_START_VISUALIZER to main thread.\n");
}

bool PluginPipeServer::StartVisualizerPlaybackWithTrackInfo() {
    {
        const OwnedLock lock(mPluginLock);
        BufferReader reader = PayloadReader();
        TakeTrack(reader);
    }
    return Answer(replies::kStart);
}

void PluginPipeServer::StartPlayback(VisualPlugIn& plugin, records::TrackParamObj& track) {
    plugin.StartExternalVisualPlayback(&track, &track.mAudioFormat, track.mTrackStartA, track.mTrackStartB);
}

void PluginPipeServer::StartVisualizerWithTrackParam() {
    LogLine("PluginPipeServer::StartVisualizerWithTrackParam called\n");
    VisualPlugIn* const plugin = mCurrentPlugin;
    const records::TrackParamRef track = mTrackParamData;
    if (plugin && track)
        StartPlayback(*plugin, *track);
    else
        LogLine(
            "PluginPipeServer::StartVisualizerWithTrackParam::Current plugin is null. Cannot Start track\n");
}

void PluginPipeServer::DrawVisualizerInMainThread() {
    if (VisualPlugIn* const plugin = mCurrentPlugin) plugin->Draw();
}

void PluginPipeServer::IdleVisualizerInMainThread() {
    if (VisualPlugIn* const plugin = mCurrentPlugin)
        plugin->Idle();
    else
        LogLine("Current plugin is null. Cannot idle\n");
}

void PluginPipeServer::StopVisualizerInMainThread() {
    const OwnedLock lock(mPluginLock);
    if (mCurrentPlugin) mCurrentPlugin->Stop();
    mTrackParamData = records::TrackParamRef();
}

void PluginPipeServer::SetArtworkInMainThread(const records::ArtworkRecord* record) {
    const OwnedLock lock(mPluginLock);
    if (!mCurrentPlugin)
        LogLine("SetArtworkInMainThread : Current plugin is null. Cannot set artwork\n");
    else if (record)
        mCurrentPlugin->SetArtwork(record->data, std::uint32_t(record->size), record->format);
}

void PluginPipeServer::DeactivateCurrentPlugin() {
    const OwnedLock lock(mPluginLock);
    if (mCurrentPlugin)
        mCurrentPlugin->Deactivate();
    else
        LogLine("Current plugin is null. Cannot deactivate\n");
}

void PluginPipeServer::ResizeRenderTarget(std::uint32_t, std::uint32_t) {
    LogLine("PluginPipeServer::ResizeRenderTarget override me\n");
}

bool PluginPipeServer::HandleKey(std::uint16_t, std::uint32_t) {
    LogLine("HandleKey: override me\n");
    return false;
}

void PluginPipeServer::ToggleFullScreen() {
    LogLine("ToggleFullScreen: override me\n");
}

void PluginPipeServer::SetCurrentPlugin(VisualPlugIn* plugin) {
    const OwnedLock lock(mPluginLock);
    LogChange("SetCurrentPlugin", mCurrentPlugin, plugin);
    mCurrentPlugin = plugin;
}

void PluginPipeServer::SetCurrentPluginNoLock(VisualPlugIn* plugin) {
    LogChange("SetCurrentPluginNoLock", mCurrentPlugin, plugin);
    mCurrentPlugin = plugin;
}

} // namespace orvane::shell
