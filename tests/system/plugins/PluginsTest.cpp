#include "system/plugins/PluginsTest.h"

#include "platform/Text.h"
#include "system/plugins/host/TestHost.h"

#include <algorithm>

namespace orvane::tests {

namespace {

constexpr wchar_t kLogVariable[] = L"ORVANE_MODULE_LOG";
constexpr std::size_t kLongestLine = 255; // bytes
constexpr std::string_view kReadLine =
    "[kReading] Either GetOverlappedResult returned false or bytesTransferred is 0\n";

std::string CutLine(std::string line) {
    return line.substr(0, kLongestLine);
}

} // namespace

std::string Shown(const std::filesystem::path& path) {
    const std::wstring text = path.wstring();
    return platform::Utf8FromUtf16(std::u16string(text.begin(), text.end()));
}

std::string RegisteringLine(const std::filesystem::path& path) {
    return CutLine("Registering \"" + Shown(path) + "\"\n");
}

std::string LoadFailedLine(const std::filesystem::path& path) {
    return CutLine("LoadLibraryExW failed when registering \"" + Shown(path) + "\"\n");
}

PluginsTest::PluginsTest()
    : mLog(mFolders.Temporary() / "modules.log") {}

// The host has its modules in use; it goes before the folders do.
PluginsTest::~PluginsTest() {
    mClient.Disconnect();
    mHost.reset();
}

void PluginsTest::SetUp() {
    ASSERT_TRUE(mFolders.AreFree()) << "this machine has plug-ins of its own";
}

void PluginsTest::Serve(std::wstring_view program, Token token, const std::wstring& arguments) {
    mHost.emplace(HostSetting{ mFolders.CopyOfProgram(program).wstring(),
                               token == Token::kLimited,
                               { { kLogVariable, mLog.wstring() } } });
    ASSERT_TRUE(mHost->Serve(arguments)) << mHost->Text();
    mClient = ConnectToHost();
    ASSERT_TRUE(mClient.IsConnected());
}

void PluginsTest::ServeHost(Token token) {
    Serve(L"orvane-visualizer-bare.exe", token, L"");
}

void PluginsTest::ServeTestHost(const std::wstring& arguments, Token token) {
    Serve(kTestHostProgram, token, arguments);
}

void PluginsTest::Reconnect(int times) {
    for (int i = 0; i < times; ++i) {
        const int before = Count(mHost->Text(), kWaitingForClient);
        mClient.Disconnect();
        ASSERT_TRUE(mHost->WaitForText(kWaitingForClient, before + 1)) << mHost->Text();
        mClient = ConnectToHost();
        ASSERT_TRUE(mClient.IsConnected());
    }
}

std::string PluginsTest::QuitAndRead() {
    EXPECT_EQ(mHost->Quit(), 0);
    std::string text = mHost->Text();
    for (auto at = text.find(kReadLine); at != std::string::npos; at = text.find(kReadLine))
        text.erase(at, kReadLine.size());
    return text;
}

std::string PluginsTest::Ask(const Bytes& request) {
    return AsText(mClient.Exchange(request, kPatience).bytes);
}

std::string PluginsTest::Ask(std::string_view tag) {
    return Ask(WireBuilder().Raw(tag).Get());
}

std::string PluginsTest::AskAndSettle(const Bytes& request) {
    std::string reply = Ask(request);
    Settle();
    return reply;
}

HWND PluginsTest::Window() const {
    return FindWindowW(kTestHostWindowClass, nullptr);
}

void PluginsTest::Settle() {
    const HWND window = Window();
    ++mFence;
    PostMessageW(window, kFenceMessage, mFence, 0);
    EXPECT_TRUE(WaitUntil([&] {
        return reinterpret_cast<WPARAM>(GetPropW(window, kFenceProperty)) == mFence || !mHost->IsRunning();
    })) << mHost->Text();
}

player::PluginList PluginsTest::List() {
    auto list = player::DecodePluginList(mClient.Exchange(WireBuilder().Raw("UPVM").Get(), kPatience).bytes);
    EXPECT_TRUE(list.whole);
    return list;
}

Bytes SampleSound() {
    WireBuilder sound;
    sound.U8(2);
    for (int i = 0; i < 1024; ++i) sound.U8(std::uint8_t(i * 7 + 1));
    sound.U8(2);
    for (int i = 0; i < 1024; ++i) sound.U8(std::uint8_t(i * 5 + 3));
    return sound.Get();
}

Bytes PulseRequest(std::uint32_t stamp, std::uint32_t position) {
    return WireBuilder().Raw("PULS").U32(stamp).U32(position).Raw(AsText(SampleSound())).Get();
}

Bytes SampleStartRequest() {
    return WireBuilder().Raw("STRT").Raw(AsText(SampleTrackBlock())).Get();
}

Bytes ActivateRequest(std::u16string_view name) {
    return WireBuilder().Raw("ACTV").String(name).Get();
}

} // namespace orvane::tests
