#include "support/PipeClient.h"

namespace orvane::tests {

namespace {

constexpr wchar_t kPipeName[] = LR"(\\.\pipe\Visualizer)";
constexpr DWORD kLargestReply = 0x100000;

} // namespace

bool Eventually(const std::function<bool()>& condition) {
    const ULONGLONG start = GetTickCount64();
    while (!condition()) {
        if (GetTickCount64() - start > kPatienceMilliseconds) return condition();
        Sleep(1);
    }
    return true;
}

PipeClient::PipeClient() {
    const auto open = [this] {
        mPipe = CreateFileW(kPipeName, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        return IsOpen();
    };
    DWORD mode = PIPE_READMODE_MESSAGE;
    if (Eventually(open) && !SetNamedPipeHandleState(mPipe, &mode, nullptr, nullptr)) Close();
}

bool PipeClient::Send(std::string_view request) {
    DWORD written = 0;
    return WriteFile(mPipe, request.data(), DWORD(request.size()), &written, nullptr) &&
           written == request.size();
}

bool PipeClient::HasReply() const {
    DWORD available = 0;
    return PeekNamedPipe(mPipe, nullptr, 0, nullptr, &available, nullptr) && available != 0;
}

std::optional<std::string> PipeClient::Receive() {
    DWORD count = 0;
    const auto replyOrEnd = [&] {
        return !PeekNamedPipe(mPipe, nullptr, 0, nullptr, &count, nullptr) || count;
    };
    if (!Eventually(replyOrEnd)) return std::nullopt;
    std::string reply(kLargestReply, '\0');
    if (!ReadFile(mPipe, reply.data(), kLargestReply, &count, nullptr)) return std::nullopt;
    reply.resize(count);
    return reply;
}

std::optional<std::string> PipeClient::Ask(std::string_view request) {
    if (!Send(request)) return std::nullopt;
    return Receive();
}

void PipeClient::Close() {
    if (IsOpen()) CloseHandle(mPipe);
    mPipe = INVALID_HANDLE_VALUE;
}

} // namespace orvane::tests
