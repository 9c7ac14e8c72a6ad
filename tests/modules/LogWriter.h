// The log that every test module keeps if the environment variable ORVANE_MODULE_LOG names a file.
//
// Text, one line for each call, appended in one write and so never torn by other threads or modules. Eight
// fields with one space between them:
//
//   module   the mode's name
//   thread   Windows thread id, decimal
//   kind     "entry"    OrvanePluginMain was called
//            "handler"  the message handler was called
//            "host"     the module has called the host back
//   message  the code, 8 hexadecimal digits
//   cookie   entry: the third argument; handler: the refcon; host: the host cookie. 16 hexadecimal digits
//   status   host: what the host answered, decimal; else "-"
//   record   its bytes as they came, two hexadecimal digits each, or "-" for a null record
//   data     what the record points to: 2050 bytes of sound, the image, 5776 bytes of track; or "-"
//
// A call that the module got is written before it is handled, a call that it made after it has returned.
// tests/support/ModuleLog.h reads it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvane::tests {

enum class CallKind { Entry, Handler, Host };

struct CallLine {
    const char* module;
    CallKind kind;
    std::uint32_t message;
    const void* cookie;
    std::int32_t status; // of a host call; others have none
    const void* record;
    std::size_t recordSize;
    const void* data;
    std::size_t dataSize;
};

void WriteCallLine(const CallLine& line);

} // namespace orvane::tests
