/*
 * orvane_plugin.h - all that a visualizer module for Orvane needs.
 *
 * A module is a 64-bit DLL that exports one function, OrvanePluginMain. The visualizer process loads it at
 * its start and calls that function once. Inside the call the module registers itself through a callback:
 * its name and a message handler. From then on it is sent messages: activate, play, pulse, draw ...
 *
 * Plain C (C99 and later) and C++; no other header is needed. Records are packed, values little-endian,
 * pointers 8 bytes wide. Every size and offset is checked at compile time at the end of this file.
 *
 *
 * The life of a module
 *
 *   process start    OrvanePluginMain(ORVANE_MSG_INIT, entry record)
 *                      the module calls entry->hostProc(entry->hostCookie, ORVANE_HOST_REGISTER, &record)
 *                        the host calls record.handler(ORVANE_MSG_INIT, handler record, record.refcon)
 *   user selects it  ORVANE_MSG_ACTIVATE, and ORVANE_MSG_PLAY if a track is on
 *   while it plays   ORVANE_MSG_PULSE and ORVANE_MSG_DRAW in pairs, further draws, ORVANE_MSG_IDLE,
 *                    ORVANE_MSG_ARTWORK, ORVANE_MSG_PLAY for each new track, ORVANE_MSG_FRAME_CHANGED,
 *                    ORVANE_MSG_STOP: in any order
 *   window hidden    ORVANE_MSG_DEACTIVATE; a later ACTIVATE can follow
 *   process end      nothing: no message, and the module is never unloaded before
 *
 * Don't count on a DEACTIVATE: when the user picks another visualizer the module just hears no more. It can
 * also be activated twice in a row, and draws, pulses and idles may come before the first activation or
 * after a deactivation.
 *
 *
 * Threads
 *
 * Two threads of the host call a module: the main thread, which owns all windows, and the service thread,
 * which receives the sound.
 *
 *   message                            thread
 *   OrvanePluginMain, INIT             the thread that registers modules: the main thread at process start,
 *                                      the service thread if the host has to take up its work anew, and
 *                                      then the same loaded module is entered once more
 *   PULSE, and the DRAW behind it      service thread
 *   DRAW                               main thread as well, at any time
 *   all others                         main thread
 *
 * So ORVANE_MSG_DRAW can come on two threads at once, and a DRAW, IDLE or PLAY on the main thread can come
 * while a PULSE is being handled. Nothing in the host separates them: a module guards its own state, by one
 * lock for instance.
 *
 * A module must never wait for the other thread inside a call. Above all: while handling PULSE, and whenever
 * it holds its own lock, it must call nothing that sends a message to the host's window (SendMessage,
 * ShowWindow, SetWindowPos, SetWindowText, making or destroying a child window ...). The main thread may at
 * that moment be waiting for the service thread or for the module's lock; then both stand still for ever.
 * GetDC, ReleaseDC, GetClientRect and drawing are harmless from both threads.
 *
 *
 * Memory
 *
 * Every record and everything that a record points to belongs to the one who made it and is good only until
 * the call that handed it over returns: copy what you want to keep. There are two exceptions. The host
 * cookie and the host callback stay good as long as registration succeeded (OrvanePluginMain returned
 * ORVANE_OK); after a failed one the cookie is dead. The window stays as long as the process shows it, but
 * draw into it only between ACTIVATE and DEACTIVATE. The host never frees a module's memory and a module
 * never frees the host's.
 *
 *
 * What the host does with a failure
 *
 *   OrvanePluginMain                    not 0: one line on the console; the module isn't listed. If a handler
 *                                       was registered by then, it gets DEACTIVATE, without an ACTIVATE
 *   handler, INIT                       becomes the result of the REGISTER call; the module passes it on as
 *                                       the result of OrvanePluginMain, or is listed all the same
 *   handler, ACTIVATE                   not 0: a line, one of its own for ORVANE_UNIMPLEMENTED; the module
 *                                       stays current and goes on being sent messages, but no track comes
 *                                       with this activation
 *   handler, DEACTIVATE                 0 prints a line, anything else is passed over
 *   handler, all others                 not looked at
 *
 * Calls are direct. A module that crashes or never returns takes the host with it. Don't let a C++ exception
 * leave a handler, and give back whatever you change for the calling thread: floating-point control state,
 * locale, current folder.
 */
#ifndef ORVANE_PLUGIN_H
#define ORVANE_PLUGIN_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(_WIN32)
#    define ORVANE_EXPORT __declspec(dllexport)
#elif defined(__GNUC__)
#    define ORVANE_EXPORT __attribute__((visibility("default")))
#else
#    define ORVANE_EXPORT
#endif

/* ---------------------------------------------------------------- versions, status values, options */

/* Of the message records. Register with exactly these: another major version is refused with
 * ORVANE_BAD_PARAMETER, another minor version is only remarked upon. */
#define ORVANE_MAJOR_VERSION 10u
#define ORVANE_MINOR_VERSION 9u

/* Results, from both sides. */
#define ORVANE_OK 0
#define ORVANE_UNIMPLEMENTED (-4)  /* a message that this module doesn't handle */
#define ORVANE_BAD_PARAMETER (-50) /* a null record, a major version that doesn't fit */

/* Bits of OrvaneRegisterRecord.options. The other bits are the player's; leave them 0. */
#define ORVANE_OPTION_IDLE 8u /* send ORVANE_MSG_IDLE; without it a module gets none */

/* ---------------------------------------------------------------- message codes */

/* Four characters, the first one in the most significant byte. */

/* From the host to the module; the record that comes with each. */
#define ORVANE_MSG_INIT 0x696E6974u          /* 'init'  OrvaneEntryRecord or OrvaneHandlerRecord */
#define ORVANE_MSG_ACTIVATE 0x56616374u      /* 'Vact'  OrvaneActivateRecord */
#define ORVANE_MSG_DEACTIVATE 0x56646374u    /* 'Vdct'  none */
#define ORVANE_MSG_FRAME_CHANGED 0x5666726Du /* 'Vfrm'  none: the window has a new size, ask it */
#define ORVANE_MSG_DRAW 0x56647277u          /* 'Vdrw'  none: draw one frame now. TWO THREADS, see above */
#define ORVANE_MSG_STOP 0x76737470u          /* 'vstp'  none: playback ended */
#define ORVANE_MSG_IDLE 0x6E756C6Cu          /* 'null'  none; only with ORVANE_OPTION_IDLE */
#define ORVANE_MSG_ARTWORK 0x56617274u       /* 'Vart'  OrvaneArtworkRecord; not sent for "no artwork" */
#define ORVANE_MSG_PULSE 0x56706C73u         /* 'Vpls'  OrvanePulseRecord; SERVICE THREAD, DRAW follows */
#define ORVANE_MSG_PLAY 0x56706C79u          /* 'Vply'  OrvanePlayRecord: playback begins, or a new track */

/* From the module to the host, through the host callback. Only the first has an effect; the others are heard
 * (one line on the console), answered with ORVANE_OK, and nothing follows. Any other code likewise. The
 * callback waits for nothing and may be called on any thread. */
#define ORVANE_HOST_REGISTER 0x72656776u               /* 'regv'  OrvaneRegisterRecord */
#define ORVANE_HOST_REQUEST_ARTWORK 0x72617274u        /* 'rart'  none */
#define ORVANE_HOST_SET_FULLSCREEN_OPTIONS 0x73666F70u /* 'sfop'  none */
#define ORVANE_HOST_SET_FULLSCREEN 0x7366756Cu         /* 'sful'  none */

/* ---------------------------------------------------------------- functions */

/* The host's callback. `cookie` is the hostCookie that came with it. A null record for ORVANE_HOST_REGISTER
 * gives ORVANE_BAD_PARAMETER. */
typedef int32_t (*OrvaneHostProc)(void* cookie, uint32_t message, void* record);

/* A module's message handler. `record` is null for messages without one. `refcon` is the module's own: for
 * ORVANE_MSG_INIT what it registered, afterwards what it left in OrvaneHandlerRecord.refcon. Answer unknown
 * messages with ORVANE_UNIMPLEMENTED. */
typedef int32_t (*OrvaneHandlerProc)(uint32_t message, void* record, void* refcon);

/* ---------------------------------------------------------------- text, sound, track */

/* UTF-16 text. At most 255 units; a shorter text ends in a zero unit, a full one has no terminator. */
#define ORVANE_STRING_UNITS 255

typedef struct OrvaneString {
    uint16_t count;
    uint16_t units[ORVANE_STRING_UNITS];
} OrvaneString;

/* The sound of one pulse. Waveform samples are unsigned around ORVANE_SILENCE; spectrum magnitudes are 0 to
 * 255, bin 0 lowest. Index the second dimension with 0 to ORVANE_SAMPLES - 1. */
#define ORVANE_CHANNELS 2
#define ORVANE_SAMPLES 512
#define ORVANE_SILENCE 127

typedef struct OrvaneRenderData {
    uint8_t waveformChannels;
    uint8_t waveform[ORVANE_CHANNELS][ORVANE_SAMPLES];
    uint8_t spectrumChannels;
    uint8_t spectrum[ORVANE_CHANNELS][ORVANE_SAMPLES];
} OrvaneRenderData;

/* The format of the track's sound. */
typedef struct OrvaneAudioFormat {
    uint32_t word0;
    uint32_t zero;
    uint32_t words1[7];
    uint32_t word8; /* words1[6] and word8, in this order, are the halves of one 64-bit float */
} OrvaneAudioFormat;

/* The track. Fields with no name of their own pass unread from the player to the module. */
typedef struct OrvaneTrack {
    uint32_t infoWords1[2];
    OrvaneString name;
    OrvaneString infoString2;
    OrvaneString artist;
    OrvaneString album;
    OrvaneString infoString5;
    OrvaneString infoString6;
    OrvaneString infoString7;
    OrvaneString infoString8;
    uint32_t infoWords2[2];
    int16_t infoShorts1[2];
    uint32_t infoWords3[11];
    OrvaneString infoString9;
    uint8_t infoBytes[2];
    int16_t infoShorts2[3];
    uint32_t infoWords4[2];
    int16_t infoShorts3[2];
    OrvaneString infoString10;
    float infoFloat;
    OrvaneString infoString11;
    uint64_t infoLong;
    OrvaneAudioFormat audioFormat;
    int32_t trackStartA;
    uint32_t trackStartB;
} OrvaneTrack;

/* ---------------------------------------------------------------- records */

#pragma pack(push, 1)

/* OrvanePluginMain, ORVANE_MSG_INIT. */
typedef struct OrvaneEntryRecord {
    uint32_t majorVersion; /* the host's; a module may refuse a major version that it doesn't know */
    uint32_t minorVersion;
    void* hostCookie;        /* first argument of every call of hostProc */
    OrvaneHostProc hostProc; /* keep both if you want to speak to the host later */
    uint8_t reserved[12];
} OrvaneEntryRecord;

/* Handler, ORVANE_MSG_INIT: comes inside the REGISTER call. */
typedef struct OrvaneHandlerRecord {
    uint32_t majorVersion;
    uint32_t minorVersion;
    uint32_t hostVersion; /* the host program's own version */
    void* hostCookie;
    OrvaneHostProc hostProc;
    uint32_t zero;
    void* refcon; /* in: OrvaneRegisterRecord.refcon; out: the refcon of all later messages */
    uint8_t reserved[24];
} OrvaneHandlerRecord;

/* Module to host, ORVANE_HOST_REGISTER. The host copies it before the call returns. Zero the whole record
 * first. Fields with no meaning of their own are handed to the player unread. */
typedef struct OrvaneRegisterRecord {
    uint32_t majorVersion; /* ORVANE_MAJOR_VERSION */
    uint32_t minorVersion; /* ORVANE_MINOR_VERSION */
    uint32_t unread;
    OrvaneString name; /* what the user sees and selects by; a count above 255 is cut to 255 */
    uint32_t options;  /* ORVANE_OPTION_... */
    uint32_t word0;
    uint8_t bytes[4];
    OrvaneHandlerProc handler; /* never null */
    void* refcon;
    uint32_t rate; /* pulses wanted in a second; the host's own visualizers have 60 */
    uint32_t word1;
    uint32_t word2;
    uint32_t limit1;
    uint32_t limit3; /* the two middle limits stand crossed over in this record: the player's third limit */
    uint32_t limit2; /* comes before its second. Fill them by name and all is well */
    uint32_t limit4;
} OrvaneRegisterRecord;

/* ORVANE_MSG_ACTIVATE. The window belongs to the host: draw into it, but don't subclass, move, hide or
 * destroy it. It doesn't erase its background, so a module paints every pixel. */
typedef struct OrvaneActivateRecord {
    void* window; /* an HWND */
    uint64_t zero;
    uint8_t reserved[48];
} OrvaneActivateRecord;

/* ORVANE_MSG_ARTWORK. `size` can be 0 with a null `data`. Nothing says that the bytes are a sound image. */
typedef struct OrvaneArtworkRecord {
    const uint8_t* data; /* an encoded image, good during the call */
    uint32_t size;       /* in bytes */
    uint32_t format;     /* 13 or 14, by the player's own numbering */
    uint8_t reserved[48];
} OrvaneArtworkRecord;

/* ORVANE_MSG_PULSE. With a stamp of 0 the pulse carries no sound to take: leave renderData alone. */
typedef struct OrvanePulseRecord {
    const OrvaneRenderData* renderData; /* good during the call */
    uint32_t stamp;
    uint32_t position;
    uint64_t result; /* out, zero going in: read by the host, which has no use for it yet; leave it 0 */
    uint8_t reserved[40];
} OrvanePulseRecord;

/* ORVANE_MSG_PLAY. It can come again for the same track. */
typedef struct OrvanePlayRecord {
    const OrvaneTrack* track; /* good during the call */
    uint64_t zero;
    OrvaneAudioFormat audioFormat; /* a copy of track->audioFormat */
    uint32_t trackStartB;          /* as in the track; note that B stands before A here */
    int32_t trackStartA;
} OrvanePlayRecord;

#pragma pack(pop)

/* ---------------------------------------------------------------- the entry */

/* What a module defines. Called with ORVANE_MSG_INIT; answer any other message with ORVANE_UNIMPLEMENTED.
 * Register from inside this call, and return what the host's callback returned. `unused` is null. */
ORVANE_EXPORT int32_t OrvanePluginMain(uint32_t message, OrvaneEntryRecord* record, void* unused);

/* ---------------------------------------------------------------- layout checks */

#if defined(__cplusplus)
#    define ORVANE_CHECK(condition, name) static_assert(condition, #    name)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#    define ORVANE_CHECK(condition, name) _Static_assert(condition, #    name)
#else
#    define ORVANE_CHECK(condition, name) typedef char orvane_check_##name[(condition) ? 1 : -1]
#endif
#define ORVANE_CHECK_SIZE(type, bytes) ORVANE_CHECK(sizeof(type) == (bytes), size_of_##type)
#define ORVANE_CHECK_AT(type, field, at) ORVANE_CHECK(offsetof(type, field) == (at), type##_##field)

ORVANE_CHECK_SIZE(OrvaneString, 512);
ORVANE_CHECK_AT(OrvaneString, units, 2);

ORVANE_CHECK_SIZE(OrvaneRenderData, 2050);
ORVANE_CHECK_AT(OrvaneRenderData, waveform, 1);
ORVANE_CHECK_AT(OrvaneRenderData, spectrumChannels, 1025);
ORVANE_CHECK_AT(OrvaneRenderData, spectrum, 1026);

ORVANE_CHECK_SIZE(OrvaneAudioFormat, 40);
ORVANE_CHECK_AT(OrvaneAudioFormat, words1, 8);
ORVANE_CHECK_AT(OrvaneAudioFormat, word8, 36);

ORVANE_CHECK_SIZE(OrvaneTrack, 5776);
ORVANE_CHECK_AT(OrvaneTrack, name, 8);
ORVANE_CHECK_AT(OrvaneTrack, infoString2, 520);
ORVANE_CHECK_AT(OrvaneTrack, artist, 1032);
ORVANE_CHECK_AT(OrvaneTrack, album, 1544);
ORVANE_CHECK_AT(OrvaneTrack, infoString5, 2056);
ORVANE_CHECK_AT(OrvaneTrack, infoString6, 2568);
ORVANE_CHECK_AT(OrvaneTrack, infoString7, 3080);
ORVANE_CHECK_AT(OrvaneTrack, infoString8, 3592);
ORVANE_CHECK_AT(OrvaneTrack, infoWords2, 4104);
ORVANE_CHECK_AT(OrvaneTrack, infoShorts1, 4112);
ORVANE_CHECK_AT(OrvaneTrack, infoWords3, 4116);
ORVANE_CHECK_AT(OrvaneTrack, infoString9, 4160);
ORVANE_CHECK_AT(OrvaneTrack, infoBytes, 4672);
ORVANE_CHECK_AT(OrvaneTrack, infoShorts2, 4674);
ORVANE_CHECK_AT(OrvaneTrack, infoWords4, 4680);
ORVANE_CHECK_AT(OrvaneTrack, infoShorts3, 4688);
ORVANE_CHECK_AT(OrvaneTrack, infoString10, 4692);
ORVANE_CHECK_AT(OrvaneTrack, infoFloat, 5204);
ORVANE_CHECK_AT(OrvaneTrack, infoString11, 5208);
ORVANE_CHECK_AT(OrvaneTrack, infoLong, 5720);
ORVANE_CHECK_AT(OrvaneTrack, audioFormat, 5728);
ORVANE_CHECK_AT(OrvaneTrack, trackStartA, 5768);
ORVANE_CHECK_AT(OrvaneTrack, trackStartB, 5772);

ORVANE_CHECK_SIZE(OrvaneEntryRecord, 36);
ORVANE_CHECK_AT(OrvaneEntryRecord, hostCookie, 8);
ORVANE_CHECK_AT(OrvaneEntryRecord, hostProc, 16);
ORVANE_CHECK_AT(OrvaneEntryRecord, reserved, 24);

ORVANE_CHECK_SIZE(OrvaneHandlerRecord, 64);
ORVANE_CHECK_AT(OrvaneHandlerRecord, hostVersion, 8);
ORVANE_CHECK_AT(OrvaneHandlerRecord, hostCookie, 12);
ORVANE_CHECK_AT(OrvaneHandlerRecord, hostProc, 20);
ORVANE_CHECK_AT(OrvaneHandlerRecord, zero, 28);
ORVANE_CHECK_AT(OrvaneHandlerRecord, refcon, 32);
ORVANE_CHECK_AT(OrvaneHandlerRecord, reserved, 40);

ORVANE_CHECK_SIZE(OrvaneRegisterRecord, 580);
ORVANE_CHECK_AT(OrvaneRegisterRecord, name, 12);
ORVANE_CHECK_AT(OrvaneRegisterRecord, options, 524);
ORVANE_CHECK_AT(OrvaneRegisterRecord, word0, 528);
ORVANE_CHECK_AT(OrvaneRegisterRecord, bytes, 532);
ORVANE_CHECK_AT(OrvaneRegisterRecord, handler, 536);
ORVANE_CHECK_AT(OrvaneRegisterRecord, refcon, 544);
ORVANE_CHECK_AT(OrvaneRegisterRecord, rate, 552);
ORVANE_CHECK_AT(OrvaneRegisterRecord, word1, 556);
ORVANE_CHECK_AT(OrvaneRegisterRecord, word2, 560);
ORVANE_CHECK_AT(OrvaneRegisterRecord, limit1, 564);
ORVANE_CHECK_AT(OrvaneRegisterRecord, limit3, 568);
ORVANE_CHECK_AT(OrvaneRegisterRecord, limit2, 572);
ORVANE_CHECK_AT(OrvaneRegisterRecord, limit4, 576);

ORVANE_CHECK_SIZE(OrvaneActivateRecord, 64);
ORVANE_CHECK_AT(OrvaneActivateRecord, zero, 8);
ORVANE_CHECK_AT(OrvaneActivateRecord, reserved, 16);

ORVANE_CHECK_SIZE(OrvaneArtworkRecord, 64);
ORVANE_CHECK_AT(OrvaneArtworkRecord, size, 8);
ORVANE_CHECK_AT(OrvaneArtworkRecord, format, 12);
ORVANE_CHECK_AT(OrvaneArtworkRecord, reserved, 16);

ORVANE_CHECK_SIZE(OrvanePulseRecord, 64);
ORVANE_CHECK_AT(OrvanePulseRecord, stamp, 8);
ORVANE_CHECK_AT(OrvanePulseRecord, position, 12);
ORVANE_CHECK_AT(OrvanePulseRecord, result, 16);
ORVANE_CHECK_AT(OrvanePulseRecord, reserved, 24);

ORVANE_CHECK_SIZE(OrvanePlayRecord, 64);
ORVANE_CHECK_AT(OrvanePlayRecord, zero, 8);
ORVANE_CHECK_AT(OrvanePlayRecord, audioFormat, 16);
ORVANE_CHECK_AT(OrvanePlayRecord, trackStartB, 56);
ORVANE_CHECK_AT(OrvanePlayRecord, trackStartA, 60);

#undef ORVANE_CHECK_AT
#undef ORVANE_CHECK_SIZE
#undef ORVANE_CHECK

#ifdef __cplusplus
}
#endif

#endif
