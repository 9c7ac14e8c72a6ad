// A module that keeps byte copies of everything that the host sends it, and does what a test says.
//
// It reads and writes records at their raw offsets, never by the host's own structures. On Windows the test
// program itself exports OrvanePluginMain and so is the module.
#pragma once

#include "support/Wire.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace orvane::tests {

// The registration record, built byte by byte.
struct RegistrationBytes {
    std::uint32_t majorVersion = 10;
    std::uint32_t minorVersion = 9;
    std::uint32_t ignored = 0xDEADBEEF;
    std::uint16_t nameCount = 0;
    std::u16string nameUnits; // padded with zeros to 255 units
    std::uint32_t options = 0;
    std::uint32_t word0 = 0;
    std::string bytes = std::string(4, '\0');
    std::uint64_t handler = 0; // its address
    std::uint64_t refCon = 0;
    std::uint32_t rate = 0, word1 = 0, word2 = 0;
    std::uint32_t limitAt564 = 0, limitAt568 = 0, limitAt572 = 0, limitAt576 = 0;

    void SetName(std::u16string_view name);
    [[nodiscard]] Bytes Get() const; // 580 bytes
};

class FakeModule {
public:
    // One at a time: entry and handler are plain functions and find it by a static pointer.
    FakeModule();
    ~FakeModule();
    FakeModule(const FakeModule&) = delete;
    FakeModule& operator=(const FakeModule&) = delete;

    // A call of the entry or of the handler.
    struct Call {
        bool toEntry;
        std::uint32_t message;
        const void* record;
        Bytes bytes; // the whole record, 0 bytes if null
        std::uint64_t lastArgument;
        std::thread::id thread;
    };

    // What FindPluginMain takes: a module with this entry, and one without any.
    [[nodiscard]] static void* Handle();
    [[nodiscard]] static void* HandleWithoutEntry();

    [[nodiscard]] static std::uint64_t HandlerAddress();

    // Calls the host back.
    std::int32_t Register(const RegistrationBytes& registration);
    std::int32_t CallHost(std::uint32_t message, const void* record) const;

    // The calls to the handler alone, and their messages as texts ("init Vact ...").
    [[nodiscard]] std::vector<Call> HandlerCalls() const;
    [[nodiscard]] std::string HandlerMessages() const;

    std::vector<Call> mCalls;
    void* mHostCookie = nullptr; // from the entry record
    std::uint64_t mHostCallback = 0;

    // What the entry does and returns; as made it registers mRegistration and returns that status.
    std::function<std::int32_t()> mOnEntry;
    RegistrationBytes mRegistration;

    // What the handler does and returns; as made it returns 0. It may write to the record.
    std::function<std::int32_t(std::uint32_t message, std::uint8_t* record)> mOnMessage;
};

} // namespace orvane::tests
