#include "support/windows/FedRequests.h"

#include <deque>

namespace orvane::tests {

namespace {

const HANDLE kPipe = reinterpret_cast<HANDLE>(std::intptr_t(0x70));

std::deque<Bytes> sRequests;
std::vector<std::string> sReplies;
bool sPipeWanted = true;

HANDLE WINAPI CreatePipe(LPCWSTR, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, LPSECURITY_ATTRIBUTES) {
    SetLastError(ERROR_ACCESS_DENIED);
    return std::exchange(sPipeWanted, false) ? kPipe : INVALID_HANDLE_VALUE;
}

BOOL WINAPI Connect(HANDLE, LPOVERLAPPED) {
    SetLastError(ERROR_PIPE_CONNECTED);
    return FALSE;
}

DWORD WINAPI Wait(HANDLE, DWORD, BOOL) {
    return WAIT_OBJECT_0;
}

BOOL WINAPI Read(HANDLE, LPVOID buffer, DWORD, LPDWORD bytes, LPOVERLAPPED) {
    if (sRequests.empty()) {
        SetLastError(ERROR_BROKEN_PIPE);
        return FALSE;
    }
    const Bytes request = sRequests.front();
    sRequests.pop_front();
    std::copy(request.begin(), request.end(), static_cast<std::uint8_t*>(buffer));
    *bytes = DWORD(request.size());
    return TRUE;
}

BOOL WINAPI Write(HANDLE, LPCVOID buffer, DWORD size, LPDWORD bytes, LPOVERLAPPED) {
    sReplies.emplace_back(static_cast<const char*>(buffer), size);
    *bytes = size;
    return TRUE;
}

BOOL WINAPI Close(HANDLE handle) {
    return handle == kPipe || CloseHandle(handle);
}

} // namespace

const shell::PipeCalls& FedPipeCalls() {
    static const shell::PipeCalls kCalls = [] {
        shell::PipeCalls calls;
        calls.createNamedPipe = &CreatePipe;
        calls.connectNamedPipe = &Connect;
        calls.waitForSingleObject = &Wait;
        calls.readFile = &Read;
        calls.writeFile = &Write;
        calls.closeHandle = &Close;
        return calls;
    }();
    return kCalls;
}

std::vector<std::string> ServeRequests(shell::PipeServer& server, const std::vector<Bytes>& requests) {
    sRequests.assign(requests.begin(), requests.end());
    sReplies.clear();
    sPipeWanted = true;
    if (server.Initialize(1)) server.ServeConnection();
    return sReplies;
}

} // namespace orvane::tests
