// How long a pulse takes from the player's write to the reply in its hands, beside a bare echo server of the
// same pipe settings. A Windows program: it starts the host, and itself once more as the echo.
//
//   bench-pulse [ROUNDS [PULSES]]      5 rounds of 20,000 pulses to each by default, host and echo in turn
//
// A pulse is a 2062-byte 'PULS', its reply 4 bytes; no visualizer is current. Both peers are asked by the
// same code, and a wrong reply ends the run.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr wchar_t kHostPipe[] = LR"(\\.\pipe\Visualizer)";
constexpr wchar_t kEchoPipe[] = LR"(\\.\pipe\OrvaneBenchEcho)";
constexpr DWORD kBufferSize = 0x100000;
constexpr DWORD kPulseSize = 2062;
constexpr DWORD kReplySize = 4;
constexpr int kWarmUp = 2000;
constexpr int kTurn = 100; // pulses to one peer before the other's turn

// The echo: the pipe as the host makes it, one overlapped operation at a time, and nothing else.
int ServeEcho() {
    const HANDLE pipe = CreateNamedPipeW(kEchoPipe, PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED,
                                         PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE, PIPE_UNLIMITED_INSTANCES,
                                         kBufferSize, kBufferSize, 0, nullptr);
    OVERLAPPED overlapped = {};
    overlapped.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (!ConnectNamedPipe(pipe, &overlapped) && GetLastError() == ERROR_IO_PENDING)
        WaitForSingleObject(overlapped.hEvent, INFINITE);
    static std::array<char, kBufferSize> buffer;
    const auto finish = [&](BOOL done, DWORD& bytes) {
        return done ||
               (GetLastError() == ERROR_IO_PENDING && GetOverlappedResult(pipe, &overlapped, &bytes, TRUE));
    };
    for (;;) {
        DWORD bytes = 0;
        if (!finish(ReadFile(pipe, buffer.data(), kBufferSize, &bytes, &overlapped), bytes)) return 0;
        std::memset(buffer.data(), 0, kReplySize);
        if (!finish(WriteFile(pipe, buffer.data(), kReplySize, &bytes, &overlapped), bytes)) return 0;
    }
}

class Peer {
public:
    Peer(const char* name, std::wstring commandLine, const wchar_t* pipeName)
        : mName(name) {
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &mProcess);
        for (int tries = 0; tries < 1000 && mPipe == INVALID_HANDLE_VALUE; ++tries) {
            mPipe =
                CreateFileW(pipeName, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
            if (mPipe == INVALID_HANDLE_VALUE) Sleep(10);
        }
        DWORD mode = PIPE_READMODE_MESSAGE;
        SetNamedPipeHandleState(mPipe, &mode, nullptr, nullptr);
    }

    ~Peer() {
        CloseHandle(mPipe);
        TerminateProcess(mProcess.hProcess, 0);
        CloseHandle(mProcess.hProcess);
        CloseHandle(mProcess.hThread);
    }

    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    // One pulse; the time in microseconds, or nothing if the reply is wrong.
    [[nodiscard]] std::optional<double> Pulse() const {
        static const std::vector<char> request = [] {
            std::vector<char> bytes(kPulseSize, 0x7F);
            std::memcpy(bytes.data(), "PULS", 4);
            return bytes;
        }();
        char reply[16] = { 1, 1, 1, 1 };
        DWORD written = 0, got = 0;
        LARGE_INTEGER start, end, frequency;
        QueryPerformanceCounter(&start);
        const bool done = WriteFile(mPipe, request.data(), kPulseSize, &written, nullptr) &&
                          ReadFile(mPipe, reply, sizeof(reply), &got, nullptr);
        QueryPerformanceCounter(&end);
        QueryPerformanceFrequency(&frequency);
        if (!done || got != kReplySize || std::memcmp(reply, "\0\0\0\0", kReplySize) != 0)
            return std::nullopt;
        return double(end.QuadPart - start.QuadPart) * 1e6 / double(frequency.QuadPart);
    }

    const char* mName;
    std::vector<double> mMedians, mNinetyNinths;

private:
    PROCESS_INFORMATION mProcess = {};
    HANDLE mPipe = INVALID_HANDLE_VALUE;
};

// Pulses to both peers in short turns, so that whatever else the machine does hits both alike.
bool RunRound(Peer& host, Peer& echo, int pulses) {
    std::vector<double> times[2];
    Peer* const peers[2] = { &host, &echo };
    for (int turn = 0; turn * kTurn < pulses; ++turn)
        for (int k = 0; k < 2; ++k) {
            const int which = (turn + k) % 2; // each begins as often as the other
            for (int i = 0; i < kTurn; ++i) {
                const auto time = peers[which]->Pulse();
                if (!time) {
                    std::printf("%s: a pulse went wrong\n", peers[which]->mName);
                    return false;
                }
                times[which].push_back(*time);
            }
        }
    for (int k = 0; k < 2; ++k) {
        std::sort(times[k].begin(), times[k].end());
        peers[k]->mMedians.push_back(times[k][times[k].size() / 2]);
        peers[k]->mNinetyNinths.push_back(times[k][times[k].size() * 99 / 100]);
        std::fprintf(stderr, "%s: median %.1f us, p99 %.1f us\n", peers[k]->mName, peers[k]->mMedians.back(),
                     peers[k]->mNinetyNinths.back());
    }
    return true;
}

double MedianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc > 1 && std::wcscmp(argv[1], L"echo") == 0) return ServeEcho();
    const int rounds = argc > 1 ? _wtoi(argv[1]) : 5;
    const int pulses = argc > 2 ? _wtoi(argv[2]) : 20000;

    wchar_t self[1024];
    GetModuleFileNameW(nullptr, self, 1024);
    const auto host = std::filesystem::path(self).parent_path() / L"orvane-visualizer.exe";
    Peer hostPeer("host", L"\"" + host.wstring() + L"\"", kHostPipe);
    Peer echoPeer("echo", L"\"" + std::wstring(self) + L"\" echo", kEchoPipe);

    for (int i = 0; i < kWarmUp; ++i)
        if (!hostPeer.Pulse() || !echoPeer.Pulse()) return 1;
    for (int round = 0; round < rounds; ++round)
        if (!RunRound(hostPeer, echoPeer, pulses)) return 1;

    std::vector<double> medianRatios, tailRatios;
    for (int i = 0; i < rounds; ++i) {
        medianRatios.push_back(hostPeer.mMedians[std::size_t(i)] / echoPeer.mMedians[std::size_t(i)]);
        tailRatios.push_back(hostPeer.mNinetyNinths[std::size_t(i)] / echoPeer.mNinetyNinths[std::size_t(i)]);
    }
    // The rows of the table that all benches share: job, own, peer, peer / own, the peer's name.
    const auto row = [](const char* job, const std::vector<double>& own, const std::vector<double>& peer,
                        const std::vector<double>& ratios) {
        std::printf("%-46s %9.1f us %9.1f us %7.2f  echo server\n", job, MedianOf(own), MedianOf(peer),
                    1 / MedianOf(ratios));
    };
    row("pulse-round-trip/median", hostPeer.mMedians, echoPeer.mMedians, medianRatios);
    row("pulse-round-trip/p99", hostPeer.mNinetyNinths, echoPeer.mNinetyNinths, tailRatios);
    return 0;
}
