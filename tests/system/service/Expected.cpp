#include "system/service/Expected.h"

#include "records/AudioRenderData.h"

namespace orvane::tests {

namespace {

Bytes Tagged(std::string_view tag) {
    return WireBuilder().Raw(tag).Get();
}

Bytes Pulse() {
    return WireBuilder().Raw("PULS").U32(1).U32(1000).Zeros(sizeof(records::AudioRenderData)).Get();
}

Bytes Selection() {
    return WireBuilder()
        .Raw("SWSV")
        .String(u"Nobody's Visualizer")
        .U8(0)
        .Raw("TALF")
        .Raw(AsText(SampleTrackBlock()))
        .Get();
}

void PutBigEndian(std::string& out, std::uint32_t value, int bytes) {
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) out += char(std::uint8_t(value >> shift));
}

void PutText(std::string& out, std::string_view ascii) {
    PutBigEndian(out, std::uint32_t(ascii.size()), 2);
    for (const char c : ascii) PutBigEndian(out, std::uint8_t(c), 2);
}

// The list: the product's one built-in, once for each time that the host has prepared itself for a client.
std::string ListOfBuiltIns(int preparations, std::string_view title) {
    constexpr std::uint32_t kRate = 60, kKindOfZ = 1;
    std::string list;
    PutBigEndian(list, std::uint32_t(preparations), 4);
    for (int i = 0; i < preparations; ++i) {
        PutBigEndian(list, 0, 4);
        PutBigEndian(list, 0, 4); // options
        PutBigEndian(list, kRate, 4);
        for (int word = 0; word < 6; ++word) PutBigEndian(list, 0, 4); // two words, four limits
        PutBigEndian(list, kKindOfZ, 4);
        PutBigEndian(list, 0, 4); // four bytes
        PutText(list, title);
        PutText(list, "Built-In");
    }
    return list;
}

} // namespace

std::vector<ExpectedExchange> ExpectedConversation(int preparations) {
    const std::string nothingToTell(4, '\0');
    const std::string noArtwork = "SetArtworkInMainThread : Current plugin is null. Cannot set artwork\n";
    return {
        // name, request, reply, console
        { "localized strings", WireBuilder().Raw("UPVMZ").U8(1).Raw("<Title><>").Get(),
          ListOfBuiltIns(preparations, "Title"), "" },
        { "pulse", Pulse(), nothingToTell, "" },
        { "key input", WireBuilder().Raw("KEYI").U32(0).U32(1).U16('a').Get(), "OK",
          "Current plugin is null. Cannot take key input\n" },
        { "show window", Tagged("SWND"), "OK",
          "OOPWinPipeServer ShowVisualizerWindow (and place on top of Z order)\n" },
        { "show window and select", Selection(), "OK",
          "OOPWinPipeServer ShowVisualizerWindowAndSelectVisualizer (and place on top of Z order)\n"
          "NameIs: inNameLength(19) != mName[0] (25)\n" // of "Orvane Classic Visualizer"
          "OOPWinPipeServer:Could not find visualizer to activate\n"
          "SetCurrentPluginNoLock::Setting null plugin to null\n"
          "StartVisualizerWithTrackParam::Current plugin is null. Cannot Start track\n" },
        { "hide window", Tagged("HWND"), "OK", "OOPWinPipeServer HideVisualizerWindow\n" },
        { "enter full screen", Tagged("NTFS"), "OK",
          "OOPWinPipeServer EnterFullscreen\nOOPWindowProc::WM_SIZE is in full screen\n" },
        { "leave full screen", Tagged("XTFS"), "OK",
          "OOPWinPipeServer ExitFullscreen\nOOPWindowProc::WM_SIZE is NOT in full screen\n" },
        { "post to console", WireBuilder().Raw("PM2Chello\n").U8(0).Get(), "OK", "hello\n" },
        { "deactivate", Tagged("DCTV"), "OK", "" },
        { "start", WireBuilder().Raw("STRT").Raw(AsText(SampleTrackBlock())).Get(), "Start",
          "StartVisualizerWithTrackParam::Current plugin is null. Cannot Start track\n" },
        { "draw", Tagged("DRAW"), "OK", "" },
        { "idle", Tagged("IDLE"), "OK", "Current plugin is null. Cannot idle\n" },
        { "stop", Tagged("STOP"), "OK", "" },
        { "move", Tagged("MOVW"), "OK", "MoveVisualizer override me\n" },
        { "reshape", WireBuilder().Raw("RSHP").U32(0).U32(0).U32(640).U32(480).Get(), "OK", "" },
        { "activate", WireBuilder().Raw("ACTV").String(u"Nobody's Visualizer").Get(), "FAIL",
          "OOPWinPipeServer::ActivateVisualizer called\n"
          "NameIs: inNameLength(19) != mName[0] (25)\n"
          "OOPWinPipeServer::Could not find visualizer to activate\n"
          "SetCurrentPlugin::Setting null plugin to null\n" },
        { "no artwork", Tagged("NOAR"), "OK", noArtwork },
        { "artwork of format 13", WireBuilder().Raw("AR13").Zeros(100).Get(), "OK", noArtwork },
        { "artwork of format 14", WireBuilder().Raw("AR14").Zeros(100).Get(), "OK", noArtwork },

        { "an unknown tag", Tagged("QQQQ"), "Not handled", "" },
        { "an unknown tag with a payload", WireBuilder().Raw("puls").Zeros(100).Get(), "Not handled", "" },
        { "a tag above ASCII", WireBuilder().Raw("PUL\xD3").Get(), "Not handled", "" },
        { "one byte", Tagged("P"), "No input message. Buffer size = 1", "HandleRequest mBytesRead < 4\n" },
        { "three bytes", Tagged("PUL"), "No input message. Buffer size = 3",
          "HandleRequest mBytesRead < 4\n" },
        { "a pulse of four bytes", Tagged("PULS"), nothingToTell, "" },
    };
}

std::string ExpectedReply(std::string_view tag) {
    for (const auto& exchange : ExpectedConversation(1))
        if (AsText(exchange.request).starts_with(tag)) return exchange.reply.value_or("");
    return {};
}

std::string ExpectedPreparation() {
    return "RegisterBuiltInVisualizers**********************\n";
}

std::string ExpectedStart() {
    return ExpectedPreparation() + "ConnectNamedPipe [ERROR_IO_PENDING].\n";
}

std::string ExpectedEnd() {
    return "Exiting windows message loop\n";
}

} // namespace orvane::tests
