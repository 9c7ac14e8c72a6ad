#include "platform/LogLine.h"
#include "shell/server/PipeServer.h"

namespace orvane::shell {

using platform::LogLine;

bool PendingIO::Wait(DWORD waitResult) {
    if (waitResult != WAIT_OBJECT_0) {
        LogLine(waitResult == WAIT_IO_COMPLETION ? "PendingIO::Wait over result is WAIT_IO_COMPLETION\n"
                                                 : "PendingIO::Wait over result is error\n");
        return true;
    }
    // KEEP: mPendingIO isn't cleared here; the next step of the loop does that, and a read that goes pending
    // again simply keeps it. Pinned by ServiceLoop.AReadThatGoesPendingAgainKeepsTheFlag.
    switch (mServer.mPipeState) {
    case PipeState::kReading:
        return FinishRead();
    case PipeState::kWriting:
        return FinishWrite();
    case PipeState::kConnecting:
        return FinishConnect();
    }
    return true;
}

bool PendingIO::FinishRead() {
    DWORD bytes = 0;
    if (mServer.mCalls.getOverlappedResult(mServer.mPipe, &mServer.mOverlapped, &bytes, FALSE) &&
        bytes != 0) {
        mServer.mBytesRead = bytes;
        mServer.mPipeState = PipeState::kWriting;
    } else {
        LogLine("[kReading] Either GetOverlappedResult returned false or bytesTransferred is 0\n");
    }
    return true;
}

bool PendingIO::FinishWrite() {
    DWORD bytes = 0;
    const BOOL finished =
        mServer.mCalls.getOverlappedResult(mServer.mPipe, &mServer.mOverlapped, &bytes, FALSE);
    const DWORD error = finished ? ERROR_SUCCESS : GetLastError();
    if (finished && bytes != 0) {
        mServer.mPipeState = PipeState::kReading;
        return true;
    }
    LogLine("[kWriting] Either GetOverlappedResult returned false or bytesTransferred is 0\n");
    // A client that left while its reply was under way: the loop makes a new pipe instead of handling the
    // request a second time, as it does when the write fails at once.
    return !IsClientGone(error);
}

bool PendingIO::FinishConnect() {
    DWORD bytes = 0;
    if (mServer.mCalls.getOverlappedResult(mServer.mPipe, &mServer.mOverlapped, &bytes, FALSE))
        mServer.mPipeState = PipeState::kReading;
    else
        LogLine("GetOverlappedResult failed in connecting state\n");
    return true;
}

} // namespace orvane::shell
