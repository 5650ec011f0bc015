// What a sound card hears, from its samples to the file.
#include <signal.h>
#include <sys/resource.h>

#include <cstring>
#include <numeric>

#include "platform/sound_converter.h"
#include "platform/wave_file.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int wantedRate = 11025;

template <class Sample>
void put(Bytes& bytes, Sample sample) {
    std::uint8_t raw[sizeof sample];
    std::memcpy(raw, &sample, sizeof sample);
    bytes.insert(bytes.end(), raw, raw + sizeof sample);
}

void put(Bytes& bytes, SampleType type, double value) {
    switch (type) {
        case SampleType::UInt8:
            return put(bytes, static_cast<std::uint8_t>(std::lround(128 + 127 * value)));
        case SampleType::Int16:
            return put(bytes, static_cast<std::int16_t>(std::lround(32767 * value)));
        case SampleType::Int32:
            return put(bytes, static_cast<std::int32_t>(std::lround(2147483647 * value)));
        case SampleType::Float:
            return put(bytes, static_cast<float>(value));
    }
}

/// One second of a tone that every channel has.
Bytes tone(const SoundFormat& format, double hertz, double loudness) {
    Bytes bytes;
    for (int i = 0; i < format.samplesPerSecond; ++i) {
        const double value = loudness * std::sin(2 * std::numbers::pi * hertz * i / format.samplesPerSecond);
        for (int channel = 0; channel < format.channels; ++channel) put(bytes, format.type, value);
    }
    return bytes;
}

Bytes converted(const SoundFormat& format, const Bytes& bytes) {
    SoundConverter converter(format, wantedRate);
    Bytes samples = converter.convert(bytes);
    const Bytes rest = converter.finish();
    samples.insert(samples.end(), rest.begin(), rest.end());
    return samples;
}

/// How far a sound is from the tone that it should be, at most, in steps of 8 bits; its two ends, where the
/// silence around it is heard, left out.
double worstError(const Bytes& samples, double hertz, double loudness) {
    double worst = 0;
    for (std::size_t i = 100; i + 100 < samples.size(); ++i) {
        const double value =
            128 +
            128 * loudness * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / wantedRate);
        worst = std::max(worst, std::abs(samples[i] - value));
    }
    return worst;
}

const SoundFormat formats[] = {{48000, 2, SampleType::Float}, {44100, 2, SampleType::Int16},
                               {96000, 6, SampleType::Int32}, {8000, 1, SampleType::UInt8},
                               {22050, 1, SampleType::UInt8}, {192000, 1, SampleType::Int16},
                               {47999, 1, SampleType::Float}};

TEST(SoundConverter, ATonesShapeAndLengthSurviveAnyDevice) {
    for (const SoundFormat& format : formats) {
        for (const double hertz : {40.0, 1000.0, 2400.0, 3200.0, 4400.0}) {
            if (hertz > 0.4 * format.samplesPerSecond) continue;
            const Bytes samples = converted(format, tone(format, hertz, 0.8));
            EXPECT_EQ(samples.size(), static_cast<std::size_t>(wantedRate)) << format.samplesPerSecond;
            const double ownSteps = format.type == SampleType::UInt8 ? 1.5 : 0;
            EXPECT_LT(worstError(samples, hertz, 0.8), 0.6 + ownSteps)
                << hertz << " Hz at " << format.samplesPerSecond;
        }
    }
}

TEST(SoundConverter, WhatIsTooHighForTheNewRateIsSilence) {
    for (const SoundFormat& format : formats) {
        for (const double hertz : {6200.0, 8000.0, 10025.0, 20000.0}) {
            if (hertz > 0.45 * format.samplesPerSecond) continue;
            EXPECT_LE(worstError(converted(format, tone(format, hertz, 0.9)), 0, 0), 1)
                << hertz << " Hz at " << format.samplesPerSecond;
        }
    }
}

TEST(SoundConverter, TheSoundComesOutTheSameInWhateverPartsItCame) {
    const SoundFormat format{44100, 2, SampleType::Int16};
    const Bytes bytes = tone(format, 700, 0.5);
    SoundConverter converter(format, wantedRate);
    Bytes samples;
    const std::size_t parts[] = {1, 3, 4096, 7, 20001};
    for (std::size_t at = 0, i = 0; at < bytes.size(); ++i) {
        const std::size_t size = std::min(parts[i % std::size(parts)], bytes.size() - at);
        const Bytes ready = converter.convert(std::span(bytes).subspan(at, size));
        samples.insert(samples.end(), ready.begin(), ready.end());
        at += size;
    }
    const Bytes rest = converter.finish();
    samples.insert(samples.end(), rest.begin(), rest.end());
    EXPECT_LT(rest.size(), 100u) << "most has come out before the end";
    EXPECT_EQ(samples, converted(format, bytes));
}

TEST(SoundConverter, ChannelsAreMixedAndLoudnessBeyondTheRangeIsCut) {
    Bytes bytes;
    for (int i = 0; i < 48000; ++i) {
        put(bytes, SampleType::Float, 0.75);
        put(bytes, SampleType::Float, -0.25);
    }
    EXPECT_EQ(converted({48000, 2, SampleType::Float}, bytes)[5000], 128 + 32);
    bytes.clear();
    for (int i = 0; i < 48000; ++i) put(bytes, SampleType::Float, i < 24000 ? 7.0 : std::nan(""));
    const Bytes samples = converted({48000, 1, SampleType::Float}, bytes);
    EXPECT_EQ(samples[3000], 255);
    EXPECT_EQ(samples[9000], 128);
}

TEST(SoundConverter, WhatIsInTheWantedFormStaysToTheBit) {
    const Bytes bytes = tone({wantedRate, 1, SampleType::UInt8}, 5000, 1.0);
    EXPECT_EQ(converted({wantedRate, 1, SampleType::UInt8}, bytes), bytes);
}

Bytes ramp(std::size_t size) {
    Bytes samples(size);
    std::iota(samples.begin(), samples.end(), std::uint8_t{0});
    return samples;
}

std::uint32_t number(const std::string& bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    while (size-- > 0) value = value << 8 | static_cast<std::uint8_t>(bytes.at(at + size));
    return value;
}

/// What a player finds in it, going from chunk to chunk. The test fails where the file is none.
Bytes played(const std::string& file) {
    EXPECT_EQ(file.substr(0, 4) + file.substr(8, 4), "RIFFWAVE");
    EXPECT_LE(8 + number(file, 4, 4), file.size());
    EXPECT_EQ(number(file, 4, 4) % 2, 0u);
    for (std::size_t at = 12; at + 8 <= file.size();) {
        const std::uint32_t size = number(file, at + 4, 4);
        EXPECT_LE(at + 8 + size, 8 + number(file, 4, 4));
        if (file.substr(at, 4) == "data") {
            const std::string data = file.substr(at + 8, size);
            return {data.begin(), data.end()};
        }
        at += 8 + size + size % 2;
    }
    ADD_FAILURE() << "no samples";
    return {};
}

class WaveFileTest : public ::testing::Test {
  protected:
    std::string content() const { return folder.read("sound.wav"); }

    TemporaryFolder folder;
    WaveFile file{folder.path() / "sound.wav", CaptureFormat{}};
};

TEST_F(WaveFileTest, TellsItsFormat) {
    const std::string header = content();
    ASSERT_EQ(header.size(), 44u);
    EXPECT_EQ(header.substr(12, 4), "fmt ");
    EXPECT_EQ(number(header, 20, 2), 1u) << "uncompressed";
    EXPECT_EQ(number(header, 22, 2), 1u) << "channels";
    EXPECT_EQ(number(header, 24, 4), 11025u) << "samples a second";
    EXPECT_EQ(number(header, 28, 4), 11025u) << "bytes a second";
    EXPECT_EQ(number(header, 32, 2), 1u) << "bytes of a sample";
    EXPECT_EQ(number(header, 34, 2), 8u) << "bits";
    EXPECT_EQ(played(header), Bytes{});
}

TEST_F(WaveFileTest, PlaysWholeAfterEachPart) {
    const Bytes all = ramp(1000);
    std::size_t size = 0;
    for (const std::size_t part : {1u, 2u, 1u, 256u, 0u, 333u, 7u}) {
        EXPECT_TRUE(file.append(std::span(all).subspan(size, part)));
        size += part;
        EXPECT_EQ(played(content()), Bytes(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(size)));
        EXPECT_EQ(file.sizeBytes(), size);
    }
}

TEST_F(WaveFileTest, AFullDiskEndsTheGrowthAndWhatFittedPlays) {
    signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit full{1001, before.rlim_max};
    EXPECT_TRUE(file.append(ramp(501)));
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    const bool isWhole = file.append(ramp(600));
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_FALSE(isWhole);
    EXPECT_FALSE(file.append(ramp(1))) << "a gap would spoil the timing";
    Bytes expected = ramp(501);
    const Bytes rest = ramp(456);
    expected.insert(expected.end(), rest.begin(), rest.end());
    // The last of the 957 that fitted has no room for the byte behind it.
    expected.pop_back();
    EXPECT_EQ(played(content()), expected);
    EXPECT_EQ(content().size(), 44 + expected.size());
}

TEST_F(WaveFileTest, ARenamedFileTakesThePlaceOfAnotherButANewOneNever) {
    folder.write("old.wav", "old");
    file.append(ramp(10));
    EXPECT_TRUE(file.renameTo(folder.path() / "old.wav"));
    file.append(ramp(10));
    EXPECT_FALSE(folder.exists("sound.wav"));
    EXPECT_EQ(played(folder.read("old.wav")).size(), 20u);
    folder.write("full/inside", "");
    EXPECT_FALSE(file.renameTo(folder.path() / "full"));
    EXPECT_EQ(file.path(), folder.path() / "old.wav");
    EXPECT_THROW(WaveFile(folder.path() / "old.wav", CaptureFormat{}), FileError);
    EXPECT_EQ(played(folder.read("old.wav")).size(), 20u);
    EXPECT_THROW(WaveFile(folder.path() / "nowhere" / "sound.wav", CaptureFormat{}), FileError);
}

}  // namespace
}  // namespace vantrace
