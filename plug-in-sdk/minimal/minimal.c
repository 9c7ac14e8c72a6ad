/* The smallest module that shows something: it fills its window, brighter with louder sound. */
#include "orvane_plugin.h"

#include <windows.h>

static SRWLOCK sLock = SRWLOCK_INIT; /* two threads call us */
static HWND sWindow;                 /* null while we are not active */
static int sLoudness;                /* 0 to 255 */

static void TakeSound(const OrvanePulseRecord* pulse) {
    int i;
    if (pulse->stamp == 0) return; /* no sound came with this pulse */
    sLoudness = 0;
    for (i = 0; i < ORVANE_SAMPLES; ++i) {
        int swing = pulse->renderData->waveform[0][i] - ORVANE_SILENCE;
        if (swing < 0) swing = -swing;
        if (2 * swing > sLoudness) sLoudness = 2 * swing > 255 ? 255 : 2 * swing;
    }
}

static void Draw(void) {
    RECT client;
    HDC context;
    HBRUSH brush;
    if (!sWindow || !GetClientRect(sWindow, &client)) return;
    context = GetDC(sWindow);
    brush = CreateSolidBrush(RGB(sLoudness / 4, sLoudness / 2, sLoudness));
    FillRect(context, &client, brush);
    DeleteObject(brush);
    ReleaseDC(sWindow, context);
}

static int32_t Handle(uint32_t message, void* record, void* refcon) {
    int32_t status = ORVANE_OK;
    (void)refcon;
    AcquireSRWLockExclusive(&sLock);
    switch (message) {
    case ORVANE_MSG_INIT:
        break;
    case ORVANE_MSG_ACTIVATE:
        sWindow = (HWND)((OrvaneActivateRecord*)record)->window;
        break;
    case ORVANE_MSG_DEACTIVATE:
        sWindow = NULL;
        break;
    case ORVANE_MSG_PULSE:
        TakeSound((const OrvanePulseRecord*)record);
        break;
    case ORVANE_MSG_STOP:
        sLoudness = 0;
        break;
    case ORVANE_MSG_DRAW:
    case ORVANE_MSG_FRAME_CHANGED:
        Draw();
        break;
    default:
        status = ORVANE_UNIMPLEMENTED;
    }
    ReleaseSRWLockExclusive(&sLock);
    return status;
}

int32_t OrvanePluginMain(uint32_t message, OrvaneEntryRecord* entry, void* unused) {
    static const char kName[] = "My Visualizer";
    OrvaneRegisterRecord record = { 0 };
    (void)unused;
    if (message != ORVANE_MSG_INIT || !entry) return ORVANE_BAD_PARAMETER;
    record.majorVersion = ORVANE_MAJOR_VERSION;
    record.minorVersion = ORVANE_MINOR_VERSION;
    while (kName[record.name.count]) {
        record.name.units[record.name.count] = (uint16_t)kName[record.name.count];
        ++record.name.count;
    }
    record.rate = 60;
    record.handler = &Handle;
    return entry->hostProc(entry->hostCookie, ORVANE_HOST_REGISTER, &record);
}
