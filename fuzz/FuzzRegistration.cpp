// A module's registration of any bytes, through the host's callback, and the plug-in that comes of it
// flattened into replies of odd sizes. The record lies in a heap block of exactly its size, and each reply
// too, so that any step beyond them is seen.
#include "platform/LogLine.h"
#include "plugins/FlattenPlugIn.h"
#include "plugins/external/ExternalVisualPlugIn.h"
#include "plugins/external/MessageRecords.h"
#include "plugins/external/ModuleMessages.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

using namespace orvane;
using namespace orvane::plugins;

constexpr std::size_t kRecordSize = 580;
constexpr std::size_t kHandlerAt = 536;
constexpr std::size_t kReplySizes[] = { 0, 1, 3, 43, 45, 47, 555, 557, 4096 };

void DropLine(std::string_view) {}

int sCalls = 0;

std::int32_t Handle(std::uint32_t, void* record, void*) {
    ++sCalls;
    if (record) std::memset(record, 0xEE, sizeof(HandlerRecord));
    return 0;
}

void Require(bool condition) {
    if (!condition) std::abort();
}

// The input's bytes, zeros behind them. A handler's address can't be guessed: any that isn't null is ours.
std::unique_ptr<std::uint8_t[]> RecordOf(const std::uint8_t* data, std::size_t size) {
    auto record = std::make_unique<std::uint8_t[]>(kRecordSize);
    std::copy_n(data, std::min(size, kRecordSize), record.get());
    std::uint64_t handler = 0;
    std::memcpy(&handler, record.get() + kHandlerAt, sizeof(handler));
    const MessageHandler ours = &Handle;
    if (handler != 0) std::memcpy(record.get() + kHandlerAt, &ours, sizeof(ours));
    return record;
}

void FlattenIntoOddSizes(const VisualPlugIn& plugIn) {
    for (const std::size_t size : kReplySizes) {
        const auto reply = std::make_unique<std::uint8_t[]>(size);
        shell::Flattener flattener(reply.get(), size);
        FlattenPlugIn(flattener, plugIn);
        Require(flattener.Length() <= size);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    platform::SetLogSink(&DropLine);
    const auto plugIn = MakePlugIn<ExternalVisualPlugIn>(u"C:\\fuzz.dll", nullptr);
    const auto record = RecordOf(data, size);

    sCalls = 0;
    const std::int32_t status = HandleModuleMessage(plugIn.get(), callback_messages::kRegister, record.get());
    Require(status == kNoErr ? sCalls == 1 : status == kParamErr && sCalls == 0);
    Require(plugIn->Name().count <= records::StringBlock::kCapacity);
    Require(plugIn->Name() == plugIn->DisplayName());

    const auto& name = plugIn->Name();
    Require(plugIn->NameIs(name.units, name.count) == (name.count != 0));
    plugIn->Idle();
    plugIn->Draw();
    FlattenIntoOddSizes(*plugIn);
    return 0;
}
