// A session without a machine: a host that answers from a table, a console whose keys come at their time, a clock
// that only sleeping moves, and songs that are ramps.
#pragma once

#include "player/session/Session.h"
#include "support/Wire.h"
#include "unit/player/sound/Fakes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace orvane::tests {

class FakeClock final : public player::ISessionClock {
public:
    [[nodiscard]] double Now() override { return mNow; }

    void Sleep(double seconds) override { Pass(seconds); }

    void Pass(double seconds) {
        mNow += seconds;
        if (mOnPass) mOnPass();
    }

    double mNow = 100.0; // seconds
    std::function<void()> mOnPass;
};

class FakeConsole final : public player::IConsole {
public:
    explicit FakeConsole(FakeClock& clock)
        : mClock(clock) {}

    [[nodiscard]] std::optional<player::ConsoleKey> NextKey() override {
        if (mKeys.empty() || mClock.mNow < mKeys.front().first) return std::nullopt;
        const player::ConsoleKey key = mKeys.front().second;
        mKeys.pop_front();
        return key;
    }

    [[nodiscard]] bool EndIsWanted() const override { return mClock.mNow >= mEndAt; }

    void Say(std::string_view line) override { mSaid.emplace_back(line); }

    void ShowProgress(std::string_view line) override { mProgress.emplace_back(line); }

    void Complain(std::string_view line) override { mComplaints.emplace_back(line); }

    std::deque<std::pair<double, player::ConsoleKey>> mKeys; // by the second at which each is pressed
    double mEndAt = 1e9;
    std::vector<std::string> mSaid;
    std::vector<std::string> mProgress;
    std::vector<std::string> mComplaints;

private:
    FakeClock& mClock;
};

// Answers every request; what it got stands in mTags in a row, pulses left out.
class FakeHost final : public player::IHost {
public:
    explicit FakeHost(FakeClock& clock)
        : mClock(clock) {}

    [[nodiscard]] player::HostOpening Open() override {
        mTags.emplace_back("(open)");
        const auto opening = mOpenings.empty() ? player::HostOpening{} : mOpenings.front();
        if (!mOpenings.empty()) mOpenings.pop_front();
        mGone = false;
        mReplyIsDue.reset();
        return opening;
    }

    [[nodiscard]] player::Outcome Send(std::span<const std::uint8_t> request) override {
        if (mGone) return { player::Failure::kConnectionLost, 109 };
        const std::string text = AsText(request);
        const std::string tag = text.substr(0, 4);
        EXPECT_FALSE(mReplyIsDue) << tag << " was sent while a reply was due";
        if (tag == "PULS")
            mPulses.emplace_back(request.begin(), request.end());
        else
            mTags.push_back(tag);
        mRequests[tag].push_back(text);
        mReply = ReplyTo(tag);
        mReplyIsDue = mClock.mNow + (tag == "PULS" ? mFrameSeconds : 0);
        return {};
    }

    [[nodiscard]] player::Reply Receive(std::chrono::milliseconds timeout) override {
        if (mGone) return { { player::Failure::kConnectionLost, 109 }, {} };
        if (!mReplyIsDue) return { { player::Failure::kSystem, 0 }, {} };
        const double wait = *mReplyIsDue - mClock.mNow;
        const double longest = std::chrono::duration<double>(timeout).count();
        if (wait > 0) mClock.Pass(std::min(wait, longest));
        if (wait > longest) return { { player::Failure::kNoReplyInTime, 258 }, {} };
        mReplyIsDue.reset();
        return { {}, { mReply.begin(), mReply.end() } };
    }

    void LetComeForward() override { mTags.emplace_back("(forward)"); }

    [[nodiscard]] bool IsGone() override { return mGone || mClock.mNow >= mGoneAt; }

    [[nodiscard]] bool IsFullScreen() override { return mFullScreen; }

    [[nodiscard]] bool MoveToMonitor(int number) override {
        mTags.push_back("(monitor " + std::to_string(number) + ")");
        return number <= mMonitors;
    }

    void Close() override { mTags.emplace_back("(close)"); }

    void Discard() override {
        mTags.emplace_back("(discard)");
        mGoneAt = mGoneAgainAt;
    }

    // Tags of all requests but pulses, and calls in brackets.
    std::vector<std::string> mTags;
    std::map<std::string, std::vector<std::string>> mRequests; // by tag
    std::vector<player::Bytes> mPulses;
    std::deque<player::HostOpening> mOpenings; // for each Open; then it is found
    std::deque<std::string> mPulseReplies;     // for each pulse; then nothing is told
    std::vector<std::u16string> mNames = { u"One", u"Two" };
    double mFrameSeconds = 0;  // that a pulse takes
    double mGoneAt = 1e9;      // second at which it is gone
    double mGoneAgainAt = 1e9; // the same, once it was started again
    bool mGone = false;
    bool mFullScreen = false;
    int mMonitors = 1;

private:
    [[nodiscard]] std::string ReplyTo(const std::string& tag) {
        if (tag == "UPVM") return List();
        if (tag != "PULS") return "OK";
        if (mPulseReplies.empty()) return std::string(4, '\0');
        std::string reply = mPulseReplies.front();
        mPulseReplies.pop_front();
        return reply;
    }

    // Big-endian, as the host writes it.
    [[nodiscard]] std::string List() const {
        std::string list = { 0, 0, 0, char(mNames.size()) };
        for (const auto& name : mNames) {
            list.append(36, '\0').append({ 0, 0, 0, 1 }).append(4, '\0'); // words, built-in, bytes
            list.append({ 0, char(name.size()) });
            for (const char16_t unit : name) list.append({ char(unit >> 8), char(unit) });
            list.append({ 0, 0 });
        }
        return list;
    }

    FakeClock& mClock;
    std::string mReply;
    std::optional<double> mReplyIsDue; // second
};

// Songs by their names; what isn't there can't be opened.
class FakeOpener final : public player::ITrackOpener {
public:
    [[nodiscard]] player::Track Open(const std::string& song) override {
        mOpened.push_back(song);
        player::Track track;
        const auto found = mSongs.find(song);
        if (found == mSongs.end()) {
            track.error = "no " + song;
            return track;
        }
        track.source = std::make_unique<RampSource>(found->second);
        track.texts.title.assign(song.begin(), song.end());
        track.texts.artist = u"Artist";
        track.texts.album = u"Album";
        track.cover = mCover;
        return track;
    }

    std::map<std::string, std::int64_t> mSongs; // name and length in frames, kRampRate of them a second
    player::Bytes mCover;
    std::vector<std::string> mOpened;
};

// Keeps what it was given; puts the middle of the window into the first sample.
class FakeAnalysis final : public player::ISoundAnalysis {
public:
    void Begin(std::uint32_t rate) override { mRates.push_back(rate); }

    [[nodiscard]] std::size_t WindowFrames() const override { return 8; }

    [[nodiscard]] records::AudioRenderData Analyze(std::span<const player::StereoFrame> window,
                                                   double seconds) override {
        mMiddles.push_back(window[4].left);
        mSeconds.push_back(seconds);
        return {};
    }

    std::vector<std::uint32_t> mRates;
    std::vector<float> mMiddles;
    std::vector<double> mSeconds;
};

} // namespace orvane::tests
