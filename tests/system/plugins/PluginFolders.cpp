#include "system/plugins/PluginFolders.h"

#include "system/ChildProcess.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace orvane::tests {

namespace {

namespace fs = std::filesystem;

// Says that a folder is a test's own and may be removed with all that is in it.
constexpr char kMarker[] = "laid-by-orvane-tests";

fs::path ValueOf(const wchar_t* variable) {
    const wchar_t* value = _wgetenv(variable);
    return value ? value : L"";
}

// The folders of the machine, told by the environment rather than by the calls that the host makes.
fs::path ProgramFilesFolder() {
    return ValueOf(L"ProgramW6432") / "Orvane" / "Plug-ins";
}

fs::path RoamingDataFolder() {
    return ValueOf(L"APPDATA") / "Kelbo Computer" / "Orvane" / "Orvane Plug-ins";
}

// Removes a folder with all that is in it, however long the paths become. False if something stays.
bool RemoveTree(const std::wstring& folder) {
    const std::wstring verbatim = LR"(\\?\)" + folder;
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((verbatim + L"\\*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const std::wstring name = found.cFileName;
            if (name == L"." || name == L"..") continue;
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveTree(folder + L"\\" + name);
            else
                DeleteFileW((verbatim + L"\\" + name).c_str());
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    return RemoveDirectoryW(verbatim.c_str()) != FALSE;
}

// Removes the folder if a test made it, and then so many folders above it as are empty; otherwise nothing. A
// process that has just ended may hold on to its files for a moment.
void RemoveIfOurs(const fs::path& folder, int parents) {
    std::error_code ignored;
    if (!fs::exists(folder / kMarker, ignored)) return;
    if (!WaitUntil([&] { return RemoveTree(folder.wstring()); })) return;
    fs::path parent = folder.parent_path();
    for (int i = 0; i < parents; ++i, parent = parent.parent_path())
        if (!fs::is_empty(parent, ignored) || !fs::remove(parent, ignored)) return;
}

void RemoveAllOurs(const fs::path& temporary) {
    RemoveIfOurs(ProgramFilesFolder(), 1);
    RemoveIfOurs(RoamingDataFolder(), 2);
    RemoveIfOurs(temporary, 0);
}

void MakeOurs(const fs::path& folder) {
    if (fs::exists(folder / kMarker)) return;
    fs::create_directories(folder);
    std::ofstream(folder / kMarker).put('\n');
}

} // namespace

PluginFolders::PluginFolders()
    : mTemporary(fs::temp_directory_path() / "orvane-system-plugins") {
    RemoveAllOurs(mTemporary);
    mFree = !fs::exists(ProgramFilesFolder()) && !fs::exists(RoamingDataFolder()) && !fs::exists(mTemporary);
    if (mFree) MakeOurs(mTemporary);
}

PluginFolders::~PluginFolders() {
    RemoveAllOurs(mTemporary);
}

fs::path PluginFolders::Of(Folder folder) const {
    switch (folder) {
    case Folder::kProgramFiles:
        return ProgramFilesFolder();
    case Folder::kBesideProgram:
        return mTemporary / "Plug-ins";
    case Folder::kRoamingData:
        return RoamingDataFolder();
    }
    return {};
}

fs::path PluginFolders::Make(Folder folder) {
    MakeOurs(Of(folder));
    return Of(folder);
}

fs::path PluginFolders::Lay(Folder folder, std::string_view mode, const fs::path& name) {
    const fs::path module = BuiltModule(mode);
    const fs::path path = Make(folder) / (name.empty() ? module.filename() : name);
    fs::copy_file(module, path);
    return path;
}

fs::path PluginFolders::LayAgain(Folder folder, const fs::path& path) {
    const fs::path again = Make(folder) / path.filename();
    CreateHardLinkW(again.c_str(), path.c_str(), nullptr); // a test that misses it fails by what it looks for
    return again;
}

fs::path PluginFolders::CopyOfProgram(std::wstring_view name) {
    const fs::path copy = mTemporary / name;
    fs::copy_file(ProgramBeside(name), copy, fs::copy_options::overwrite_existing);
    return copy;
}

std::vector<fs::path> ModulesIn(const fs::path& folder) {
    std::vector<fs::path> modules;
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((folder / "*.dll").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return modules;
    do {
        modules.push_back(folder / found.cFileName);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return modules;
}

fs::path BuiltModule(std::string_view mode) {
    return fs::path(OwnProgram()).parent_path() / "modules" / (std::string(mode) + ".dll");
}

} // namespace orvane::tests
