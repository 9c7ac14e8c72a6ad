#include "platform/Cores.h"

#include <windows.h>

#include <algorithm>
#include <vector>

namespace orvane::platform {

unsigned ProcessorCores() {
    DWORD size = 0;
    if (GetLogicalProcessorInformation(nullptr, &size) || GetLastError() != ERROR_INSUFFICIENT_BUFFER)
        return 0;
    std::vector<SYSTEM_LOGICAL_PROCESSOR_INFORMATION> records(size /
                                                              sizeof(SYSTEM_LOGICAL_PROCESSOR_INFORMATION));
    if (!GetLogicalProcessorInformation(records.data(), &size)) return 0;
    return unsigned(std::count_if(records.begin(), records.end(), [](const auto& record) {
        return record.Relationship == RelationProcessorCore;
    }));
}

} // namespace orvane::platform
