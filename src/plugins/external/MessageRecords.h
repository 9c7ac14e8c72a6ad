// The records that go with the messages, packed, pointers 8 bytes wide. Reserved parts are zero.
#pragma once

#include "plugins/external/Messages.h"
#include "records/TrackParam.h"

#include <cstddef>
#include <cstdint>

namespace orvane::plugins {

#pragma pack(push, 1)

// 'init' to the module's entry.
struct EntryRecord {
    std::uint32_t majorVersion;
    std::uint32_t minorVersion;
    void* hostCookie;
    HostCallback hostCallback;
    std::uint8_t reserved[12];
};

// 'init' to the registered handler.
struct HandlerRecord {
    std::uint32_t majorVersion;
    std::uint32_t minorVersion;
    std::uint32_t hostVersion;
    void* hostCookie;
    HostCallback hostCallback;
    std::uint32_t zero;
    void* refCon; // in: the registered one; out: the one that the handler wants from now on
    std::uint8_t reserved[24];
};

struct ActivateRecord {
    void* window;
    std::uint64_t zero;
    std::uint8_t reserved[48];
};

struct ArtworkMessageRecord {
    const void* data;
    std::uint32_t size;   // in bytes
    std::uint32_t format; // 13 or 14
    std::uint8_t reserved[48];
};

struct PulseRecord {
    const void* renderData; // records/AudioRenderData.h
    std::uint32_t pulseStamp;
    std::uint32_t pulsePosition;
    std::uint64_t result; // out; zero going in
    std::uint8_t reserved[40];
};

struct PlaybackRecord {
    const records::TrackParamObj* trackParam;
    std::uint64_t zero;
    records::AudioFormatBlock audioFormat;
    std::uint32_t trackStartB; // in front of A here
    std::int32_t trackStartA;
};

// 'regv' to the host's callback.
struct RegistrationRecord {
    std::uint32_t majorVersion;
    std::uint32_t minorVersion;
    std::uint32_t ignored;
    std::uint16_t nameCount; // may claim anything
    char16_t nameUnits[255];
    std::uint32_t options;
    std::uint32_t word0;
    std::uint8_t bytes[4];
    MessageHandler handler;
    void* refCon;
    std::uint32_t rate;
    std::uint32_t word1;
    std::uint32_t word2;
    std::uint32_t limit0;
    std::uint32_t limit2; // the third in front of the second
    std::uint32_t limit1;
    std::uint32_t limit3;
};

#pragma pack(pop)

static_assert(offsetof(EntryRecord, majorVersion) == 0);
static_assert(offsetof(EntryRecord, minorVersion) == 4);
static_assert(offsetof(EntryRecord, hostCookie) == 8);
static_assert(offsetof(EntryRecord, hostCallback) == 16);
static_assert(offsetof(EntryRecord, reserved) == 24);
static_assert(sizeof(EntryRecord) == 36);

static_assert(offsetof(HandlerRecord, majorVersion) == 0);
static_assert(offsetof(HandlerRecord, minorVersion) == 4);
static_assert(offsetof(HandlerRecord, hostVersion) == 8);
static_assert(offsetof(HandlerRecord, hostCookie) == 12);
static_assert(offsetof(HandlerRecord, hostCallback) == 20);
static_assert(offsetof(HandlerRecord, zero) == 28);
static_assert(offsetof(HandlerRecord, refCon) == 32);
static_assert(offsetof(HandlerRecord, reserved) == 40);
static_assert(sizeof(HandlerRecord) == 64);

static_assert(offsetof(ActivateRecord, window) == 0);
static_assert(offsetof(ActivateRecord, zero) == 8);
static_assert(offsetof(ActivateRecord, reserved) == 16);
static_assert(sizeof(ActivateRecord) == 64);

static_assert(offsetof(ArtworkMessageRecord, data) == 0);
static_assert(offsetof(ArtworkMessageRecord, size) == 8);
static_assert(offsetof(ArtworkMessageRecord, format) == 12);
static_assert(offsetof(ArtworkMessageRecord, reserved) == 16);
static_assert(sizeof(ArtworkMessageRecord) == 64);

static_assert(offsetof(PulseRecord, renderData) == 0);
static_assert(offsetof(PulseRecord, pulseStamp) == 8);
static_assert(offsetof(PulseRecord, pulsePosition) == 12);
static_assert(offsetof(PulseRecord, result) == 16);
static_assert(offsetof(PulseRecord, reserved) == 24);
static_assert(sizeof(PulseRecord) == 64);

static_assert(offsetof(PlaybackRecord, trackParam) == 0);
static_assert(offsetof(PlaybackRecord, zero) == 8);
static_assert(offsetof(PlaybackRecord, audioFormat) == 16);
static_assert(offsetof(PlaybackRecord, trackStartB) == 56);
static_assert(offsetof(PlaybackRecord, trackStartA) == 60);
static_assert(sizeof(PlaybackRecord) == 64);

static_assert(offsetof(RegistrationRecord, majorVersion) == 0);
static_assert(offsetof(RegistrationRecord, minorVersion) == 4);
static_assert(offsetof(RegistrationRecord, ignored) == 8);
static_assert(offsetof(RegistrationRecord, nameCount) == 12);
static_assert(offsetof(RegistrationRecord, nameUnits) == 14);
static_assert(offsetof(RegistrationRecord, options) == 524);
static_assert(offsetof(RegistrationRecord, word0) == 528);
static_assert(offsetof(RegistrationRecord, bytes) == 532);
static_assert(offsetof(RegistrationRecord, handler) == 536);
static_assert(offsetof(RegistrationRecord, refCon) == 544);
static_assert(offsetof(RegistrationRecord, rate) == 552);
static_assert(offsetof(RegistrationRecord, word1) == 556);
static_assert(offsetof(RegistrationRecord, word2) == 560);
static_assert(offsetof(RegistrationRecord, limit0) == 564);
static_assert(offsetof(RegistrationRecord, limit2) == 568);
static_assert(offsetof(RegistrationRecord, limit1) == 572);
static_assert(offsetof(RegistrationRecord, limit3) == 576);
static_assert(sizeof(RegistrationRecord) == 580);

} // namespace orvane::plugins
