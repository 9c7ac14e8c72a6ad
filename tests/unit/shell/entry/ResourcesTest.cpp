// What is built into the host program beside its code, read back from the program file.
#include "shell/entry/Pump.h"
#include "unit/shell/entry/HostProgram.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace orvane::shell {
namespace {

using tests::HostProgram;

class Resources : public testing::Test {
protected:
    void SetUp() override {
        mModule = LoadLibraryExW(HostProgram().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        ASSERT_NE(mModule, nullptr) << GetLastError();
    }

    void TearDown() override { FreeLibrary(mModule); }

    HMODULE mModule = nullptr;
};

TEST_F(Resources, AcceleratorTable109HasTwoCharactersWithAltForCommand104) {
    EXPECT_EQ(kAcceleratorTable, 109);
    const HACCEL table = LoadAcceleratorsW(mModule, MAKEINTRESOURCEW(109));
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(CopyAcceleratorTableW(table, nullptr, 0), 2);
    ACCEL keys[2] = {};
    ASSERT_EQ(CopyAcceleratorTableW(table, keys, 2), 2);
    EXPECT_EQ(keys[0].key, '?');
    EXPECT_EQ(keys[1].key, '/');
    for (const auto& key : keys) {
        EXPECT_EQ(key.fVirt, FALT) << "a character, not a virtual key; no shift, no control";
        EXPECT_EQ(key.cmd, 104);
    }
    DestroyAcceleratorTable(table);
}

class VersionResource : public testing::Test {
protected:
    void SetUp() override {
        DWORD ignored = 0;
        mBlock.resize(GetFileVersionInfoSizeW(HostProgram().c_str(), &ignored));
        ASSERT_FALSE(mBlock.empty());
        ASSERT_TRUE(GetFileVersionInfoW(HostProgram().c_str(), 0, DWORD(mBlock.size()), mBlock.data()));
    }

    std::wstring Text(const wchar_t* name) const {
        const std::wstring path = LR"(\StringFileInfo\040904b0\)" + std::wstring(name);
        void* text = nullptr;
        UINT units = 0;
        if (!VerQueryValueW(mBlock.data(), path.c_str(), &text, &units)) return L"missing";
        return static_cast<const wchar_t*>(text);
    }

    std::vector<char> mBlock;
};

TEST_F(VersionResource, TellsOneZeroAsNumbersAndAsText) {
    void* value = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueW(mBlock.data(), L"\\", &value, &size));
    ASSERT_GE(size, sizeof(VS_FIXEDFILEINFO));
    const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(value);
    EXPECT_EQ(fixed.dwFileVersionMS, 0x00010000u);
    EXPECT_EQ(fixed.dwFileVersionLS, 0u);
    EXPECT_EQ(fixed.dwProductVersionMS, 0x00010000u);
    EXPECT_EQ(fixed.dwProductVersionLS, 0u);
    EXPECT_EQ(fixed.dwFileType, DWORD(VFT_APP));
    EXPECT_EQ(Text(L"FileVersion"), L"1.0.0.0");
    EXPECT_EQ(Text(L"ProductVersion"), L"1.0.0.0");
}

TEST_F(VersionResource, NamesTheProduct) {
    EXPECT_EQ(Text(L"ProductName"), L"Orvane");
    EXPECT_EQ(Text(L"FileDescription"), L"Orvane visualizer host");
    EXPECT_EQ(Text(L"OriginalFilename"), L"orvane-visualizer.exe");
}

// The manifest as the system itself understands it.
class Manifest : public testing::Test {
protected:
    void SetUp() override {
        mProgram = HostProgram();
        ACTCTXW request = {};
        request.cbSize = sizeof(request);
        request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
        request.lpSource = mProgram.c_str();
        request.lpResourceName = MAKEINTRESOURCEW(1);
        mContext = CreateActCtxW(&request);
        ASSERT_NE(mContext, INVALID_HANDLE_VALUE) << GetLastError();
    }

    void TearDown() override {
        if (mContext != INVALID_HANDLE_VALUE) ReleaseActCtx(mContext);
    }

    std::wstring mProgram;
    HANDLE mContext = INVALID_HANDLE_VALUE;
};

TEST_F(Manifest, RunsAsItsInvoker) {
    ACTIVATION_CONTEXT_RUN_LEVEL_INFORMATION level = {};
    ASSERT_TRUE(QueryActCtxW(0, mContext, nullptr, RunlevelInformationInActivationContext, &level,
                             sizeof(level), nullptr));
    EXPECT_EQ(level.RunLevel, ACTCTX_RUN_LEVEL_AS_INVOKER);
    EXPECT_EQ(level.UiAccess, 0u);
}

TEST_F(Manifest, IsAwareOfTheScreensScale) {
    wchar_t value[16] = {};
    ASSERT_TRUE(QueryActCtxSettingsW(0, mContext, L"http://schemas.microsoft.com/SMI/2005/WindowsSettings",
                                     L"dpiAware", value, std::size(value), nullptr));
    EXPECT_STREQ(value, L"true");
}

// What the system answers since version 1903 of Windows 10; older headers lack the last field, with which the
// elements begin at offset 8.
struct CompatibilityInformation {
    DWORD count;

    struct Element {
        GUID id;
        DWORD type; // 1: an operating system
        ULONGLONG maxVersionTested;
    } elements[8];
};

TEST_F(Manifest, IsMeantForWindows10) {
    CompatibilityInformation systems = {};
    ASSERT_TRUE(QueryActCtxW(0, mContext, nullptr, CompatibilityInformationInActivationContext, &systems,
                             sizeof(systems), nullptr));
    constexpr GUID kWindows10 = {
        0x8E0F7A12, 0xBFB3, 0x4FE8, { 0xB9, 0xA5, 0x48, 0xFD, 0x50, 0xA1, 0x5A, 0x9A }
    };
    ASSERT_EQ(systems.count, 1u);
    EXPECT_TRUE(IsEqualGUID(systems.elements[0].id, kWindows10));
    EXPECT_EQ(systems.elements[0].type, 1u);
}

TEST_F(Resources, TheProgramHasOneManifest) {
    int count = 0;
    const auto counts = [](HMODULE, LPCWSTR, LPWSTR, LONG_PTR result) -> BOOL {
        ++*reinterpret_cast<int*>(result);
        return TRUE;
    };
    EXPECT_TRUE(EnumResourceNamesW(mModule, MAKEINTRESOURCEW(24), counts, LONG_PTR(&count))); // RT_MANIFEST
    EXPECT_EQ(count, 1);
}

} // namespace
} // namespace orvane::shell
