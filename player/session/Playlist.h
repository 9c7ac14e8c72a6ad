// The songs to be played, one after the other.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace orvane::player {

class Playlist {
public:
    // Begins at the first song; there is at least one.
    explicit Playlist(std::vector<std::string> songs)
        : mSongs(std::move(songs)) {}

    [[nodiscard]] const std::string& Current() const { return mSongs[mAt]; }

    // Whether it went on to another song. At the last one it stays.
    bool Next() {
        if (mAt + 1 >= mSongs.size()) return false;
        ++mAt;
        return true;
    }

    // The same towards the first.
    bool Previous() {
        if (mAt == 0) return false;
        --mAt;
        return true;
    }

private:
    std::vector<std::string> mSongs;
    std::size_t mAt = 0;
};

} // namespace orvane::player
