// ExternalVisualPlugIn's registration.
#include "platform/LogLine.h"
#include "plugins/external/ExternalVisualPlugIn.h"
#include "plugins/external/FloatingPointState.h"
#include "plugins/external/MessageRecords.h"
#include "plugins/external/ModuleMessages.h"

#include <algorithm>
#include <cstring>

namespace orvane::plugins {

using platform::LogFormat;
using platform::LogLine;

namespace {

// The two words that every version's record begins with.
struct RecordVersion {
    std::uint32_t majorVersion;
    std::uint32_t minorVersion;
};

static_assert(sizeof(RecordVersion) == offsetof(RegistrationRecord, ignored));

bool IsVersionTaken(const RecordVersion& version) {
    if (version.majorVersion != kOrvanePluginMajorMessageVersion) {
        LogFormat("Major version (%d) expected to be kOrvanePluginMajorMessageVersion(%d)\n",
                  int(version.majorVersion), int(kOrvanePluginMajorMessageVersion));
        return false;
    }
    if (version.minorVersion != kOrvanePluginMinorMessageVersion)
        LogFormat("Minor version (%d) expected to be kOrvanePluginMinorMessageVersion(%d)\n",
                  int(version.minorVersion), int(kOrvanePluginMinorMessageVersion));
    return true;
}

// The units as they stand, lone surrogates and zeros included.
records::StringBlock NameOf(const RegistrationRecord& record) {
    records::StringBlock name;
    name.count = std::min<std::uint16_t>(record.nameCount, records::StringBlock::kCapacity);
    for (std::size_t i = 0; i < name.count; ++i) name.units[i] = record.nameUnits[i];
    return name;
}

} // namespace

std::int32_t ExternalVisualPlugIn::Register(const void* info) {
    if (!info) {
        LogLine("Plugin message handler passed a null inMessageInfo. Returning paramErr\n");
        return kParamErr;
    }
    RecordVersion version;
    std::memcpy(&version, info, sizeof(version));
    if (!IsVersionTaken(version)) return kParamErr;
    RegistrationRecord registration;
    std::memcpy(&registration, info, sizeof(registration));
    if (!registration.handler) return kParamErr;
    Store(registration);

    HandlerRecord record = {};
    record.majorVersion = kOrvanePluginMajorMessageVersion;
    record.minorVersion = kOrvanePluginMinorMessageVersion;
    record.hostVersion = kHostVersion;
    record.hostCookie = this;
    record.hostCallback = &HandleModuleMessage;
    record.refCon = registration.refCon;
    const FloatingPointState kept;
    const std::int32_t status = registration.handler(messages::kInit, &record, registration.refCon);
    mPluginRefCon = record.refCon; // whatever the status
    return status;
}

void ExternalVisualPlugIn::Store(const RegistrationRecord& record) {
    mName = NameOf(record);
    mDisplayName = mName;
    mOptions = record.options;
    mRegisteredWord0 = record.word0;
    std::copy_n(record.bytes, std::size(mRegisteredBytes), mRegisteredBytes);
    mVisualPluginProcPtr = record.handler;
    mRegisterRefCon = record.refCon;
    mRegisteredRate = record.rate;
    mRegisteredWord1 = record.word1;
    mRegisteredWord2 = record.word2;
    // KEEP: the record has the third limit in front of the second, and the player reads them in the order of
    // mRegisteredLimits; modules in the field are built to that. Stored straight, every module would show
    // its two middle limits exchanged. Pinned by Registration.TheTwoMiddleLimitsAreCrossedOver.
    mRegisteredLimits[0] = record.limit0;
    mRegisteredLimits[2] = record.limit2;
    mRegisteredLimits[1] = record.limit1;
    mRegisteredLimits[3] = record.limit3;
}

} // namespace orvane::plugins
