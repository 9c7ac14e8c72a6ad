// The index image on its way to the renderer.
#include "zephor/layers/TextureFunctors.h"

#include "render/Enumerations.h"
#include "render/recording/RecordingRenderer.h"

#include "LayerPixels.h"

#include <gtest/gtest.h>

namespace orvane::zephor {
namespace {

using render::RecordingRenderer;
using render::TexturePtr;
using tests::SetLayerPixel;

struct Scene {
    RecordingRenderer renderer;
    ZephorIndexLayer layer{ 5 };
    TexturePtr texture;

    Scene() {
        static_cast<void>(layer.Resize(5, 3));
        SetLayerPixel(layer, 4, 2, 200);
    }

    void Upload() { UploadIndexImage(layer, renderer, texture); }

    [[nodiscard]] const render::RecordedResource& Made(std::size_t index) const {
        return *renderer.Resources()[index];
    }
};

TEST(TextureFunctors, TheFirstUploadMakesADynamicTextureOfOneByteATexel) {
    Scene scene;
    scene.Upload();
    ASSERT_TRUE(scene.texture);
    ASSERT_EQ(scene.renderer.Resources().size(), 1u);
    const render::RecordedResource& made = scene.Made(0);
    EXPECT_EQ(made.name, "Zephor Indexed texture");
    EXPECT_EQ(made.textureUnit, 0u);
    EXPECT_TRUE(made.dynamic);
    EXPECT_EQ(made.fills, 0u);
    EXPECT_EQ(made.image->pixelFormat, render::kPixelFormat_R8UInt);
    EXPECT_EQ(made.image->width, 5u);
    EXPECT_EQ(made.image->height, 3u);
    EXPECT_EQ(made.image->Texel(4, 2), 200u);
    EXPECT_EQ(made.image->Texel(3, 2), 0u);
}

TEST(TextureFunctors, ALaterUploadRewritesTheSameTexture) {
    Scene scene;
    scene.Upload();
    const render::ITexture* const first = scene.texture.get();
    SetLayerPixel(scene.layer, 0, 1, 33);
    scene.Upload();
    EXPECT_EQ(scene.texture.get(), first);
    ASSERT_EQ(scene.renderer.Resources().size(), 1u);
    EXPECT_EQ(scene.Made(0).fills, 1u);
    EXPECT_EQ(scene.Made(0).image->Texel(0, 1), 33u);
    EXPECT_EQ(scene.Made(0).image->Texel(4, 2), 200u);
}

TEST(TextureFunctors, AfterAResizeTheReleasedTextureIsMadeAnewAndNotWritten) {
    Scene scene;
    scene.Upload();
    scene.texture.reset();
    EXPECT_FALSE(scene.Made(0).alive);
    ASSERT_TRUE(scene.layer.Resize(7, 4));
    SetLayerPixel(scene.layer, 6, 3, 90);
    scene.Upload();
    ASSERT_EQ(scene.renderer.Resources().size(), 2u);
    EXPECT_EQ(scene.Made(0).fills, 0u);
    EXPECT_EQ(scene.Made(1).image->width, 7u);
    EXPECT_EQ(scene.Made(1).image->Texel(6, 3), 90u);
    scene.Upload();
    EXPECT_EQ(scene.Made(1).fills, 1u);
}

TEST(TextureFunctors, ATextureThatCannotBeMadeIsTriedAgainWithTheNextFrame) {
    Scene scene;
    scene.renderer.Refuse(render::Refusal::Texture);
    scene.Upload();
    EXPECT_FALSE(scene.texture);
    scene.renderer.Refuse(render::Refusal::Texture, false);
    scene.Upload();
    EXPECT_TRUE(scene.texture);
}

TEST(TextureFunctors, WithoutASurfaceNothingIsUploaded) {
    RecordingRenderer renderer;
    ZephorIndexLayer layer(5);
    TexturePtr texture;
    UploadIndexImage(layer, renderer, texture);
    EXPECT_FALSE(texture);
    EXPECT_TRUE(renderer.Resources().empty());
}

TEST(TextureFunctors, ATextureThatNobodyTakesIsReleasedWithTheFunctor) {
    Scene scene;
    {
        CreateTextureFunctor functor(scene.renderer);
        scene.layer.Surface()->ReadPixels(functor);
        EXPECT_TRUE(scene.Made(0).alive);
    }
    EXPECT_FALSE(scene.Made(0).alive);
}

} // namespace
} // namespace orvane::zephor
