// One of everything that the drawing contract can show, each in its own square of six columns and five rows:
//
//          set A         set B         set C           set D           set E         set F
//   row 1  tint          texture       colour*texture  colours         sprites       colour table   unblended
//   row 2  the same, blended by alpha (the colour table can't blend and looks the same)
//   row 3  the same, added to what is there (the colour table can't)
//   row 4  wire          lines         points,         instances       textured      sprites in the distance,
//                                      triangles                       quads         a table on a moving image
//   row 5  a panel of the 2D canvas:     lines,          an image      an image      fills of
//          text of several alignments    round shapes    from a file   from rows     falling alpha
//
// Sprites are wider than high because their radius counts in clip space, whatever the view's aspect.
// The panel of row 5 aside, it knows the drawing contract alone; the last square of row 4 is shared by two.
#pragma once

#include "render/IRenderer.h"

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace orvane::demo {

class DemoScene {
public:
    explicit DemoScene(render::IRenderer& renderer);

    // A whole frame of a view of that many pixels, but for Present.
    void Draw(double seconds, double width, double height);

private:
    using Vertices = std::vector<float>;

    void MakeImages();
    void MakeBuffers();
    int MakeBuffer(std::uint32_t kind, std::uint32_t primitive, const Vertices& vertices);
    void Rewrite(int buffer, const Vertices& vertices);

    void DrawKinds(double seconds);
    void DrawShape(std::uint32_t kind, double seconds);
    void DrawSprites(std::uint32_t kind, int column, int row, double seconds);
    void DrawWire(double seconds);
    void DrawLines(double seconds);
    void DrawPointsAndTriangles(double seconds);
    void DrawInstances(double seconds);
    void DrawQuads(double seconds);
    void DrawDistance(double seconds, double aspect);
    void DrawMovingImage(double seconds);
    void DrawPanel();

    render::IRenderer& mRenderer;
    render::TexturePtr mRings, mGlow, mTiles, mWaves, mPanel;
    std::unique_ptr<render::IBufferTexture> mTable;
    std::map<std::uint32_t, int> mShapes; // by kind: the unit square or the points of a square of the grid
    int mGround = 0, mGroundVertices = 0, mWire = 0, mLines = 0, mPoints = 0, mTriangles = 0, mTile = 0,
        mQuad = 0, mDistance = 0, mMovingImage = 0;
};

} // namespace orvane::demo
