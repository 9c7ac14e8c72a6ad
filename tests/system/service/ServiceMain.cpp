#include "system/HostProcess.h"
#include "system/service/Roles.h"

#include "support/Wire.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace orvane::tests {
namespace {

int TalkWithoutEnd() {
    player::PipeClient client = ConnectToHost();
    const Bytes request = WireBuilder().Raw("AR13").Zeros(50000).Get();
    for (bool told = false; client.Exchange(request, kPatience).outcome; told = true)
        if (!told) {
            std::fputs(kTalking, stdout);
            std::fflush(stdout);
        }
    return 1; // the host went first
}

int AttachToConsole(const wchar_t* processId) {
    FreeConsole();
    return AttachConsole(DWORD(std::wcstoul(processId, nullptr, 10))) ? 0 : 1;
}

} // namespace
} // namespace orvane::tests

int wmain(int count, wchar_t** arguments) {
    const std::wstring_view role = count > 1 ? arguments[1] : L"";
    if (role == orvane::tests::kEndlessClientRole) return orvane::tests::TalkWithoutEnd();
    if (role == orvane::tests::kAttachConsoleRole && count > 2)
        return orvane::tests::AttachToConsole(arguments[2]);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
