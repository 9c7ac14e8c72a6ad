#include "unit/shell/server/RealPipe.h"

#include <numeric>

namespace orvane::tests {

namespace {

std::atomic<DWORD> sServiceThread = 0;
std::atomic<int> sPendingWrites = 0;
std::atomic<bool> sClientComes = false;
std::atomic<bool> sClientLeaves = false;
std::unique_ptr<PipeClient> sEarlyClient;

DWORD WINAPI WaitAndTellThread(HANDLE event, DWORD time, BOOL alertable) {
    sServiceThread = GetCurrentThreadId();
    return WaitForSingleObjectEx(event, time, alertable);
}

BOOL WINAPI ConnectAfterAnEarlyClient(HANDLE pipe, LPOVERLAPPED overlapped) {
    if (sClientComes.exchange(false)) {
        sEarlyClient = std::make_unique<PipeClient>();
        if (sClientLeaves) sEarlyClient.reset();
    }
    return ConnectNamedPipe(pipe, overlapped);
}

BOOL WINAPI WriteAndCount(HANDLE pipe, LPCVOID buffer, DWORD size, LPDWORD count, LPOVERLAPPED overlapped) {
    const BOOL result = WriteFile(pipe, buffer, size, count, overlapped);
    const DWORD error = GetLastError();
    if (!result && error == ERROR_IO_PENDING) ++sPendingWrites;
    SetLastError(error);
    return result;
}

} // namespace

std::string Digest(const std::uint8_t* bytes, std::size_t count) {
    return std::to_string(count) + " bytes, sum " +
           std::to_string(std::accumulate(bytes, bytes + count, std::uint64_t(0)));
}

bool TestServer::Initialize(std::uint8_t messageMode) {
    mInitializeThread = GetCurrentThreadId();
    const bool result = PipeServer::Initialize(messageMode);
    ++mInitializations;
    return result;
}

bool TestServer::PostMessageToConsole() {
    return Answer(Digest(Exchange().Input(), Exchange().BytesRead()));
}

bool TestServer::StopVisualizer() {
    ++mStops;
    return Answer(std::string(shell::kMessageCapacity, 'x'));
}

bool TestServer::IdleVisualizer() {
    ++mIdles;
    WaitForSingleObject(mGate, kPatienceMilliseconds);
    return Answer("OK");
}

RealPipe::RealPipe() {
    mCalls.connectNamedPipe = &ConnectAfterAnEarlyClient;
    mCalls.waitForSingleObject = &WaitAndTellThread;
    mCalls.writeFile = &WriteAndCount;
    sServiceThread = 0;
    sPendingWrites = 0;
    SetEarly(Early::kNobody);
}

void RealPipe::Start(Early early) {
    SetEarly(early);
    mServer = std::make_unique<TestServer>(mCalls);
    ASSERT_TRUE(mServer->Initialize(1));
    mServer->StartServiceThread();
    ASSERT_TRUE(Eventually([] { return sServiceThread != 0; }));
    mThread = OpenThread(SYNCHRONIZE | THREAD_QUERY_LIMITED_INFORMATION, FALSE, sServiceThread);
    ASSERT_NE(mThread, nullptr);
}

void RealPipe::TearDown() {
    sEarlyClient.reset();
    if (mServer) {
        SetEvent(mServer->mGate);
        mServer->AskServiceThreadToLeave();
    }
    if (mThread) {
        EXPECT_EQ(WaitForSingleObject(mThread, kPatienceMilliseconds), WAIT_OBJECT_0);
        CloseHandle(mThread);
    }
}

void RealPipe::SetEarly(Early early) {
    sClientLeaves = early == Early::kLeaves;
    sClientComes = early != Early::kNobody;
}

PipeClient* RealPipe::EarlyClient() const {
    return sEarlyClient.get();
}

bool RealPipe::WaitForNewPipe(int times) {
    return Eventually([&] { return mServer->mInitializations == 1 + times; });
}

int RealPipe::PendingWrites() const {
    return sPendingWrites;
}

DWORD RealPipe::ServiceThread() const {
    return sServiceThread;
}

} // namespace orvane::tests
