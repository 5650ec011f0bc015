// Sound as a device gives it, made into what a recording holds.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vantrace {

/// How a sample lies in memory: in the machine's own byte order.
enum class SampleType { UInt8, Int16, Int32, Float };

struct SoundFormat {
    int samplesPerSecond = 11025;
    /// Their samples follow each other.
    int channels = 1;
    SampleType type = SampleType::UInt8;

    friend bool operator==(const SoundFormat&, const SoundFormat&) = default;
};

/// Makes one channel of 8-bit unsigned samples at another rate: the channels' mean, band-limited by a
/// windowed sine integral (Kaiser's window), so that nothing above half the lower rate folds back into the
/// sound. The time of each sample is reckoned in whole numbers, so that no length of sound drifts. What is
/// loud beyond the range is cut to it.
class SoundConverter {
  public:
    /// Rates and channels above 0.
    SoundConverter(const SoundFormat& from, int toSamplesPerSecond);

    /// Takes the next bytes, of any number; gives the samples that are ready. A few thousandths of a second
    /// stay inside until more comes. Sound that is in the wanted form already comes out as it went in.
    std::vector<std::uint8_t> convert(std::span<const std::uint8_t> bytes);
    /// What still is inside, at the end of the sound.
    std::vector<std::uint8_t> finish();

  private:
    void takeFrames(std::span<const std::uint8_t> bytes);
    std::vector<std::uint8_t> takeReady();
    double filtered(double positionSamples) const;
    void dropUsed();

    const SoundFormat m_from;
    const int m_toRate;
    const bool m_isSame;
    /// The filter's reach to each side, in samples of the device.
    const int m_reach;
    /// The filter in steps of a fraction of a sample, from its middle outwards.
    std::vector<float> m_filter;
    /// The bytes of a frame that isn't whole yet.
    std::vector<std::uint8_t> m_rest;
    /// The samples from m_first on, -1 to 1; those before the sound are silence.
    std::vector<float> m_samples;
    std::int64_t m_first;
    /// The next sample to be made, counted at the new rate.
    std::int64_t m_next = 0;
};

}  // namespace vantrace
