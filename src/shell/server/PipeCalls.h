// The platform calls of the service loop, in one table, so that a test can script the outcome of each.
#pragma once

#include <windows.h>

namespace orvane::shell {

struct PipeCalls {
    decltype(&::CreateNamedPipeW) createNamedPipe = &::CreateNamedPipeW;
    decltype(&::CreateEventW) createEvent = &::CreateEventW;
    decltype(&::SetEvent) setEvent = &::SetEvent;
    decltype(&::ConnectNamedPipe) connectNamedPipe = &::ConnectNamedPipe;
    decltype(&::DisconnectNamedPipe) disconnectNamedPipe = &::DisconnectNamedPipe;
    decltype(&::WaitForSingleObjectEx) waitForSingleObject = &::WaitForSingleObjectEx;
    decltype(&::GetOverlappedResult) getOverlappedResult = &::GetOverlappedResult;
    decltype(&::ReadFile) readFile = &::ReadFile;
    decltype(&::WriteFile) writeFile = &::WriteFile;
    decltype(&::CloseHandle) closeHandle = &::CloseHandle;
};

inline const PipeCalls kPlatformPipeCalls;

} // namespace orvane::shell
