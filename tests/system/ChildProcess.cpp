#include "system/ChildProcess.h"

#include "system/LimitedToken.h"

#include <algorithm>
#include <memory>

namespace orvane::tests {

namespace {

constexpr UINT kKilled = 0xDEAD; // exit code of a process that a test ended from outside
constexpr DWORD kOutputPipeBytes = 1 << 16;
constexpr DWORD kPollMilliseconds = 2;

// This process's environment, each of `variables` in the place of one of the same name: texts with a zero behind
// each and one behind all. Names are compared as they stand.
std::wstring EnvironmentWith(const std::vector<std::pair<std::wstring, std::wstring>>& variables) {
    const std::unique_ptr<wchar_t, decltype(&FreeEnvironmentStringsW)> own(GetEnvironmentStringsW(),
                                                                           &FreeEnvironmentStringsW);
    std::wstring block;
    for (const wchar_t* at = own.get(); *at;) {
        const std::wstring_view variable = at;
        at += variable.size() + 1;
        const bool replaced = std::any_of(variables.begin(), variables.end(), [&](const auto& other) {
            return variable.starts_with(other.first + L"=");
        });
        if (!replaced) block.append(variable).push_back(L'\0');
    }
    for (const auto& [name, value] : variables) block.append(name + L"=" + value).push_back(L'\0');
    block.push_back(L'\0');
    return block;
}

} // namespace

bool ChildProcess::Start(const std::wstring& program, const std::wstring& arguments,
                         const StartOptions& options) {
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (!CreatePipe(&readEnd, &writeEnd, nullptr, kOutputPipeBytes)) return false;
    mOutput = player::Adopt(readEnd);
    const player::UniqueHandle childsEnd = player::Adopt(writeEnd);
    SetHandleInformation(writeEnd, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);

    HANDLE inputEnd = nullptr;
    HANDLE typingEnd = nullptr;
    if (options.input && !CreatePipe(&inputEnd, &typingEnd, nullptr, 0)) return false;
    const player::UniqueHandle childsInput = player::Adopt(inputEnd);
    mInput = player::Adopt(typingEnd);
    if (inputEnd) SetHandleInformation(inputEnd, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);

    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = inputEnd;
    startup.hStdOutput = writeEnd;
    startup.hStdError = writeEnd;
    std::wstring commandLine = L"\"" + program + L"\" " + arguments;
    std::wstring environment;
    if (!options.variables.empty()) environment = EnvironmentWith(options.variables);
    const player::UniqueHandle token = options.limited ? MakeLimitedToken() : nullptr;
    if (options.limited && !token) return false;
    const DWORD flags = options.flags | CREATE_UNICODE_ENVIRONMENT;
    PROCESS_INFORMATION process = {};
    // Without a token it is CreateProcessW.
    if (!CreateProcessAsUserW(token.get(), program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, flags,
                              environment.empty() ? nullptr : environment.data(), nullptr, &startup,
                              &process)) {
        mText = "not started: error " + std::to_string(GetLastError());
        return false;
    }
    CloseHandle(process.hThread);
    mProcess = player::Adopt(process.hProcess);
    mId = process.dwProcessId;
    mMainThreadId = process.dwThreadId;
    mGatherer = std::thread(&ChildProcess::GatherText, this);
    return true;
}

// Looks for output rather than waiting in a read: a console that the process opened may hold the pipe's other
// end for longer than the process lives, so that the pipe's end is no sign of the process's.
void ChildProcess::GatherText() {
    bool ended = false;
    while (!ended) {
        ended = WaitForSingleObject(mProcess.get(), kPollMilliseconds) == WAIT_OBJECT_0;
        while (TakeWhatIsThere()) {}
    }
}

bool ChildProcess::TakeWhatIsThere() {
    DWORD waiting = 0;
    if (!PeekNamedPipe(mOutput.get(), nullptr, 0, nullptr, &waiting, nullptr) || waiting == 0) return false;
    std::string piece(waiting, '\0');
    DWORD taken = 0;
    if (!ReadFile(mOutput.get(), piece.data(), waiting, &taken, nullptr)) return false;
    const std::lock_guard lock(mTextMutex);
    mText.append(piece, 0, taken);
    return true;
}

bool ChildProcess::Type(std::string_view text) const {
    DWORD written = 0;
    return WriteFile(mInput.get(), text.data(), DWORD(text.size()), &written, nullptr) &&
           written == text.size();
}

std::string ChildProcess::Text() const {
    return TextFrom(0);
}

std::string ChildProcess::TextFrom(std::size_t at) const {
    const std::lock_guard lock(mTextMutex);
    return mText.substr(std::min(at, mText.size()));
}

bool ChildProcess::WaitForText(std::string_view part, int times) const {
    bool written = false;
    const bool decided = WaitUntil([&] {
        const bool running = IsRunning(); // asked first: the last words come before the end
        written = Count(Text(), part) >= times;
        return written || !running;
    });
    return decided && written;
}

std::optional<int> ChildProcess::WaitForExit(std::chrono::milliseconds timeout) {
    if (WaitForSingleObject(mProcess.get(), DWORD(timeout.count())) != WAIT_OBJECT_0) return std::nullopt;
    if (mGatherer.joinable()) mGatherer.join();
    DWORD code = 0;
    GetExitCodeProcess(mProcess.get(), &code);
    return int(code);
}

bool ChildProcess::IsRunning() const {
    return mProcess && WaitForSingleObject(mProcess.get(), 0) == WAIT_TIMEOUT;
}

void ChildProcess::Kill() {
    if (!mProcess) return;
    TerminateProcess(mProcess.get(), kKilled);
    WaitForSingleObject(mProcess.get(), INFINITE);
    if (mGatherer.joinable()) mGatherer.join();
}

std::wstring OwnProgram() {
    constexpr DWORD kLongestPath = 32768;
    std::wstring path(kLongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
    return path;
}

std::wstring ProgramBeside(std::wstring_view name) {
    std::wstring path = OwnProgram();
    path.resize(path.rfind(L'\\') + 1);
    return path.append(name);
}

int Count(std::string_view text, std::string_view part) {
    int count = 0;
    for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

} // namespace orvane::tests
