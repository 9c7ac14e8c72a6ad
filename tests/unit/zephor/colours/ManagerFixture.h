// A colour manager with maps of a test's own and a buffer that keeps what it is given.
#pragma once

#include "zephor/colours/PackedColour.h"
#include "zephor/colours/WCLUTManager.h"
#include "zephor/registry/Selection.h"

#include "support/ScriptedRand.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <vector>

namespace orvane::zephor {

// Four floats for each entry.
using Floats = std::array<std::array<float, 4>, kColourEntries>;

class KeepingBuffer final : public render::IBufferTexture {
public:
    explicit KeepingBuffer(std::vector<Floats>& uploads)
        : mUploads(uploads) {}

    void Bind() override {}

    void Unbind() override {}

    bool UpdateData(const void* data, std::uint64_t byteCount) override {
        EXPECT_EQ(byteCount, 4096u);
        std::memcpy(mUploads.emplace_back().data(), data, sizeof(Floats));
        return true;
    }

    std::uint64_t GetCapacity() override { return sizeof(Floats); }

private:
    std::vector<Floats>& mUploads;
};

// One colour all over; remembers the values that it was asked for.
class PlainMap final : public CLUTProc {
public:
    PlainMap(std::int32_t mapId, const ColourBytes& mapColour)
        : CLUTProc("map " + std::to_string(mapId), mapId, true)
        , colour(mapColour) {}

    void Map(float value, std::uint8_t rgb[3]) const override {
        values.push_back(value);
        for (std::size_t c = 0; c < 3; ++c) rgb[c] = colour[c];
    }

    ColourBytes colour;
    mutable std::vector<float> values;
};

// Ids 0 to 10 are grey tables, entry i being (id, i, 255 - i); 11 to 65 plain maps of (id, id + 100, 7).
class ManagerTest : public testing::Test {
protected:
    ManagerTest() {
        for (std::size_t id = 0; id < mFixed.size(); ++id)
            for (std::size_t i = 0; i < kColourEntries; ++i)
                mFixed[id][i] = { std::uint8_t(id), std::uint8_t(i), std::uint8_t(255 - i) };
        for (std::uint8_t id = 11; id <= 65; ++id) {
            const ColourBytes colour = { id, std::uint8_t(id + 100), 7 };
            mComputed[id] = std::make_unique<PlainMap>(id, colour);
            mMaps.Enter(*mComputed[id]);
        }
        mClut.Init();
    }

    void GiveBuffer() { mClut.clutBuffer = std::make_unique<KeepingBuffer>(mUploads); }

    // A frame of a fade.
    void Step(double now = 0.0) { mClut.StepFade(now); }

    // Has a slot chosen, whose fade begins with the next step.
    void Choose(std::int32_t slot) {
        mClut.currentSlot = mClut.lastSlot = slot;
        mClut.request = 0;
        mClut.fadeLevel = kFadeStart;
    }

    std::array<ColourTable, 11> mFixed{};
    std::map<int, std::unique_ptr<PlainMap>> mComputed;
    ColourMaps mMaps{ mFixed };
    std::vector<Floats> mUploads;
    WCLUTManager mClut{ mMaps };
};

} // namespace orvane::zephor
