// The platform calls of discovery, in one table, so that a test can script the outcome of each.
#pragma once

#include <windows.h>

#include <combaseapi.h>
#include <shlobj.h>
#include <shlwapi.h>

namespace orvane::plugins {

struct DiscoveryCalls {
    decltype(&::OpenProcessToken) openProcessToken = &::OpenProcessToken;
    decltype(&::GetTokenInformation) getTokenInformation = &::GetTokenInformation;
    decltype(&::CloseHandle) closeHandle = &::CloseHandle;
    decltype(&::SHGetKnownFolderPath) shGetKnownFolderPath = &::SHGetKnownFolderPath;
    decltype(&::CoTaskMemFree) coTaskMemFree = &::CoTaskMemFree;
    decltype(&::GetEnvironmentVariableW) getEnvironmentVariable = &::GetEnvironmentVariableW;
    decltype(&::GetModuleFileNameW) getModuleFileName = &::GetModuleFileNameW;
    decltype(&::PathRemoveFileSpecW) pathRemoveFileSpec = &::PathRemoveFileSpecW;
    decltype(&::FindFirstFileW) findFirstFile = &::FindFirstFileW;
    decltype(&::FindNextFileW) findNextFile = &::FindNextFileW;
    decltype(&::FindClose) findClose = &::FindClose;
    decltype(&::LoadLibraryExW) loadLibrary = &::LoadLibraryExW;
};

inline const DiscoveryCalls kPlatformDiscoveryCalls;

} // namespace orvane::plugins
