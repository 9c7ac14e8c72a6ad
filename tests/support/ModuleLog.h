// Reads the log that the test modules keep (tests/modules/LogWriter.h says how it is written).
#pragma once

#include "support/Wire.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::tests {

struct ModuleCall {
    enum class Kind { Entry, Handler, Host };

    std::string module;
    std::uint32_t thread = 0;
    Kind kind = Kind::Entry;
    std::uint32_t message = 0;
    std::uint64_t cookie = 0;           // entry: third argument; handler: refcon; host: host cookie
    std::optional<std::int32_t> status; // host calls only
    std::optional<Bytes> record;        // nothing for a null record
    std::optional<Bytes> data;          // what the record points to

    // The record's first bytes as a T; a zeroed T if the record is missing or has another size.
    template <class T>
    [[nodiscard]] T RecordAs() const {
        T result = {};
        if (record && record->size() == sizeof(T)) std::memcpy(&result, record->data(), sizeof(T));
        return result;
    }
};

// One line without its newline; nothing if it isn't whole.
[[nodiscard]] std::optional<ModuleCall> ParseModuleCall(std::string_view line);

// All whole lines so far, in the order of the file; none if there is no file yet.
[[nodiscard]] std::vector<ModuleCall> ReadModuleLog(const std::filesystem::path& path);

// Those of one module, or those of one kind and message.
[[nodiscard]] std::vector<ModuleCall> CallsOf(const std::vector<ModuleCall>& calls, std::string_view module);
[[nodiscard]] std::vector<ModuleCall> CallsOf(const std::vector<ModuleCall>& calls, ModuleCall::Kind kind,
                                              std::uint32_t message);

} // namespace orvane::tests
