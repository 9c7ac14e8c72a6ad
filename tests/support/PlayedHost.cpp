#include "support/PlayedHost.h"

namespace orvane::tests {

namespace {

constexpr std::uint32_t kHostVersion = 0x0080500C;

} // namespace

PlayedHost::PlayedHost(const std::filesystem::path& module) {
    const HMODULE library = LoadLibraryExW(module.c_str(), nullptr, 0);
    if (!library) return;
    mEntry =
        reinterpret_cast<EntryProc>(reinterpret_cast<void*>(GetProcAddress(library, "OrvanePluginMain")));
}

std::int32_t PlayedHost::Enter() {
    OrvaneEntryRecord record = {};
    record.majorVersion = ORVANE_MAJOR_VERSION;
    record.minorVersion = ORVANE_MINOR_VERSION;
    record.hostCookie = this;
    record.hostProc = &HostProc;
    return mEntry(ORVANE_MSG_INIT, &record, nullptr);
}

std::int32_t PlayedHost::Send(std::uint32_t message, void* record) {
    return mHandler ? mHandler(message, record, mRefcon) : ORVANE_UNIMPLEMENTED;
}

std::int32_t PlayedHost::Activate(HWND window) {
    OrvaneActivateRecord record = {};
    record.window = window;
    return Send(ORVANE_MSG_ACTIVATE, &record);
}

std::int32_t PlayedHost::Play(const OrvaneTrack& track) {
    OrvanePlayRecord record = {};
    record.track = &track;
    record.audioFormat = track.audioFormat;
    record.trackStartA = track.trackStartA;
    record.trackStartB = track.trackStartB;
    return Send(ORVANE_MSG_PLAY, &record);
}

std::uint64_t PlayedHost::Pulse(const OrvaneRenderData& sound, std::uint32_t stamp, std::uint32_t position) {
    OrvanePulseRecord record = {};
    record.renderData = &sound;
    record.stamp = stamp;
    record.position = position;
    Send(ORVANE_MSG_PULSE, &record);
    Send(ORVANE_MSG_DRAW);
    return record.result;
}

std::int32_t PlayedHost::HostProc(void* cookie, std::uint32_t message, void* record) {
    auto& host = *static_cast<PlayedHost*>(cookie);
    AcquireSRWLockExclusive(&host.mLock);
    host.mMessages.push_back(message);
    ReleaseSRWLockExclusive(&host.mLock);
    return message == ORVANE_HOST_REGISTER ? host.Register(static_cast<OrvaneRegisterRecord*>(record))
                                           : ORVANE_OK;
}

std::int32_t PlayedHost::Register(const OrvaneRegisterRecord* record) {
    if (!record) ++mNullRecords;
    if (!record || record->majorVersion != ORVANE_MAJOR_VERSION) return ORVANE_BAD_PARAMETER;
    mRegistered.push_back(*record);
    mHandler = record->handler;
    OrvaneHandlerRecord handlerRecord = {};
    handlerRecord.majorVersion = ORVANE_MAJOR_VERSION;
    handlerRecord.minorVersion = ORVANE_MINOR_VERSION;
    handlerRecord.hostVersion = kHostVersion;
    handlerRecord.hostCookie = this;
    handlerRecord.hostProc = &HostProc;
    handlerRecord.refcon = record->refcon;
    if (!mHandler) return ORVANE_OK;
    const std::int32_t status = mHandler(ORVANE_MSG_INIT, &handlerRecord, record->refcon);
    mRefcon = handlerRecord.refcon;
    return status;
}

std::filesystem::path ProgramFolder() {
    wchar_t path[MAX_PATH];
    const DWORD units = GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path, path + units).parent_path();
}

} // namespace orvane::tests
