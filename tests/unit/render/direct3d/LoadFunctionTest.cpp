// Stages from files of compiled code beside the program.
#include "support/direct3d/Direct3DTest.h"

#include "render/direct3d/shaders/ShaderCode.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace orvane::tests {
namespace {

using namespace render;

// A file in the folder of this program, gone again at the end.
class FileBeside {
public:
    FileBeside(const std::string& name, std::span<const std::byte> bytes)
        : mPath(Folder() + name) {
        std::FILE* const file = std::fopen(mPath.c_str(), "wb");
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }

    ~FileBeside() { std::remove(mPath.c_str()); }

    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;

private:
    static std::string Folder() {
        char path[MAX_PATH];
        const std::string whole(path, GetModuleFileNameA(nullptr, path, sizeof path));
        return whole.substr(0, whole.rfind('\\') + 1);
    }

    const std::string mPath;
};

class LoadFunction : public Direct3DTest {
protected:
    static bool IsLoaded(IRenderingFunction* function) {
        const std::unique_ptr<IRenderingFunction> owner(function);
        return owner && owner->GetFunctionId() == kNoValue;
    }
};

TEST_F(LoadFunction, MakesTheFunctionOfTheFile) {
    const std::span<const std::byte> code = ShaderCodeOf(ShaderSet::B).vertex;
    const FileBeside vertexFile("loadfunction-vertex.bin", code);
    const FileBeside fragmentFile("loadfunction-fragment.bin", ShaderCodeOf(ShaderSet::B).fragment);
    const std::unique_ptr<IVertexFunction> vertex(
        mRenderer.LoadVertexFunction(nullptr, "loadfunction-vertex.bin"));
    ASSERT_NE(vertex, nullptr);
    EXPECT_EQ(vertex->GetFunctionId(), kNoValue);
    ASSERT_EQ(vertex->GetFunctionCodeSize(), code.size());
    EXPECT_NE(vertex->GetFunctionCode(), code.data()); // a copy of its own
    EXPECT_EQ(std::memcmp(vertex->GetFunctionCode(), code.data(), code.size()), 0);
    EXPECT_TRUE(IsLoaded(mRenderer.LoadFragmentFunction(nullptr, "loadfunction-fragment.bin")));
}

TEST_F(LoadFunction, AMissingOrEmptyOrUnnamedFileIsNull) {
    const FileBeside empty("loadfunction-empty.bin", {});
    EXPECT_EQ(mRenderer.LoadVertexFunction(nullptr, "loadfunction-missing.bin"), nullptr);
    EXPECT_EQ(mRenderer.LoadFragmentFunction(nullptr, "loadfunction-missing.bin"), nullptr);
    EXPECT_EQ(mRenderer.LoadVertexFunction(nullptr, "loadfunction-empty.bin"), nullptr);
    EXPECT_EQ(mRenderer.LoadFragmentFunction(nullptr, "loadfunction-empty.bin"), nullptr);
    EXPECT_EQ(mRenderer.LoadVertexFunction(nullptr, nullptr), nullptr);
    EXPECT_EQ(mRenderer.LoadFragmentFunction(nullptr, ""), nullptr);
}

TEST_F(LoadFunction, ANameOfMoreThan255CharactersWrapsRoundToTheStart) {
    const FileBeside file("loadfunction-wrapped.bin", ShaderCodeOf(ShaderSet::D).vertex);
    const std::string wrapped = "loadfunction-wrapped.bin";
    EXPECT_TRUE(IsLoaded(mRenderer.LoadVertexFunction(nullptr, (std::string(256, 'x') + wrapped).c_str())));
    EXPECT_TRUE(IsLoaded(mRenderer.LoadVertexFunction(nullptr, (std::string(512, 'x') + wrapped).c_str())));
    EXPECT_EQ(mRenderer.LoadVertexFunction(nullptr, (std::string(255, 'x') + wrapped).c_str()), nullptr);
}

TEST_F(LoadFunction, AddSamplerStateReturnsTheIndexAndBindsInOrder) {
    const auto code = ShaderCodeOf(ShaderSet::A).fragment;
    const std::unique_ptr<IFragmentFunction> fragment(
        mRenderer.CreateFragmentFunction(code.data(), code.size(), "name"));
    EXPECT_EQ(fragment->AddSamplerState(nullptr), kNoValue);
    for (std::uint32_t i = 0; i < 20; ++i)
        EXPECT_EQ(fragment->AddSamplerState(mRenderer.CreatePointSamplerState("")), i);
}

} // namespace
} // namespace orvane::tests
