// Pictures of every waveform effect: eight moments of one that takes the stage, over the feedback of a field that
// grows slowly, to made-up music.
//
// waveform-strips FOLDER [WIDTH HEIGHT]: writes FOLDER/NN-name.pgm for each effect, the moments side by side.
#include "platform/Random.h"
#include "unit/zephor/layers/LayerPixels.h"
#include "zephor/effects/waveforms/WaveformLists.h"
#include "zephor/layers/ZephorLayerSet.h"
#include "zephor/waveforms/DrawWaveforms.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace orvane::zephor;

constexpr double kFirstSecond = 5000, kFramesPerSecond = 40;
constexpr int kMoments = 8;
constexpr int kMomentFrames[kMoments] = { 1, 30, 64, 127, 170, 240, 320, 400 };

// A chord with a beat twice a second.
void MakeMusic(ZephorAudioState& audio, double time) {
    const double beat = std::exp(-4 * (time * 2 - std::floor(time * 2)));
    for (int channel = 0; channel < kAudioChannels; ++channel)
        for (int i = 0; i < kAudioPoints; ++i) {
            const double ends = std::min({ 1.0, i / 20.0, (255 - i) / 20.0 });
            const double a = i * 0.1 + time * 30 + channel;
            const double wave =
                0.35 * std::sin(a) + 0.25 * std::sin(a * 2.7 + time) + 0.2 * beat * std::sin(a * 9);
            audio.waveform[channel][i] = float(wave * ends * (0.5 + 0.5 * beat));
            audio.spectrum[channel][i] =
                float((0.9 + beat * 0.6) * std::exp(-i / 90.0) * (0.7 + 0.3 * std::sin(i * 0.8 + time * 3)));
        }
}

// Outwards, with a slight turn.
void MakeField(ZephorLayerNextDeltaField& field) {
    field.WillWrite();
    const int width = field.Width(), height = field.Height();
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column) {
            const double x = (column - width / 2.0) * 0.985, y = (row - height / 2.0) * 0.985;
            const double c = std::cos(0.006), s = std::sin(0.006);
            const double sourceX = x * c - y * s + width / 2.0, sourceY = x * s + y * c + height / 2.0;
            field.RowToWrite(row)[column] = { float(std::clamp(sourceX, 0.0, width - 1.0)),
                                              float(std::clamp(sourceY, 0.0, height - 1.0)) };
        }
}

void WriteStrip(const std::string& path, const std::vector<orvane::tests::LayerPixels>& moments) {
    const int width = moments[0].width, height = moments[0].height, columns = kMoments / 2;
    std::ofstream file(path, std::ios::binary);
    file << "P5 " << width * columns << ' ' << height * 2 << " 255\n";
    for (int row = 0; row < height * 2; ++row)
        for (int column = 0; column < columns; ++column) {
            const auto& moment = moments[std::size_t(row / height * columns + column)];
            file.write(reinterpret_cast<const char*>(&moment.bytes[std::size_t(row % height * width)]),
                       width);
        }
}

void DrawStrip(const std::string& path, AsyncWaveFormFunctor* before, AsyncWaveFormFunctor* waveform,
               int width, int height) {
    std::vector<std::uint32_t> table(256);
    ZephorLayerSet layers;
    layers.Resize(width, height);
    MakeField(*layers.nextDeltaField);
    ZephorAudioState audio{};
    WaveformStage stage;
    stage.waveform = before;
    orvane::platform::SeedRand(7);
    std::vector<orvane::tests::LayerPixels> moments;
    for (int frame = -20; moments.size() < kMoments; ++frame) {
        if (frame == 0) stage.PutOn(1, waveform);
        if (stage.fadeFrames > 0) --stage.fadeFrames;
        const double time = kFirstSecond + frame / kFramesPerSecond;
        MakeMusic(audio, time);
        layers.StepFeedback();
        DrawWaveforms(stage, { *layers.targetLayer, audio, time, double(width), double(height),
                               ColourTable(table.data(), 256) });
        if (frame == kMomentFrames[moments.size()]) moments.emplace_back(*layers.targetLayer);
    }
    WriteStrip(path, moments);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) {
        std::fprintf(stderr, "usage: waveform-strips FOLDER [WIDTH HEIGHT]\n");
        return 2;
    }
    const int width = argc == 4 ? std::atoi(argv[2]) : 480, height = argc == 4 ? std::atoi(argv[3]) : 360;
    int number = 0;
    for (const WaveformList list : { WaveformList1(), WaveformList2(), WaveformList3() })
        for (AsyncWaveFormFunctor* waveform : list) {
            std::string name = std::to_string(number++);
            name.append("-").append(waveform->name);
            for (char& c : name)
                if (c == ' ') c = '_';
            DrawStrip(std::string(argv[1]).append("/").append(name).append(".pgm"), WaveformList1()[0],
                      waveform, width, height);
        }
    return 0;
}
