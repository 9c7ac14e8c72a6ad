// The replies of the pipe protocol. None carries a terminator.
#pragma once

#include <string_view>

namespace orvane::shell::replies {

constexpr std::string_view kOk = "OK";
constexpr std::string_view kStart = "Start";                             // 'STRT', parsed or not
constexpr std::string_view kProxy = "PRXY";                              // 'ACTV': the visualizer exists
constexpr std::string_view kFail = "FAIL";                               // 'ACTV': it doesn't
constexpr std::string_view kNotHandled = "Not handled";                  // an unknown tag
constexpr char kNoInputMessage[] = "No input message. Buffer size = %d"; // fewer than 4 bytes came

} // namespace orvane::shell::replies
