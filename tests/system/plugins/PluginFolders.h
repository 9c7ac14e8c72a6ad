// The three folders in which a host looks for modules, for a test to lay things into.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::tests {

// In the order in which they are searched.
enum class Folder { kProgramFiles, kBesideProgram, kRoamingData };

constexpr Folder kAllFolders[] = { Folder::kProgramFiles, Folder::kBesideProgram, Folder::kRoamingData };

// The first and the third are the real ones of this machine; the second stands beside a copy of the host in a
// temporary folder. All that it made is gone with the object, and what a test run that was killed left behind is
// gone when the next one is made. Modules stay in use as long as a host runs: it has to end first.
class PluginFolders {
public:
    PluginFolders();
    ~PluginFolders();

    PluginFolders(const PluginFolders&) = delete;
    PluginFolders& operator=(const PluginFolders&) = delete;

    // False on a machine with plug-ins of its own, which are left alone and would be in the way.
    [[nodiscard]] bool AreFree() const { return mFree; }

    // Where the folder is, whether or not anything was laid there yet.
    [[nodiscard]] std::filesystem::path Of(Folder folder) const;

    // Makes the folder, empty.
    std::filesystem::path Make(Folder folder);

    // Copies a test module there, under the mode's own name unless another is wanted. The full path.
    std::filesystem::path Lay(Folder folder, std::string_view mode, const std::filesystem::path& name = {});

    // Lays the file at `path` there once more: one file with two names.
    std::filesystem::path LayAgain(Folder folder, const std::filesystem::path& path);

    // The copy of a program that stands beside the test program, in the temporary folder.
    std::filesystem::path CopyOfProgram(std::wstring_view name);

    // A folder for a test's other things; gone with the object too.
    [[nodiscard]] const std::filesystem::path& Temporary() const { return mTemporary; }

private:
    std::filesystem::path mTemporary;
    bool mFree;
};

// The "*.dll" of a folder, full paths, in the file system's own order.
[[nodiscard]] std::vector<std::filesystem::path> ModulesIn(const std::filesystem::path& folder);

// A test module where it was built.
[[nodiscard]] std::filesystem::path BuiltModule(std::string_view mode);

} // namespace orvane::tests
