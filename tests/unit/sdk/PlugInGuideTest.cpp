// The page that leads strangers to their first module quotes the source that is built, and its figures are the
// header's.
#include "orvane_plugin.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace orvane {
namespace {

// The file's text with lines ending in a newline alone, whatever they end in on this disk.
std::string TextOf(const char* path) {
    std::ifstream file(std::filesystem::path(ORVANE_SOURCE_FOLDER) / path, std::ios::binary);
    std::string text{ std::istreambuf_iterator<char>(file), {} };
    std::erase(text, '\r');
    return text;
}

TEST(PlugInGuide, QuotesTheMinimalModuleThatIsBuilt) {
    const std::string source = TextOf("plug-in-sdk/minimal/minimal.c");
    const std::string page = TextOf("docs/plug-ins.md");
    ASSERT_FALSE(source.empty());
    EXPECT_NE(page.find("```c\n" + source + "```\n"), std::string::npos);
}

TEST(PlugInGuide, HasARowForEachMessageOfTheHeader) {
    const std::string page = TextOf("docs/plug-ins.md");
    const std::string header = TextOf("plug-in-sdk/orvane_plugin.h");
    int rows = 0;
    for (const std::string prefix : { "#define ORVANE_MSG_", "#define ORVANE_HOST_" })
        for (auto at = header.find(prefix); at != std::string::npos; at = header.find(prefix, at + 1)) {
            const auto begin = at + std::string("#define ").size();
            const std::string name = header.substr(begin, header.find(' ', begin) - begin);
            EXPECT_NE(page.find("| `" + name + "` |"), std::string::npos) << name;
            ++rows;
        }
    EXPECT_EQ(rows, 14);
}

} // namespace
} // namespace orvane
