#include "unit/plugins/external/FakeModule.h"

#include "plugins/external/ModuleEntry.h"

#include <gtest/gtest.h>

#include <cstring>

#if defined(_WIN32)
#    include <windows.h>
#    define ORVANE_EXPORT __declspec(dllexport)
#else
#    define ORVANE_EXPORT
#endif

namespace orvane::tests {

namespace {

FakeModule* sCurrent = nullptr;

constexpr std::size_t kEntryRecordSize = 36;
constexpr std::size_t kHandlerRecordSize = 64; // of every record to the handler
constexpr std::size_t kHostCookieAt = 8;
constexpr std::size_t kHostCallbackAt = 16;

Bytes CopyOf(const void* record, std::size_t size) {
    Bytes bytes;
    if (record) {
        bytes.resize(size);
        std::memcpy(bytes.data(), record, size);
    }
    return bytes;
}

template <typename T>
T ValueAt(const Bytes& bytes, std::size_t offset) {
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof(value));
    return value;
}

void Keep(bool toEntry, std::uint32_t message, void* record, void* lastArgument) {
    sCurrent->mCalls.push_back({ toEntry, message, record,
                                 CopyOf(record, toEntry ? kEntryRecordSize : kHandlerRecordSize),
                                 reinterpret_cast<std::uint64_t>(lastArgument), std::this_thread::get_id() });
}

std::int32_t HandleMessage(std::uint32_t message, void* record, void* refCon) {
    Keep(false, message, record, refCon);
    return sCurrent->mOnMessage ? sCurrent->mOnMessage(message, static_cast<std::uint8_t*>(record)) : 0;
}

std::string TextOf(std::uint32_t message) {
    return { char(message >> 24), char(message >> 16), char(message >> 8), char(message) };
}

extern "C" ORVANE_EXPORT std::int32_t OrvanePluginMain(std::uint32_t message, void* record, void* unused) {
    Keep(true, message, record, unused);
    const Bytes& bytes = sCurrent->mCalls.back().bytes;
    sCurrent->mHostCookie = ValueAt<void*>(bytes, kHostCookieAt);
    sCurrent->mHostCallback = ValueAt<std::uint64_t>(bytes, kHostCallbackAt);
    return sCurrent->mOnEntry();
}

} // namespace

void RegistrationBytes::SetName(std::u16string_view name) {
    nameCount = std::uint16_t(name.size());
    nameUnits = name;
}

Bytes RegistrationBytes::Get() const {
    WireBuilder record;
    record.U32(majorVersion).U32(minorVersion).U32(ignored).U16(nameCount);
    for (const char16_t unit : nameUnits) record.U16(unit);
    record.Zeros(2 * (255 - nameUnits.size())).U32(options).U32(word0).Raw(bytes).U64(handler).U64(refCon);
    record.U32(rate).U32(word1).U32(word2).U32(limitAt564).U32(limitAt568).U32(limitAt572).U32(limitAt576);
    EXPECT_EQ(record.Get().size(), 580u);
    return record.Get();
}

FakeModule::FakeModule()
    : mOnEntry([this] { return Register(mRegistration); }) {
    mRegistration.handler = HandlerAddress();
    sCurrent = this;
}

FakeModule::~FakeModule() {
    sCurrent = nullptr;
}

#if defined(_WIN32)
void* FakeModule::Handle() {
    return GetModuleHandleW(nullptr);
}

void* FakeModule::HandleWithoutEntry() {
    return GetModuleHandleW(L"kernel32.dll");
}
#else
void* FakeModule::Handle() {
    static plugins::NativeModule sModule = { &OrvanePluginMain };
    return &sModule;
}

void* FakeModule::HandleWithoutEntry() {
    static plugins::NativeModule sModule;
    return &sModule;
}
#endif

std::uint64_t FakeModule::HandlerAddress() {
    return reinterpret_cast<std::uint64_t>(&HandleMessage);
}

std::int32_t FakeModule::Register(const RegistrationBytes& registration) {
    const Bytes record = registration.Get(); // of exactly its size: the sanitizer sees a read beyond it
    return CallHost(0x72656776, record.data());
}

std::int32_t FakeModule::CallHost(std::uint32_t message, const void* record) const {
    using Callback = std::int32_t (*)(void*, std::uint32_t, void*);
    return reinterpret_cast<Callback>(mHostCallback)(mHostCookie, message, const_cast<void*>(record));
}

std::vector<FakeModule::Call> FakeModule::HandlerCalls() const {
    std::vector<Call> calls;
    for (const auto& call : mCalls)
        if (!call.toEntry) calls.push_back(call);
    return calls;
}

std::string FakeModule::HandlerMessages() const {
    std::string texts;
    for (const auto& call : HandlerCalls()) {
        if (!texts.empty()) texts += ' ';
        texts += TextOf(call.message);
    }
    return texts;
}

} // namespace orvane::tests
