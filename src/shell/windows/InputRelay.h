// The keyboard as both window procedures handle it. Each character goes first to the current plug-in; what that
// doesn't take goes back to the player with the next pulse reply.
#pragma once

#include "shell/windows/MessageHandlers.h"

namespace orvane::shell {

class PluginPipeServer;

// Where the two windows differ.
struct InputRelay {
    const char* name;     // of the window's procedure in the log
    LRESULT taken;        // the result of a character that goes no further
    WPARAM characterBits; // of a character that is handed on
    const char* controlKeyLine;
    // Without a server: of Ctrl+F, of Alt+Enter and of any other character; null for silence.
    const char* noFullScreenLine;
    const char* noSystemCommandLine;
    const char* noCharacterLine;
};

extern const InputRelay kTopLevelInput;
extern const InputRelay kProxyInput;

// WM_KEYDOWN: tells the control key, and leaves an extended key for the next pulse reply.
MessageResult RelayKeyDown(const InputRelay& relay, const WindowMessage& message);

// WM_CHAR. `server` may be null.
MessageResult RelayCharacter(const InputRelay& relay, PluginPipeServer* server, const WindowMessage& message);

// WM_SYSCOMMAND: logs it, or toggles full screen if it is Alt+Enter. `server` may be null.
MessageResult RelaySystemCommand(const InputRelay& relay, PluginPipeServer* server,
                                 const WindowMessage& message);

} // namespace orvane::shell
