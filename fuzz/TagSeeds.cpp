// Writes the seeds of fuzz_tags into the folder that is given: a small file of each format, and a few that have
// what is rarely seen.
#include "SeedFolder.h"
#include "support/TagFiles.h"

namespace {

using namespace orvane::tests;
using orvane::fuzz::Seed;

std::string Id3Body(int version) {
    const bool two = version == 2;
    return Join({ Id3Frame(version, two ? "TT2" : "TIT2", Id3Text("Title")),
                  Id3Frame(version, two ? "TP1" : "TPE1", { "\x01\xFF\xFE\x41\0", 5 }),
                  Id3Frame(version, two ? "TAL" : "TALB", "\x03\xC3\xA4") });
}

std::string Id3Picture2() {
    return Id3Frame(2, "PIC", Join({ { "\0PNG", 4 }, "\x03", { "a\0", 2 }, Png(24) }));
}

std::vector<Seed> Seeds() {
    const std::string picture3 = Id3Frame(3, "APIC", Id3Picture(3, Jpeg(24)));
    const std::string picture4 = Id3Frame(4, "APIC", Id3Picture(0, { "\xFF\0\xD8\xFF\0\xE0zz", 8 }), 0x02);
    const std::string info =
        InfoList(Join({ Chunk("INAM", "Title"), Chunk("IART", "A"), Chunk("IPRD", "B") }));
    return {
        { "id3-2.2", Id3Tag(2, Id3Body(2) + Id3Picture2()) },
        { "id3-2.3", Id3Tag(3, Id3Body(3) + picture3) + "\xFF\xFBsound" },
        { "id3-2.4", Id3Tag(4, Id3Body(4) + picture4) },
        { "id3-2.3-unsynchronised", Id3Tag(3, Id3Body(3), 0x80) },
        { "id3-2.3-extended", Id3Tag(3, BigValue(6, 4) + std::string(6, '\0') + Id3Body(3), 0x40) },
        { "id3-2.4-extended", Id3Tag(4, Syncsafe(6) + std::string(2, '\1') + Id3Body(4), 0xC0) },
        { "id3-2.4-lengths", Id3Tag(4, Id3Frame(4, "TIT2", Syncsafe(6) + Id3Text("Title"), 0x01)) },
        { "id3-before-flac", Id3Tag(4, "", 0x10) + std::string(10, '3') + FlacFile({ { 1, "pad" } }) },
        { "id3v1", Join({ "\xFF\xFB", Id3v1Tag("Title", "Artist", "Album") }) },
        { "flac", FlacFile({ { 0, std::string(34, 'i') },
                             { 4, VorbisComments({ "TITLE=T", "ARTIST=A", "ALBUM=B" }) },
                             { 6, FlacPicture(3, Jpeg(24)) } }) },
        { "mp4", Mp4File(Join({ Mp4Item("\xA9nam", 1, "Title"), Mp4Item("covr", 13, Jpeg(24)),
                                Mp4Item("\xA9"
                                        "ART",
                                        2, { "\0A", 2 }) })) },
        { "mp4-long-sizes", Join({ Box("ftyp", "M4A "), BigValue(1, 4), "mdat", BigValue(20, 8), "four",
                                   BigValue(0, 4), "moov" }) },
        { "wav-info", WavFile(info) },
        { "wav-id3", WavFile(info + Chunk("id3 ", Id3Tag(3, Id3Body(3)))) },
        { "empty", {} },
    };
}

} // namespace

int main(int count, char** arguments) {
    return orvane::fuzz::WriteSeeds(count, arguments, Seeds());
}
