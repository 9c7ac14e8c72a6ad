#include "system/playing/WitnessHost.h"

#include "player/client/PipeClient.h"

#include <windows.h>

namespace orvane::tests {

namespace {

constexpr DWORD kBufferBytes = 1 << 20;

// One visualizer, "Scripted", built-in: the list's words are big-endian.
std::string List() {
    std::string list = { 0, 0, 0, 1 };
    list.append(36, '\0').append({ 0, 0, 0, 2 }).append(4, '\0');
    list.append({ 0, 8 });
    for (const char letter : std::string("Scripted")) list.append({ 0, letter });
    return list.append({ 0, 0 });
}

} // namespace

WitnessHost::WitnessHost(std::map<std::size_t, std::string> pulseReplies, std::size_t lastPulse)
    : mPulseReplies(std::move(pulseReplies))
    , mLastPulse(lastPulse)
    , mPipe(player::Adopt(CreateNamedPipeW(
          player::kVisualizerPipe, PIPE_ACCESS_DUPLEX | FILE_FLAG_FIRST_PIPE_INSTANCE,
          PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE, 1, kBufferBytes, kBufferBytes, 0, nullptr)))
    , mMade(mPipe != nullptr) {
    if (mMade) mThread = std::thread(&WitnessHost::Serve, this);
}

WitnessHost::~WitnessHost() {
    player::PipeClient last; // one that nobody came to is waited for no longer
    (void)last.Connect(player::PipeClient::Milliseconds(0));
    last.Disconnect();
    if (mThread.joinable()) mThread.join();
}

void WitnessHost::Serve() {
    const bool connected = ConnectNamedPipe(mPipe.get(), nullptr) || GetLastError() == ERROR_PIPE_CONNECTED;
    if (connected) ServeClient();
    mPipe.reset();
}

void WitnessHost::ServeClient() {
    std::string buffer(kBufferBytes, '\0');
    DWORD bytes = 0;
    while (ReadFile(mPipe.get(), buffer.data(), kBufferBytes, &bytes, nullptr)) {
        const std::string reply = ReplyTo(buffer.substr(0, bytes));
        if (reply.empty()) return;
        DWORD written = 0;
        if (!WriteFile(mPipe.get(), reply.data(), DWORD(reply.size()), &written, nullptr)) return;
    }
}

std::string WitnessHost::ReplyTo(const std::string& request) {
    const std::lock_guard lock(mMutex);
    const std::string tag = request.substr(0, 4);
    if (tag != "PULS") {
        mTags.push_back(tag);
        return tag == "UPVM" ? List() : "OK";
    }
    const std::size_t number = mPulses.size();
    mPulses.push_back(request);
    if (number >= mLastPulse) return {};
    const auto told = mPulseReplies.find(number);
    return std::string(4, '\0') + (told == mPulseReplies.end() ? std::string() : told->second);
}

std::vector<std::string> WitnessHost::Tags() const {
    const std::lock_guard lock(mMutex);
    return mTags;
}

std::vector<std::string> WitnessHost::Pulses() const {
    const std::lock_guard lock(mMutex);
    return mPulses;
}

} // namespace orvane::tests
